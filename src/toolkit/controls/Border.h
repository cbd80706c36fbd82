#pragma once

#include "toolkit/visual/FrameworkElement.h"

namespace Toolkit {

class Brush;

/// A frame and a background around one child.
class Border : public FrameworkElement {
  TOOLKIT_TYPE(Border)
public:
  static inline const DependencyProperty* BackgroundProperty = nullptr;
  static inline const DependencyProperty* BorderBrushProperty = nullptr;
  static inline const DependencyProperty* BorderThicknessProperty = nullptr;
  static inline const DependencyProperty* CornerRadiusProperty = nullptr;
  static inline const DependencyProperty* PaddingProperty = nullptr;

  Border() = default;
  ~Border() override;
  UIElement* GetChild() const { return child.Get(); }
  /// Replaces the child; null removes it.
  void SetChild(UIElement* newChild);

  size_t VisualChildCount() const override { return child ? 1 : 0; }
  UIElement* VisualChild(size_t) const override { return child.Get(); }

protected:
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  void OnRender(Painter& painter) override;
  bool HitTestSelf(Point point) const override;

private:
  Ptr<UIElement> child;
};

} // namespace Toolkit
