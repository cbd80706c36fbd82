#pragma once

#include <pugixml.hpp>

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace Toolkit {

class Type;

/// What the prefixes of a document stand for: `xmlns:local="clr-namespace:Name"` makes `local:Thing` the class that is
/// registered as "Name.Thing". Every other namespace holds the toolkit's own classes, which have no name in front.
class NamespacePrefixes {
public:
  /// Reads the declarations, which stand at the document's root.
  void Read(const pugi::xml_node& root);
  /// Calls `report` for each name at or below the node whose prefix is not declared. True if there is none.
  bool Check(const pugi::xml_node& node,
             const std::function<void(const pugi::xml_node&, const std::string& name)>& report) const;
  /// Null if there is no such class, or the prefix is not declared.
  const Type* FindType(std::string_view qualifiedName) const;

private:
  bool IsDeclared(std::string_view qualifiedName) const;
  /// By prefix, the name in front of its classes, with its dot.
  std::map<std::string, std::string, std::less<>> namespaces;
};

} // namespace Toolkit
