#pragma once

#include "toolkit/visual/Behavior.h"

#include <vector>

namespace Toolkit {

/// Something that an event trigger does.
class TriggerAction : public DependencyObject {
  TOOLKIT_TYPE(TriggerAction)
public:
  virtual void Invoke(FrameworkElement& element) = 0;

protected:
  TriggerAction() = default;
};

/// Sets a property of a named element.
class ChangePropertyAction : public TriggerAction {
  TOOLKIT_TYPE(ChangePropertyAction)
public:
  static inline const DependencyProperty* TargetNameProperty = nullptr;
  static inline const DependencyProperty* PropertyNameProperty = nullptr;
  static inline const DependencyProperty* ValueProperty = nullptr;
  ChangePropertyAction() = default;
  void Invoke(FrameworkElement& element) override;
};

/// Runs its actions each time an event of the element is raised.
class EventTrigger : public Behavior {
  TOOLKIT_TYPE(EventTrigger)
public:
  static inline const DependencyProperty* EventNameProperty = nullptr;
  EventTrigger() = default;
  void AddAction(TriggerAction* action) { actions.emplace_back(action); }

protected:
  void OnAttached() override;
  void OnDetaching() override;

private:
  void OnEvent(Object* sender, const RoutedEventArgs& args);
  std::vector<Ptr<TriggerAction>> actions;
};

} // namespace Toolkit
