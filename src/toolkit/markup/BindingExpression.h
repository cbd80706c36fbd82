#pragma once

#include "toolkit/base/Dispatcher.h"
#include "toolkit/markup/Binding.h"

#include <memory>

namespace Toolkit {

/// One binding at work: watches the objects along its path and carries values between source and target.
class BindingExpression : public ValueExpression {
public:
  BindingExpression(const Binding& binding, const NameScope* scope) : binding(binding), scope(scope) {}
  ~BindingExpression() override;

  bool OnTargetSet() override;
  void OnDataContextChanged() override;
  void Activate() override;
  /// Carries the target's value to the source now.
  void UpdateSource();

private:
  /// Watches the object of one step of the path.
  struct StepObserver : PropertyObserver {
    StepObserver(BindingExpression& owner, size_t index) : owner(owner), index(index) {}
    BindingExpression& owner;
    size_t index;
    std::unique_ptr<StepObserver> nextStep;
    void OnObservedChange(Observable& source, Symbol name) override;
  };
  BindingMode Mode() const;
  /// A change of the target goes to the source when the target loses the focus.
  bool WaitsForFocus() const;
  Object* FindSource() const;
  bool ReadsDataContext() const;
  /// Follows the path from step `first` on, re-attaching observers, and brings the value to the target.
  void Refresh(size_t first);
  /// The object that carries the last step, or null if the path is broken before it.
  Object* LastOwner() const;
  bool ReadStep(Object& owner, const Binding::Step& step, Value& result) const;
  void SetTarget(const Value& value);
  void OnTargetLostFocus(Object* sender, const RoutedEventArgs& args);

  const Binding& binding;
  const NameScope* scope;
  /// The observer of a step, or null if that step is not watched.
  StepObserver* FindObserver(size_t index) const;
  void Watch(size_t index, Observable* source);

  /// Only of steps that can change: mostly one.
  std::unique_ptr<StepObserver> observers;
  Dispatcher::TimerId pendingUpdate = 0;
  bool active = false;
  bool updating = false;
  bool dirty = false;
};

} // namespace Toolkit
