#pragma once

#include "toolkit/base/DependencyObject.h"
#include "toolkit/visual/Animation.h"
#include "toolkit/visual/FrameworkElement.h"

#include <memory>
#include <vector>

namespace Toolkit {

/// Makes expressions for the places where a document binds a property. Shared by all instances of the document.
class BindingBase : public Object {
  TOOLKIT_TYPE(BindingBase)
public:
  /// `scope` is where element names are looked up; it outlives the expression.
  virtual std::unique_ptr<ValueExpression> CreateExpression(const DependencyProperty* property,
                                                            const NameScope* scope) const = 0;
};

/// One test of a trigger: a property of the element, or a binding, equals a value.
struct TriggerCondition {
  const DependencyProperty* property = nullptr;
  Ptr<BindingBase> binding;
  Value value;
};

/// Values that hold, and animations that run, while all conditions hold.
class Trigger : public Object {
  TOOLKIT_TYPE(Trigger)
public:
  std::vector<TriggerCondition> conditions;
  PropertySet setters;
  std::vector<DoubleAnimation> animations;
};

/// Property values and triggers for elements of one class. Immutable once loaded.
class Style : public Object {
  TOOLKIT_TYPE(Style)
public:
  const Type* targetType = nullptr;
  /// Setters of this style and of all it is based on.
  PropertySet setters;
  /// Those of the base style come first, so that this style's win.
  std::vector<Ptr<Trigger>> triggers;
  bool HasTriggerOn(const DependencyProperty& property) const { return triggerMask & property.MaskBit(); }
  bool HasAnimations() const { return hasAnimations; }
  /// Called when loading is done.
  void Seal();

private:
  uint64_t triggerMask = 0;
  bool hasAnimations = false;
};

/// Where the theme's styles are found by class. Set once by the application.
class Theme {
public:
  using Lookup = Style* (*)(const Type& type);
  static void SetLookup(Lookup lookup);
  static Style* StyleFor(const Type& type);
};

/// Watches one bound condition of a trigger for one element.
class ConditionProbe : public DependencyObject {
  TOOLKIT_TYPE(ConditionProbe)
public:
  static inline const DependencyProperty* ValueProperty = nullptr;
  ConditionProbe() = default;
  explicit ConditionProbe(FrameworkElement& owner) : owner(&owner) {}
  DependencyObject* InheritanceParent() const override { return owner; }
  const TriggerCondition* condition = nullptr;
  bool Holds() const;
  void ReleaseOwner() { owner = nullptr; }

protected:
  void OnPropertyChanged(const PropertyChange& change) override;

private:
  FrameworkElement* owner = nullptr;
};

} // namespace Toolkit
