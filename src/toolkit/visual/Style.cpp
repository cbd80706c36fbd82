#include "toolkit/visual/Style.h"

#include <unordered_map>

namespace Toolkit {

TOOLKIT_TYPE_IMPL(BindingBase, Object, "BindingBase")
void BindingBase::Describe(TypeBuilder<BindingBase>&) {}

TOOLKIT_TYPE_IMPL(Trigger, Object, "TriggerRecord")
void Trigger::Describe(TypeBuilder<Trigger>&) {}

TOOLKIT_TYPE_IMPL(Style, Object, "Style")
void Style::Describe(TypeBuilder<Style>&) {}

void Style::Seal() {
  triggerMask = 0;
  hasAnimations = false;
  for (const Ptr<Trigger>& trigger : triggers) {
    hasAnimations = hasAnimations || !trigger->animations.empty();
    for (const TriggerCondition& condition : trigger->conditions)
      if (condition.property) triggerMask |= condition.property->MaskBit();
  }
}

TOOLKIT_TYPE_IMPL(ConditionProbe, DependencyObject, "ConditionProbe")
void ConditionProbe::Describe(TypeBuilder<ConditionProbe>& type) { ValueProperty = type.Property<Value>("Value"); }

void ConditionProbe::OnPropertyChanged(const PropertyChange& change) {
  DependencyObject::OnPropertyChanged(change);
  if (&change.property == ValueProperty && owner) owner->UpdateTriggers();
}

bool ConditionProbe::Holds() const {
  const Value& value = GetValue(ValueProperty);
  if (value == condition->value) return true;
  if (condition->value.Kind() != ValueKind::String) return condition->value.IsNone() && value.IsNone();
  // A document writes the value as text, since the type of a binding's result is not known there.
  const std::string_view text = condition->value.AsStringView();
  if (value.Kind() == ValueKind::Bool) return text == (value.AsBool() ? "True" : "False");
  if (value.Kind() == ValueKind::Int) return text == std::to_string(value.AsInt());
  return false;
}

namespace {
Theme::Lookup themeLookup = nullptr;
std::unordered_map<const Type*, Style*>& ThemeStyles() {
  static auto* styles = new std::unordered_map<const Type*, Style*>();
  return *styles;
}
} // namespace

void Theme::SetLookup(Lookup lookup) {
  themeLookup = lookup;
  ThemeStyles().clear();
}

Style* Theme::StyleFor(const Type& type) {
  if (!themeLookup) return nullptr;
  auto [entry, isNew] = ThemeStyles().emplace(&type, nullptr);
  if (isNew) {
    Style* found = nullptr;
    for (const Type* t = &type; t && !found; t = t->Base()) found = themeLookup(*t);
    ThemeStyles()[&type] = found;
    return found;
  }
  return entry->second;
}

} // namespace Toolkit
