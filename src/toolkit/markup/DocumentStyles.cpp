#include "toolkit/markup/DocumentCompiler.h"

#include "toolkit/markup/MarkupExtension.h"
#include "toolkit/markup/ValueConversion.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace Toolkit {

namespace {
std::string_view LocalName(const pugi::xml_node& node) {
  const std::string_view qualified = node.name();
  const size_t colon = qualified.find(':');
  return colon == std::string_view::npos ? qualified : qualified.substr(colon + 1);
}

/// Reads "hours:minutes:seconds" with a fraction of seconds, as milliseconds above 0.
bool ReadDuration(std::string_view text, double& milliseconds) {
  double total = 0;
  const char* at = text.data();
  const char* const end = at + text.size();
  for (int part = 0; part < 3; ++part) {
    double number = 0;
    const std::from_chars_result read = std::from_chars(at, end, number, std::chars_format::fixed);
    if (read.ec != std::errc() || number < 0) return false;
    total = total * 60 + number;
    at = read.ptr;
    if (part < 2 && (at == end || *at++ != ':')) return false;
  }
  milliseconds = total * 1000;
  return at == end && std::isfinite(milliseconds) && milliseconds > 0;
}
} // namespace

const Type* DocumentCompiler::TypeAttribute(const pugi::xml_node& node, const char* attributeName) {
  const pugi::xml_attribute attribute = node.attribute(attributeName);
  if (!attribute) return nullptr;
  const std::string_view written = attribute.value();
  if (MarkupExtension::IsExtension(written)) {
    Value value;
    return ResolveStatic(written, node, value) ? value.AsType() : nullptr;
  }
  const Type* type = FindType(written);
  if (!type) Report(node, "type '" + std::string(written) + "' is not known");
  return type;
}

Ptr<Style> DocumentCompiler::CompileStyle(const pugi::xml_node& node) {
  auto style = MakePtr<Style>();
  style->targetType = TypeAttribute(node, "TargetType");
  if (!style->targetType) {
    Report(node, "a style needs a TargetType");
    return nullptr;
  }
  if (const pugi::xml_attribute basedOn = node.attribute("BasedOn")) {
    MarkupExtension extension;
    std::string error;
    Value found;
    if (extension.Parse(basedOn.value(), error) && extension.arguments.size() == 1 &&
        extension.arguments[0].value.starts_with("{x:Type")) {
      Value key;
      if (ResolveStatic(extension.arguments[0].value, node, key))
        if (const Value* entry = FindResource(key)) found = *entry;
    } else {
      ResolveStatic(basedOn.value(), node, found);
    }
    if (const auto* base = found.As<Style*>()) {
      style->setters = base->setters;
      style->triggers = base->triggers;
    } else {
      Report(node, "the base style is not defined");
    }
  }
  CompileSetters(node, *style->targetType, style->setters);
  for (const pugi::xml_node& child : node.children()) {
    if (LocalName(child) == "Style.Setters") CompileSetters(child, *style->targetType, style->setters);
    if (LocalName(child) != "Style.Triggers") continue;
    for (const pugi::xml_node& trigger : child.children())
      if (trigger.type() == pugi::node_element)
        if (Ptr<Trigger> compiled = CompileTrigger(trigger, *style->targetType)) style->triggers.push_back(compiled);
  }
  style->Seal();
  return style;
}

void DocumentCompiler::CompileSetters(const pugi::xml_node& node, const Type& target, PropertySet& setters) {
  for (const pugi::xml_node& child : node.children()) {
    if (LocalName(child) != "Setter") continue;
    const std::string_view propertyName = child.attribute("Property").value();
    const DependencyProperty* property = FindProperty(target, propertyName).property;
    if (!property) {
      Report(child, "'" + std::string(propertyName) + "' is no property of " + target.Name());
      continue;
    }
    if (const pugi::xml_attribute value = child.attribute("Value")) {
      bool ok = false;
      Value parsed = ParseValue(value.value(), *property, child, ok);
      if (ok) setters.Set(property, std::move(parsed));
      continue;
    }
    const pugi::xml_node valueElement =
        child.child("Setter.Value").find_child([](const pugi::xml_node& n) { return n.type() == pugi::node_element; });
    Ptr<Object> shared;
    if (!valueElement) {
      Report(child, "a setter needs a value");
      continue;
    }
    if (!CompileShared(valueElement, shared)) {
      std::unique_ptr<ElementPlan> plan = CompileElement(valueElement);
      if (!plan) continue;
      if (property->flags & DependencyProperty::DefersContent)
        shared = MakePtr<ElementFactory>(std::move(plan));
      else if (plan->IsShareable())
        shared = Share(std::move(plan));
      else
        Report(valueElement, "an object that cannot be shared cannot be set by a style");
    }
    Value value;
    if (shared && ValueConversion::Convert(Value(shared), *property, value)) setters.Set(property, std::move(value));
  }
}

bool DocumentCompiler::CompileCondition(const pugi::xml_node& node, const Type& target, Trigger& trigger) {
  TriggerCondition condition;
  const std::string_view value = node.attribute("Value").value();
  if (const pugi::xml_attribute binding = node.attribute("Binding")) {
    auto parsed = MakePtr<Binding>();
    std::string error;
    if (!parsed->Parse(binding.value(), *this, error)) {
      Report(node, error);
      return false;
    }
    condition.binding = parsed;
    if (value != "{x:Null}") condition.value = Value(SharedString(value));
  } else {
    const std::string_view propertyName = node.attribute("Property").value();
    condition.property = FindProperty(target, propertyName).property;
    if (!condition.property) {
      Report(node, "'" + std::string(propertyName) + "' is no property of " + target.Name());
      return false;
    }
    bool ok = false;
    condition.value = ParseValue(value, *condition.property, node, ok);
    if (!ok) return false;
  }
  trigger.conditions.push_back(std::move(condition));
  return true;
}

Ptr<Trigger> DocumentCompiler::CompileTrigger(const pugi::xml_node& node, const Type& target) {
  auto trigger = MakePtr<Trigger>();
  const std::string_view kind = LocalName(node);
  if (kind == "Trigger" || kind == "DataTrigger") {
    if (!CompileCondition(node, target, *trigger)) return nullptr;
  } else if (kind == "MultiTrigger" || kind == "MultiDataTrigger") {
    const std::string conditionsName = std::string(kind) + ".Conditions";
    for (const pugi::xml_node& condition : node.child(conditionsName.c_str()).children())
      if (condition.type() == pugi::node_element && !CompileCondition(condition, target, *trigger)) return nullptr;
  } else {
    Report(node, "'" + std::string(kind) + "' is no trigger");
    return nullptr;
  }
  CompileSetters(node, target, trigger->setters);
  for (const pugi::xml_node& child : node.children())
    if (LocalName(child) == std::string(kind) + ".EnterActions") CompileAnimations(child, target, *trigger);
  return trigger;
}

void DocumentCompiler::CompileAnimations(const pugi::xml_node& actions, const Type& target, Trigger& trigger) {
  for (const pugi::xml_node& begin : actions.children("BeginStoryboard")) {
    for (const pugi::xml_node& node : begin.child("Storyboard").children("DoubleAnimation")) {
      DoubleAnimation animation;
      const std::string_view propertyName = node.attribute("Storyboard.TargetProperty").value();
      animation.property = FindProperty(target, propertyName).property;
      if (!animation.property || animation.property->defaultValue.Kind() != ValueKind::Float) {
        Report(node, "'" + std::string(propertyName) + "' is no number of " + target.Name());
        continue;
      }
      bool hasFrom = false, hasTo = false;
      animation.from = ParseValue(node.attribute("From").value(), *animation.property, node, hasFrom).As<float>();
      animation.to = ParseValue(node.attribute("To").value(), *animation.property, node, hasTo).As<float>();
      if (!hasFrom || !hasTo) continue;
      animation.isReversing = node.attribute("AutoReverse").as_bool();
      if (std::string_view(node.attribute("RepeatBehavior").value()) == "Forever")
        animation.repeatCount = std::numeric_limits<double>::infinity();
      if (!ReadDuration(node.attribute("Duration").value(), animation.duration)) {
        Report(node, "'" + std::string(node.attribute("Duration").value()) + "' is no duration");
        continue;
      }
      trigger.animations.push_back(animation);
    }
  }
}

Ptr<FrameworkTemplate> DocumentCompiler::CompileTemplate(const pugi::xml_node& node, Ptr<FrameworkTemplate> result) {
  if (node.attribute("TargetType")) result->targetType = TypeAttribute(node, "TargetType");
  result->componentType = componentType;
  const pugi::xml_node root = node.find_child([](const pugi::xml_node& n) { return n.type() == pugi::node_element; });
  if (root) result->SetPlan(CompileElement(root));
  return result;
}

} // namespace Toolkit
