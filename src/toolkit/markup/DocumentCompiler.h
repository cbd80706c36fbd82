#pragma once

#include "toolkit/markup/Binding.h"
#include "toolkit/markup/ElementPlan.h"
#include "toolkit/markup/NamespacePrefixes.h"
#include "toolkit/markup/Template.h"

#include <pugixml.hpp>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Toolkit {

/// Compiles one document into a plan. Names of types, properties, events, handlers and resources are resolved here, so
/// that a mistake is reported once, with its line, and not per instance.
class DocumentCompiler : private Binding::ParseContext {
public:
  /// Loads other documents that a `ResourceDictionary` names as its `Source`.
  using DictionaryLoader = Ptr<ResourceDictionary> (*)(std::string_view name);

  DocumentCompiler(std::string_view documentName, std::string_view text, DictionaryLoader loadDictionary);
  /// Null, with a diagnostic, if the document is broken. Lesser mistakes are reported and left out.
  std::unique_ptr<ElementPlan> Compile();
  /// Compiles a document whose root is a resource dictionary.
  Ptr<ResourceDictionary> CompileDictionary();

private:
  struct PropertyRef {
    const DependencyProperty* property = nullptr;
    const ReflectedMember* member = nullptr;
    const ListMember* list = nullptr;
    explicit operator bool() const { return property || member || list; }
  };

  bool Parse();
  std::unique_ptr<ElementPlan> CompileElement(const pugi::xml_node& node);
  void CompileAttribute(ElementPlan& plan, const pugi::xml_node& node, const pugi::xml_attribute& attribute);
  void CompileEvent(ElementPlan& plan, const RoutedEvent& event, std::string_view handlerName,
                    const pugi::xml_node& node);
  void CompileChildren(ElementPlan& plan, const pugi::xml_node& node);
  void CompilePropertyElement(ElementPlan& plan, const pugi::xml_node& node);
  void AssignText(ElementPlan& plan, const PropertyRef& target, std::string_view text, const pugi::xml_node& node);
  void AssignElement(ElementPlan& plan, const PropertyRef& target, const pugi::xml_node& node);
  /// True if the node describes an object that is complete at compile time: a style, a template, a shareable object.
  bool CompileShared(const pugi::xml_node& node, Ptr<Object>& object);
  Ptr<Object> Share(std::unique_ptr<ElementPlan> plan);

  Ptr<ResourceDictionary> CompileResources(const pugi::xml_node& node);
  void AddResource(ResourceDictionary& dictionary, const pugi::xml_node& node);

  // DocumentStyles.cpp
  Ptr<Style> CompileStyle(const pugi::xml_node& node);
  void CompileSetters(const pugi::xml_node& node, const Type& target, PropertySet& setters);
  Ptr<Trigger> CompileTrigger(const pugi::xml_node& node, const Type& target);
  void CompileAnimations(const pugi::xml_node& actions, const Type& target, Trigger& trigger);
  bool CompileCondition(const pugi::xml_node& node, const Type& target, Trigger& trigger);
  Ptr<FrameworkTemplate> CompileTemplate(const pugi::xml_node& node, Ptr<FrameworkTemplate> result);
  const Type* TypeAttribute(const pugi::xml_node& node, const char* name);

  PropertyRef FindProperty(const Type& type, std::string_view name) const;
  Value ParseValue(std::string_view text, const DependencyProperty& property, const pugi::xml_node& node, bool& ok);
  const Type* FindType(std::string_view name) const override { return prefixes.FindType(name); }
  /// The resource that the key means here, at the end of the lookup an application's; null if it is nowhere.
  const Value* FindResource(const Value& key) const;
  Object* FindResource(std::string_view key) const override;
  /// The object that `{StaticResource Key}` or `{x:Type T}` names; reports a failure.
  bool ResolveStatic(std::string_view text, const pugi::xml_node& node, Value& value);
  int LineOf(const pugi::xml_node& node) const;
  void Report(const pugi::xml_node& node, const std::string& message) const;

  std::string name;
  std::string_view text;
  DictionaryLoader loadDictionary;
  pugi::xml_document document;
  NamespacePrefixes prefixes;
  const Type* componentType = nullptr;
  std::vector<Ptr<ResourceDictionary>> resourceScopes;
};

} // namespace Toolkit
