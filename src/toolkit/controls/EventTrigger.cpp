#include "toolkit/controls/EventTrigger.h"

#include "toolkit/base/Diagnostics.h"
#include "toolkit/markup/ValueConversion.h"

namespace Toolkit {

TOOLKIT_TYPE_IMPL(TriggerAction, DependencyObject, "TriggerAction")
void TriggerAction::Describe(TypeBuilder<TriggerAction>&) {}

TOOLKIT_TYPE_IMPL(ChangePropertyAction, TriggerAction, "ChangePropertyAction")
void ChangePropertyAction::Describe(TypeBuilder<ChangePropertyAction>& type) {
  TargetNameProperty = type.Property<SharedString>("TargetName");
  PropertyNameProperty = type.Property<SharedString>("PropertyName");
  ValueProperty = type.Property<Value>("Value");
}

void ChangePropertyAction::Invoke(FrameworkElement& element) {
  const std::string_view name = GetString(TargetNameProperty);
  FrameworkElement* target = name.empty() ? &element : element.FindName(name);
  const DependencyProperty* property =
      target ? target->GetType().FindProperty(Symbol(GetString(PropertyNameProperty))) : nullptr;
  Value value = GetValue(ValueProperty);
  if (property && value.Kind() == ValueKind::String && property->kind != ValueKind::String) {
    Value parsed;
    value = ValueConversion::FromText(value.AsStringView(), *property, parsed) ? parsed : Value();
  }
  if (!property) {
    TOOLKIT_WARN("Markup", "a property change names no property");
    return;
  }
  target->SetValue(property, value.IsNone() && property->kind == ValueKind::String ? Value(SharedString()) : value);
}

TOOLKIT_TYPE_IMPL(EventTrigger, Behavior, "EventTrigger")
void EventTrigger::Describe(TypeBuilder<EventTrigger>& type) {
  EventNameProperty = type.Property<SharedString>("EventName");
  type.List<&EventTrigger::AddAction>("Actions");
  type.Content("Actions");
}

void EventTrigger::OnAttached() {
  const RoutedEvent* event = AssociatedElement()->GetType().FindEvent(Symbol(GetString(EventNameProperty)));
  if (event)
    AssociatedElement()->AddHandler(*event, RoutedEventHandler::From<&EventTrigger::OnEvent>(this));
  else
    TOOLKIT_WARN("Markup", "an event trigger names no event of its element");
}

void EventTrigger::OnDetaching() {
  if (const RoutedEvent* event = AssociatedElement()->GetType().FindEvent(Symbol(GetString(EventNameProperty))))
    AssociatedElement()->RemoveHandler(*event, RoutedEventHandler::From<&EventTrigger::OnEvent>(this));
}

void EventTrigger::OnEvent(Object*, const RoutedEventArgs&) {
  for (const Ptr<TriggerAction>& action : actions) action->Invoke(*AssociatedElement());
}

} // namespace Toolkit
