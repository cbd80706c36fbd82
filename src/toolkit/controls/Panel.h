#pragma once

#include "toolkit/visual/FrameworkElement.h"

#include <memory>
#include <vector>

namespace Toolkit {

class Brush;

/// An element that lays out any number of children. Owns them.
class Panel : public FrameworkElement {
  TOOLKIT_TYPE(Panel)
public:
  static inline const DependencyProperty* BackgroundProperty = nullptr;
  /// Attached: higher values are drawn and hit later, that is, on top. Equal values keep the order of the children.
  static inline const DependencyProperty* ZIndexProperty = nullptr;

  static int32_t GetZIndex(const UIElement* element) { return element->Get<int32_t>(ZIndexProperty); }
  static void SetZIndex(UIElement* element, int32_t value) { element->SetValue(ZIndexProperty, value); }

  size_t ChildCount() const { return children.size(); }
  UIElement* Child(size_t index) const { return children[index].Get(); }
  void AddChild(UIElement* child);
  void InsertChild(size_t index, UIElement* child);
  /// False if it is no child.
  bool RemoveChild(UIElement* child);
  /// Removes many children in one pass; those that are none are passed over.
  void RemoveChildren(const std::vector<Ptr<UIElement>>& removed);
  void ClearChildren();
  bool HasChild(const UIElement* child) const { return child && child->VisualParent() == this; }

  size_t VisualChildCount() const override { return children.size(); }
  UIElement* VisualChild(size_t index) const override { return children[index].Get(); }
  /// The children in drawing order.
  const std::vector<UIElement*>& ZOrderedChildren() const;
  UIElement* HitTest(Point point) override;
  /// A child's `ZIndex` changed.
  void InvalidateZOrder();

protected:
  Panel() = default;
  ~Panel() override;
  void OnRender(Painter& painter) override;
  void RenderChildren(Painter& painter) override;
  bool HitTestSelf(Point point) const override;
  /// The set of children changed; the base invalidates the measure.
  virtual void OnChildrenChanged() { InvalidateMeasure(); }
  virtual void OnChildAdded(UIElement* child) {}
  virtual void OnChildRemoved(UIElement* child) {}
  virtual void OnZOrderChanged() {}

private:
  std::vector<Ptr<UIElement>> children;
  /// Made when it is asked for, and dropped by each change.
  mutable std::unique_ptr<std::vector<UIElement*>> zOrdered;
};

} // namespace Toolkit
