#include "toolkit/markup/NamespacePrefixes.h"

#include "toolkit/base/Type.h"

namespace Toolkit {

namespace {
constexpr std::string_view Declaration = "xmlns:", ClassNamespace = "clr-namespace:";
}

void NamespacePrefixes::Read(const pugi::xml_node& root) {
  // Declared by XML itself.
  namespaces["xml"];
  for (const pugi::xml_attribute& attribute : root.attributes()) {
    const std::string_view name = attribute.name(), value = attribute.value();
    if (!name.starts_with(Declaration)) continue;
    std::string& inFront = namespaces[std::string(name.substr(Declaration.size()))];
    if (!value.starts_with(ClassNamespace)) continue;
    // What follows a semicolon says which file the classes are in.
    inFront = value.substr(ClassNamespace.size());
    inFront = inFront.substr(0, inFront.find(';')) + ".";
  }
}

bool NamespacePrefixes::IsDeclared(std::string_view qualifiedName) const {
  const size_t colon = qualifiedName.find(':');
  return colon == std::string_view::npos || namespaces.contains(qualifiedName.substr(0, colon));
}

bool NamespacePrefixes::Check(const pugi::xml_node& node,
                              const std::function<void(const pugi::xml_node&, const std::string&)>& report) const {
  bool areAllDeclared = true;
  const auto check = [&](std::string_view name) {
    if (IsDeclared(name)) return;
    areAllDeclared = false;
    report(node, std::string(name));
  };
  check(node.name());
  for (const pugi::xml_attribute& attribute : node.attributes())
    if (!std::string_view(attribute.name()).starts_with(Declaration)) check(attribute.name());
  for (const pugi::xml_node& child : node.children())
    if (!Check(child, report)) areAllDeclared = false;
  return areAllDeclared;
}

const Type* NamespacePrefixes::FindType(std::string_view qualifiedName) const {
  const size_t colon = qualifiedName.find(':');
  if (colon == std::string_view::npos) return TypeRegistry::Find(Symbol(qualifiedName));
  const auto found = namespaces.find(qualifiedName.substr(0, colon));
  if (found == namespaces.end()) return nullptr;
  return TypeRegistry::Find(Symbol(found->second + std::string(qualifiedName.substr(colon + 1))));
}

} // namespace Toolkit
