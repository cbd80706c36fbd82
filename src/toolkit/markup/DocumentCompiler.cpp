#include "toolkit/markup/DocumentCompiler.h"

#include "toolkit/base/Diagnostics.h"
#include "toolkit/markup/MarkupExtension.h"
#include "toolkit/markup/ValueConversion.h"
#include "toolkit/visual/Behavior.h"

#include <algorithm>
#include <cstring>

namespace Toolkit {

namespace {
std::string_view LocalName(std::string_view qualified) {
  const size_t colon = qualified.find(':');
  return colon == std::string_view::npos ? qualified : qualified.substr(colon + 1);
}

bool IsDirective(std::string_view attribute) { return attribute.starts_with("x:"); }
} // namespace

DocumentCompiler::DocumentCompiler(std::string_view documentName, std::string_view text,
                                   DictionaryLoader loadDictionary)
    : name(documentName), text(text), loadDictionary(loadDictionary) {}

int DocumentCompiler::LineOf(const pugi::xml_node& node) const {
  const std::ptrdiff_t offset =
      std::clamp<std::ptrdiff_t>(node.offset_debug(), 0, static_cast<std::ptrdiff_t>(text.size()));
  return 1 + static_cast<int>(std::count(text.begin(), text.begin() + offset, '\n'));
}

void DocumentCompiler::Report(const pugi::xml_node& node, const std::string& message) const {
  Log(name.c_str(), static_cast<uint32_t>(LineOf(node)), LogLevel::Warning, "Markup", message);
}

bool DocumentCompiler::Parse() {
  const pugi::xml_parse_result result = document.load_buffer(text.data(), text.size());
  if (!result) {
    const auto line = 1 + std::count(text.begin(), text.begin() + result.offset, '\n');
    Log(name.c_str(), static_cast<uint32_t>(line), LogLevel::Error, "Markup", result.description());
    return false;
  }
  prefixes.Read(document.document_element());
  return prefixes.Check(document.document_element(), [this](const pugi::xml_node& node, const std::string& qualified) {
    Report(node, "the prefix of '" + qualified + "' is not declared");
  });
}

std::unique_ptr<ElementPlan> DocumentCompiler::Compile() {
  if (!Parse()) return nullptr;
  const pugi::xml_node root = document.document_element();
  if (const pugi::xml_attribute className = root.attribute("x:Class")) {
    componentType = TypeRegistry::Find(Symbol(className.value()));
    if (!componentType) {
      Report(root, "class '" + std::string(className.value()) + "' is not known");
      return nullptr;
    }
  }
  return CompileElement(root);
}

Ptr<ResourceDictionary> DocumentCompiler::CompileDictionary() {
  if (!Parse()) return nullptr;
  return CompileResources(document.document_element());
}

const Value* DocumentCompiler::FindResource(const Value& key) const {
  for (size_t i = resourceScopes.size(); i-- > 0;)
    if (const Value* found = resourceScopes[i]->Find(key)) return found;
  const ResourceDictionary* application = ResourceDictionary::Application();
  return application ? application->Find(key) : nullptr;
}

Object* DocumentCompiler::FindResource(std::string_view key) const {
  const Value* found = FindResource(Value(SharedString(key)));
  return found ? found->AsObject() : nullptr;
}

DocumentCompiler::PropertyRef DocumentCompiler::FindProperty(const Type& type, std::string_view propertyName) const {
  PropertyRef ref;
  const Type* owner = &type;
  const size_t dot = propertyName.find('.');
  if (dot != std::string_view::npos) {
    owner = FindType(propertyName.substr(0, dot));
    propertyName = propertyName.substr(dot + 1);
    if (!owner) return ref;
  }
  const Symbol symbol(LocalName(propertyName));
  if ((ref.property = owner->FindProperty(symbol))) return ref;
  if ((ref.list = owner->FindList(symbol))) return ref;
  const ReflectedMember* member = owner->FindMember(symbol);
  if (member && member->set) ref.member = member;
  return ref;
}

bool DocumentCompiler::ResolveStatic(std::string_view value, const pugi::xml_node& node, Value& result) {
  MarkupExtension extension;
  std::string error;
  if (!extension.Parse(value, error)) {
    Report(node, error);
    return false;
  }
  if (extension.name == "x:Null") {
    result = Value();
    return true;
  }
  if (extension.arguments.size() != 1) {
    Report(node, "'" + std::string(value) + "' is not understood");
    return false;
  }
  const std::string& argument = extension.arguments[0].value;
  if (extension.name == "StaticResource" || extension.name == "DynamicResource") {
    const Value* found = FindResource(Value(SharedString(argument)));
    if (found)
      result = *found;
    else
      Report(node, "resource '" + argument + "' is not defined");
    return found != nullptr;
  }
  if (extension.name == "x:Type") {
    const Type* type = FindType(argument);
    if (!type) Report(node, "type '" + argument + "' is not known");
    result = Value(type);
    return type != nullptr;
  }
  Report(node, "markup extension '" + extension.name + "' is not known");
  return false;
}

Value DocumentCompiler::ParseValue(std::string_view value, const DependencyProperty& property,
                                   const pugi::xml_node& node, bool& ok) {
  Value result;
  if (MarkupExtension::IsExtension(value)) {
    Value resolved;
    ok = ResolveStatic(value, node, resolved);
    if (ok && !ValueConversion::Convert(resolved, property, result)) {
      Report(node, "'" + std::string(value) + "' does not fit " + property.name.Text());
      ok = false;
    }
    return result;
  }
  if (value.starts_with("{}")) value.remove_prefix(2);
  if (property.kind == ValueKind::Type) {
    const Type* type = FindType(value);
    ok = type != nullptr;
    result = Value(type);
  } else {
    ok = ValueConversion::FromText(value, property, result);
  }
  if (!ok) Report(node, "'" + std::string(value) + "' is no value of " + property.name.Text());
  return result;
}

std::unique_ptr<ElementPlan> DocumentCompiler::CompileElement(const pugi::xml_node& node) {
  auto plan = std::make_unique<ElementPlan>();
  plan->line = LineOf(node);
  plan->type = FindType(node.name());
  if (!plan->type) {
    Report(node, "type '" + std::string(node.name()) + "' is not known");
    return nullptr;
  }
  const bool isRoot = node == document.document_element();
  if (!plan->type->CanCreate() && !isRoot) {
    Report(node, "a " + plan->type->Name() + " cannot be made");
    return nullptr;
  }
  // The root of a class's document is an object of that class, which may have members of its own.
  if (isRoot && componentType) plan->type = componentType;
  // Resources come first, wherever they stand, since the attributes may refer to them.
  size_t scopes = resourceScopes.size();
  for (const pugi::xml_node& child : node.children()) {
    const std::string_view childName = child.name();
    if (!childName.ends_with(".Resources")) continue;
    plan->resources = MakePtr<ResourceDictionary>();
    resourceScopes.push_back(plan->resources);
    for (const pugi::xml_node& resource : child.children())
      if (resource.type() == pugi::node_element) AddResource(*plan->resources, resource);
  }
  for (const pugi::xml_attribute& attribute : node.attributes()) CompileAttribute(*plan, node, attribute);
  CompileChildren(*plan, node);
  resourceScopes.resize(scopes);
  plan->hasNames = plan->hasNames || !plan->name.IsEmpty();
  for (const ElementPlan::Child& child : plan->children)
    plan->hasNames = plan->hasNames || (child.plan && child.plan->hasNames);
  return plan;
}

void DocumentCompiler::CompileAttribute(ElementPlan& plan, const pugi::xml_node& node,
                                        const pugi::xml_attribute& attribute) {
  const std::string_view attributeName = attribute.name();
  const std::string_view value = attribute.value();
  if (attributeName.starts_with("xmlns") || attributeName.starts_with("mc:") || attributeName.starts_with("d:")) return;
  if (attributeName == "x:Name" || (attributeName == "Name" && plan.type->IsA(FrameworkElement::StaticType()))) {
    plan.name = Symbol(value);
    return;
  }
  if (IsDirective(attributeName)) return;
  // "Type.Event" listens to an event that elements below raise.
  const size_t dot = attributeName.find('.');
  const Type* eventOwner = dot == std::string_view::npos ? plan.type : FindType(attributeName.substr(0, dot));
  const std::string_view eventName = dot == std::string_view::npos ? attributeName : attributeName.substr(dot + 1);
  if (const RoutedEvent* event = eventOwner ? eventOwner->FindEvent(Symbol(eventName)) : nullptr) {
    CompileEvent(plan, *event, value, node);
    return;
  }
  const PropertyRef target = FindProperty(*plan.type, attributeName);
  if (!target) {
    Report(node, "'" + std::string(attributeName) + "' is no property or event of " + plan.type->Name());
    return;
  }
  AssignText(plan, target, value, node);
}

void DocumentCompiler::CompileEvent(ElementPlan& plan, const RoutedEvent& event, std::string_view handlerName,
                                    const pugi::xml_node& node) {
  const HandlerMember* handler = componentType ? componentType->FindHandler(Symbol(handlerName), event) : nullptr;
  if (handler && plan.type->IsA(UIElement::StaticType()))
    plan.events.push_back({&event, handler});
  else
    Report(node,
           "no handler '" + std::string(handlerName) + "' for '" + event.name.Text() + "' of " + plan.type->Name());
}

void DocumentCompiler::AssignText(ElementPlan& plan, const PropertyRef& target, std::string_view value,
                                  const pugi::xml_node& node) {
  if (target.list) {
    Report(node, "a list cannot be given as text");
    return;
  }
  if (target.property && (value.starts_with("{Binding") || value.starts_with("{TemplateBinding"))) {
    auto binding = MakePtr<Binding>();
    std::string error;
    if (!binding->Parse(value, *this, error)) {
      Report(node, error);
      return;
    }
    if (value.starts_with("{TemplateBinding")) binding->relativeSource = RelativeSourceMode::TemplatedParent;
    plan.bindings.push_back({target.property, binding});
    return;
  }
  if (target.property) {
    bool ok = false;
    Value parsed = ParseValue(value, *target.property, node, ok);
    if (ok) plan.constants.Set(target.property, std::move(parsed));
    return;
  }
  Value parsed;
  if (MarkupExtension::IsExtension(value) ? ResolveStatic(value, node, parsed)
                                          : ValueConversion::FromText(value, target.member->kind, nullptr, parsed)) {
    plan.members.emplace_back(target.member, std::move(parsed));
  } else {
    Report(node, "'" + std::string(value) + "' is no value of " + target.member->name.Text());
  }
}

void DocumentCompiler::CompileChildren(ElementPlan& plan, const pugi::xml_node& node) {
  for (const pugi::xml_node& child : node.children()) {
    if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
      const Symbol content = plan.type->ContentMember();
      const PropertyRef target = content.IsEmpty() ? PropertyRef() : FindProperty(*plan.type, content.Text());
      std::string_view value = child.value();
      const size_t start = value.find_first_not_of(" \t\r\n");
      if (start == std::string_view::npos) continue;
      value = value.substr(start, value.find_last_not_of(" \t\r\n") - start + 1);
      if (target)
        AssignText(plan, target, value, node);
      else
        Report(node, "text cannot stand in a " + plan.type->Name());
      continue;
    }
    if (child.type() != pugi::node_element) continue;
    const std::string_view childName = LocalName(child.name());
    if (childName.find('.') != std::string_view::npos) {
      CompilePropertyElement(plan, child);
      continue;
    }
    const Symbol content = plan.type->ContentMember();
    const PropertyRef target = content.IsEmpty() ? PropertyRef() : FindProperty(*plan.type, content.Text());
    if (!target) {
      Report(child, "a " + plan.type->Name() + " takes no children");
      continue;
    }
    AssignElement(plan, target, child);
  }
}

void DocumentCompiler::CompilePropertyElement(ElementPlan& plan, const pugi::xml_node& node) {
  const std::string_view local = LocalName(node.name());
  const size_t dot = local.find('.');
  const std::string_view owner = local.substr(0, dot), property = local.substr(dot + 1);
  if (property == "Resources") return;
  if (owner == "Interaction") {
    for (const pugi::xml_node& child : node.children()) {
      if (child.type() != pugi::node_element) continue;
      const Type* type = FindType(child.name());
      if (!type || !type->IsA(Behavior::StaticType())) {
        Report(child, "'" + std::string(child.name()) + "' is no behaviour");
        continue;
      }
      if (std::unique_ptr<ElementPlan> behavior = CompileElement(child)) plan.behaviors.push_back(std::move(behavior));
    }
    return;
  }
  // "Grid.ColumnDefinitions" names a member of this element's own class or base; anything else is attached.
  PropertyRef target = FindProperty(*plan.type, property);
  const std::string qualified(std::string(node.name()).substr(0, std::string(node.name()).find('.')));
  if (const Type* ownerType = FindType(qualified); ownerType && !plan.type->IsA(*ownerType))
    target = FindProperty(*plan.type, local);
  if (!target) {
    Report(node, "'" + std::string(local) + "' is no property of " + plan.type->Name());
    return;
  }
  for (const pugi::xml_node& child : node.children()) {
    if (child.type() == pugi::node_element)
      AssignElement(plan, target, child);
    else if (child.type() == pugi::node_pcdata)
      AssignText(plan, target, child.value(), node);
  }
}

Ptr<Object> DocumentCompiler::Share(std::unique_ptr<ElementPlan> plan) {
  Instantiation instantiation(nullptr, nullptr, false);
  Ptr<Object> object = instantiation.Create(*plan);
  // The object may point to tables of its plan, which stays with it: both live until the process ends.
  static auto* plans = new std::vector<std::unique_ptr<ElementPlan>>();
  plans->push_back(std::move(plan));
  return object;
}

bool DocumentCompiler::CompileShared(const pugi::xml_node& node, Ptr<Object>& object) {
  const std::string_view local = LocalName(node.name());
  if (local == "Style")
    object = CompileStyle(node);
  else if (local == "ControlTemplate")
    object = CompileTemplate(node, MakePtr<ControlTemplate>());
  else if (local == "DataTemplate")
    object = CompileTemplate(node, MakePtr<DataTemplate>());
  else if (local == "ItemsPanelTemplate")
    object = CompileTemplate(node, MakePtr<ItemsPanelTemplate>());
  else if (local == "ResourceDictionary")
    object = CompileResources(node);
  else
    return false;
  return true;
}

void DocumentCompiler::AssignElement(ElementPlan& plan, const PropertyRef& target, const pugi::xml_node& node) {
  if (target.property && LocalName(node.name()) == "Binding") {
    // Element syntax: each attribute is an argument.
    std::string written = "{Binding";
    const char* separator = " ";
    for (const pugi::xml_attribute& attribute : node.attributes()) {
      written += std::string(separator) + attribute.name() + "=" + attribute.value();
      separator = ", ";
    }
    AssignText(plan, target, written + "}", node);
    return;
  }
  Ptr<Object> shared;
  if (!CompileShared(node, shared)) {
    std::unique_ptr<ElementPlan> child = CompileElement(node);
    if (!child) return;
    if (target.property && (target.property->flags & DependencyProperty::DefersContent)) {
      shared = MakePtr<ElementFactory>(std::move(child));
      plan.constants.Set(target.property, Value(shared));
      return;
    }
    if (target.property && child->IsShareable()) {
      shared = Share(std::move(child));
    } else {
      const Type& wanted = target.list ? target.list->itemType()
                                       : (target.property && target.property->objectType ? target.property->objectType()
                                                                                         : Object::StaticType());
      if (!child->type->IsA(wanted)) {
        Report(node, "a " + child->type->Name() + " cannot stand where a " + wanted.Name() + " is wanted");
        return;
      }
      ElementPlan::Child entry;
      entry.list = target.list;
      entry.property = target.property;
      entry.member = target.member;
      if (target.list && child->IsShareable())
        entry.shared = Share(std::move(child));
      else
        entry.plan = std::move(child);
      plan.children.push_back(std::move(entry));
      return;
    }
  }
  if (!shared) return;
  Value value;
  if (target.property && ValueConversion::Convert(Value(shared), *target.property, value)) {
    plan.constants.Set(target.property, std::move(value));
  } else if (target.member) {
    plan.members.emplace_back(target.member, Value(shared));
  } else {
    Report(node, "a " + shared->GetType().Name() + " cannot stand here");
  }
}

Ptr<ResourceDictionary> DocumentCompiler::CompileResources(const pugi::xml_node& node) {
  auto dictionary = MakePtr<ResourceDictionary>();
  if (const pugi::xml_attribute source = node.attribute("Source")) {
    Ptr<ResourceDictionary> loaded = loadDictionary(source.value());
    if (loaded) return loaded;
    Report(node, "resource dictionary '" + std::string(source.value()) + "' cannot be loaded");
    return dictionary;
  }
  resourceScopes.push_back(dictionary);
  for (const pugi::xml_node& child : node.children())
    if (child.type() == pugi::node_element) AddResource(*dictionary, child);
  resourceScopes.pop_back();
  return dictionary;
}

void DocumentCompiler::AddResource(ResourceDictionary& dictionary, const pugi::xml_node& node) {
  const std::string_view local = LocalName(node.name());
  if (local == "ResourceDictionary.MergedDictionaries") {
    for (const pugi::xml_node& child : node.children())
      if (child.type() == pugi::node_element) dictionary.Merge(CompileResources(child));
    return;
  }
  if (local == "ResourceDictionary" && !node.attribute("x:Key")) {
    dictionary.Merge(CompileResources(node));
    return;
  }
  Value key;
  if (const pugi::xml_attribute attribute = node.attribute("x:Key")) {
    const std::string_view written = attribute.value();
    if (MarkupExtension::IsExtension(written)) {
      if (!ResolveStatic(written, node, key)) return;
    } else {
      key = Value(SharedString(written));
    }
  } else if (const Type* target = TypeAttribute(node, "TargetType")) {
    key = Value(target);
  } else {
    Report(node, "a resource needs an x:Key");
    return;
  }
  if (local == "Color" || local == "String" || local == "Double" || local == "Thickness" || local == "CornerRadius") {
    const ValueKind kind = local == "Color"       ? ValueKind::Color
                           : local == "String"    ? ValueKind::String
                           : local == "Double"    ? ValueKind::Float
                           : local == "Thickness" ? ValueKind::Thickness
                                                  : ValueKind::CornerRadius;
    Value value;
    if (ValueConversion::FromText(node.text().get(), kind, nullptr, value))
      dictionary.Add(key, value);
    else
      Report(node, "'" + std::string(node.text().get()) + "' is no " + std::string(local));
    return;
  }
  Ptr<Object> object;
  if (!CompileShared(node, object)) {
    std::unique_ptr<ElementPlan> plan = CompileElement(node);
    if (!plan) return;
    if (plan->type->IsA(FrameworkElement::StaticType())) {
      Report(node, "an element cannot be a shared resource; use a template");
      return;
    }
    object = Share(std::move(plan));
  }
  if (object) dictionary.Add(key, Value(object));
}

} // namespace Toolkit
