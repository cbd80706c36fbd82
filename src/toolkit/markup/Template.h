#pragma once

#include "toolkit/markup/ElementPlan.h"

namespace Toolkit {

/// A tree of elements that is made again and again.
class FrameworkTemplate : public Object {
  TOOLKIT_TYPE(FrameworkTemplate)
public:
  /// A new tree; null if the template is empty. `templatedParent` is the control that the tree belongs to, if any.
  /// `join` makes the tree's root a child of where it is to stand, while the root is still empty.
  Ptr<FrameworkElement> Instantiate(FrameworkElement* templatedParent, const Instantiation::Join& join) const;
  void SetPlan(std::unique_ptr<ElementPlan> newPlan) { plan = std::move(newPlan); }
  /// For a control template: the class of control that it is for.
  const Type* targetType = nullptr;
  /// The class whose document the template stands in, or null. The nearest object of that class above the templated
  /// element gets the events of the tree.
  const Type* componentType = nullptr;

private:
  std::unique_ptr<ElementPlan> plan;
};

/// The visual tree of a control.
class ControlTemplate : public FrameworkTemplate {
  TOOLKIT_TYPE(ControlTemplate)
};

/// How an item or content object is shown; its tree's data context is that object.
class DataTemplate : public FrameworkTemplate {
  TOOLKIT_TYPE(DataTemplate)
};

/// The panel of an items control.
class ItemsPanelTemplate : public FrameworkTemplate {
  TOOLKIT_TYPE(ItemsPanelTemplate)
};

} // namespace Toolkit
