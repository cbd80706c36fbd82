#include "toolkit/markup/BindingExpression.h"

#include "toolkit/base/DataContext.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/markup/ValueConversion.h"
#include "toolkit/visual/Behavior.h"
#include "toolkit/visual/NameScope.h"

namespace Toolkit {

BindingExpression::~BindingExpression() {
  if (pendingUpdate) Dispatcher::Current().Cancel(pendingUpdate);
  if (auto* element = DynamicCast<UIElement>(target); element && active && Mode() == BindingMode::TwoWay)
    element->RemoveHandler(UIElement::LostFocusEvent,
                           RoutedEventHandler::From<&BindingExpression::OnTargetLostFocus>(this));
}

BindingMode BindingExpression::Mode() const {
  if (binding.mode != BindingMode::Default) return binding.mode;
  return property->flags & DependencyProperty::BindsTwoWay ? BindingMode::TwoWay : BindingMode::OneWay;
}

bool BindingExpression::WaitsForFocus() const {
  if (binding.updateSourceTrigger != UpdateSourceTrigger::Default)
    return binding.updateSourceTrigger == UpdateSourceTrigger::LostFocus;
  return property->flags & DependencyProperty::BindsUntilFocusIsLost;
}

bool BindingExpression::ReadsDataContext() const {
  return !binding.source && binding.elementName.IsEmpty() && binding.relativeSource == RelativeSourceMode::None;
}

Object* BindingExpression::FindSource() const {
  if (binding.source) return binding.source.Get();
  if (!binding.elementName.IsEmpty()) return scope ? scope->Find(binding.elementName) : nullptr;
  // Behaviours and conditions look from where they are attached.
  DependencyObject* origin = target;
  if (!DynamicCast<UIElement>(origin)) origin = target->InheritanceParent();
  switch (binding.relativeSource) {
  case RelativeSourceMode::Self: return origin;
  case RelativeSourceMode::TemplatedParent: {
    auto* element = DynamicCast<FrameworkElement>(origin);
    return element ? element->TemplatedParent() : nullptr;
  }
  case RelativeSourceMode::FindAncestor:
    for (DependencyObject* o = origin ? origin->InheritanceParent() : nullptr; o; o = o->InheritanceParent())
      if (o->GetType().IsA(*binding.ancestorType)) return o;
    return nullptr;
  case RelativeSourceMode::None: break;
  }
  // The context of an element whose context is itself bound is that of its parent.
  const DependencyObject* from = target;
  if (property == DataContext::Property()) from = target->InheritanceParent();
  return from ? from->GetValue(DataContext::Property()).AsObject() : nullptr;
}

void BindingExpression::StepObserver::OnObservedChange(Observable&, Symbol name) {
  if (name == owner.binding.Path()[index].name) owner.Refresh(index);
}

BindingExpression::StepObserver* BindingExpression::FindObserver(size_t index) const {
  for (StepObserver* observer = observers.get(); observer; observer = observer->nextStep.get())
    if (observer->index == index) return observer;
  return nullptr;
}

void BindingExpression::Watch(size_t index, Observable* source) {
  StepObserver* observer = FindObserver(index);
  if (!observer) {
    if (!source) return;
    auto made = std::make_unique<StepObserver>(*this, index);
    observer = made.get();
    made->nextStep = std::move(observers);
    observers = std::move(made);
  }
  observer->Observe(source, binding.Path()[index].name);
}

bool BindingExpression::ReadStep(Object& owner, const Binding::Step& step, Value& result) const {
  step.Resolve(owner.GetType());
  if (step.knownProperty) {
    result = static_cast<DependencyObject&>(owner).GetValue(step.knownProperty);
    return true;
  }
  if (step.knownMember) {
    result = step.knownMember->get(owner);
    return true;
  }
  return false;
}

void BindingExpression::Refresh(size_t first) {
  if (updating) return;
  const auto& path = binding.Path();
  Object* at = first == 0 ? FindSource() : nullptr;
  if (first > 0) at = FindObserver(first)->ObservedObject();
  Value value(at);
  bool broken = at == nullptr;
  const bool watch = Mode() != BindingMode::OneTime && Mode() != BindingMode::OneWayToSource;
  for (size_t i = first; i < path.size(); ++i) {
    Object* owner = broken ? nullptr : value.AsObject();
    if (!owner) {
      broken = true;
      Watch(i, nullptr);
      continue;
    }
    path[i].Resolve(owner->GetType());
    // A read-only member of an element never reports a change, so it is not watched.
    const bool changes = path[i].knownProperty ||
                         (path[i].knownMember && (path[i].knownMember->set || !DynamicCast<DependencyObject>(owner)));
    Watch(i, watch && changes ? DynamicCast<Observable>(owner) : nullptr);
    Value next;
    if (!ReadStep(*owner, path[i], next)) {
      TOOLKIT_WARN("Binding", "'" + path[i].name.Text() + "' is no property of " + owner->GetType().Name() +
                                  " (bound to " + property->name.Text() + ")");
      broken = true;
      continue;
    }
    value = std::move(next);
  }
  if (broken) {
    if (!binding.fallbackValue.IsNone())
      SetTarget(binding.fallbackValue);
    else if (target->HasOwnValue(property))
      target->ClearValue(property);
    return;
  }
  if (Mode() != BindingMode::OneWayToSource) SetTarget(value);
}

void BindingExpression::SetTarget(const Value& source) {
  Value value;
  if (binding.converter) {
    if (!binding.converter->Convert(source, binding.converterParameter, value)) return;
  } else if (!binding.stringFormat.empty() &&
             (property->kind == ValueKind::String || property->kind == ValueKind::Any)) {
    value = Value(ValueConversion::Format(binding.stringFormat, source));
  } else {
    value = source;
  }
  Value converted;
  if (!ValueConversion::Convert(value, *property, converted)) {
    if (!value.IsNone()) TOOLKIT_WARN("Binding", "a value cannot be converted for " + property->name.Text());
    return;
  }
  const bool outer = updating;
  updating = true;
  target->SetFromExpression(property, std::move(converted));
  updating = outer;
}

void BindingExpression::Activate() {
  if (active) return;
  active = true;
  const BindingMode mode = Mode();
  if (mode == BindingMode::TwoWay) {
    if (WaitsForFocus())
      if (auto* element = DynamicCast<UIElement>(target))
        element->AddHandler(UIElement::LostFocusEvent,
                            RoutedEventHandler::From<&BindingExpression::OnTargetLostFocus>(this));
  }
  Refresh(0);
  if (mode == BindingMode::OneWayToSource) UpdateSource();
}

void BindingExpression::OnDataContextChanged() {
  if (active && ReadsDataContext()) Refresh(0);
}

bool BindingExpression::OnTargetSet() {
  const BindingMode mode = Mode();
  if (mode != BindingMode::TwoWay && mode != BindingMode::OneWayToSource) return false;
  if (updating || !active) return true;
  dirty = true;
  if (binding.updateSourceTrigger == UpdateSourceTrigger::Explicit || WaitsForFocus()) return true;
  if (binding.delay > 0) {
    if (pendingUpdate) Dispatcher::Current().Cancel(pendingUpdate);
    pendingUpdate = Dispatcher::Current().StartTimer(binding.delay, [this] {
      pendingUpdate = 0;
      UpdateSource();
    });
    return true;
  }
  UpdateSource();
  return true;
}

void BindingExpression::OnTargetLostFocus(Object*, const RoutedEventArgs&) {
  if (dirty) UpdateSource();
}

Object* BindingExpression::LastOwner() const {
  const auto& path = binding.Path();
  Value at(FindSource());
  for (size_t i = 0; i + 1 < path.size(); ++i) {
    Object* owner = at.AsObject();
    Value next;
    if (!owner || !ReadStep(*owner, path[i], next)) return nullptr;
    at = std::move(next);
  }
  return at.AsObject();
}

void BindingExpression::UpdateSource() {
  const auto& path = binding.Path();
  dirty = false;
  if (path.empty()) return;
  Ptr<Object> owner(LastOwner());
  if (!owner) return;
  const Binding::Step& step = path.back();
  step.Resolve(owner->GetType());
  Value value = target->GetValue(property);
  if (binding.converter) {
    Value back;
    if (!binding.converter->ConvertBack(value, binding.converterParameter, back)) return;
    value = std::move(back);
  }
  Value converted;
  updating = true;
  if (step.knownProperty) {
    if (ValueConversion::Convert(value, *step.knownProperty, converted))
      static_cast<DependencyObject&>(*owner).SetValue(step.knownProperty, std::move(converted));
  } else if (step.knownMember && step.knownMember->set) {
    if (ValueConversion::Convert(value, step.knownMember->kind, converted)) step.knownMember->set(*owner, converted);
  }
  updating = false;
  // The source may have taken another value than it was given.
  Value now;
  if (ReadStep(*owner, step, now) && Mode() == BindingMode::TwoWay) SetTarget(now);
}

} // namespace Toolkit
