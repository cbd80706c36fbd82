#pragma once

#include "toolkit/controls/Panel.h"

namespace Toolkit {

class CanvasScene;

/// Places children at coordinates. Each child is a layout root of its own: its size never changes the canvas, and a
/// change inside one child lays out that child only.
class Canvas : public Panel {
  TOOLKIT_TYPE(Canvas)
public:
  static inline const DependencyProperty* LeftProperty = nullptr;
  static inline const DependencyProperty* TopProperty = nullptr;
  static inline const DependencyProperty* RightProperty = nullptr;
  static inline const DependencyProperty* BottomProperty = nullptr;

  Canvas();
  ~Canvas() override;
  /// For a canvas of many children: it keeps where they are and how they look, so that only what is in view and what
  /// has changed costs anything. Call it before children are added.
  void KeepDrawings();
  /// Not a number while it was never set.
  static float GetLeft(const UIElement* element) { return element->Get<float>(LeftProperty); }
  static void SetLeft(UIElement* element, float value) { element->SetValue(LeftProperty, value); }
  static float GetTop(const UIElement* element) { return element->Get<float>(TopProperty); }
  static void SetTop(UIElement* element, float value) { element->SetValue(TopProperty, value); }
  /// Both at once, which arranges the element once.
  static void SetPlace(UIElement& element, Point place);

protected:
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  void OnChildrenChanged() override;
  void OnChildAdded(UIElement* child) override;
  void OnChildDesiredSizeChanged(UIElement* child) override;
  void ArrangeDirtyChild(UIElement& child) override;
  void OnChildRemoved(UIElement* child) override;
  void OnChildDrawingChanged(UIElement& child) override;
  void OnZOrderChanged() override;
  void RenderChildren(Painter& painter) override;

public:
  UIElement* HitTest(Point point) override;
  /// Around all children, since they may lie anywhere.
  Rect DrawnBounds() const override;

private:
  friend void PlaceOnCanvas(DependencyObject& object, const PropertyChange& change);
  void ArrangeChild(UIElement& child);
  Size size;
  std::unique_ptr<CanvasScene> scene;
};

} // namespace Toolkit
