#pragma once

#include "toolkit/visual/FrameworkElement.h"

namespace Toolkit {

class Brush;
class ControlTemplate;

/// An element with colours, a border, padding and, if it has one, a template that makes its visual tree.
class Control : public FrameworkElement {
  TOOLKIT_TYPE(Control)
public:
  static inline const DependencyProperty* BackgroundProperty = nullptr;
  static inline const DependencyProperty* BorderBrushProperty = nullptr;
  static inline const DependencyProperty* BorderThicknessProperty = nullptr;
  static inline const DependencyProperty* CornerRadiusProperty = nullptr;
  static inline const DependencyProperty* PaddingProperty = nullptr;
  static inline const DependencyProperty* HorizontalContentAlignmentProperty = nullptr;
  static inline const DependencyProperty* VerticalContentAlignmentProperty = nullptr;
  static inline const DependencyProperty* TemplateProperty = nullptr;
  static inline const DependencyProperty* IsTabStopProperty = nullptr;
  static inline const DependencyProperty* TabIndexProperty = nullptr;
  /// Paints the ring around what has a visible focus.
  static inline const DependencyProperty* FocusBrushProperty = nullptr;

  Control() = default;
  ~Control() override;
  /// The root of the template's tree, or null.
  UIElement* TemplateRoot() const { return templateRoot.Get(); }
  /// The element of that name in the template, or null.
  Object* GetTemplateChild(std::string_view name) const;
  /// Makes the template's tree if it is due.
  void ApplyTemplate();

  int32_t TabOrder() const override { return Get<bool>(IsTabStopProperty) ? Get<int32_t>(TabIndexProperty) : -1; }
  size_t VisualChildCount() const override { return templateRoot ? 1 : 0; }
  UIElement* VisualChild(size_t) const override { return templateRoot.Get(); }

protected:
  void PrepareForMeasure() override { ApplyTemplate(); }
  void OnPropertyChanged(const PropertyChange& change) override;
  /// The template's tree was made.
  virtual void OnApplyTemplate() {}
  /// Background, border and focus ring, unless a template draws them.
  void OnRender(Painter& painter) override;
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  bool HitTestSelf(Point point) const override;
  void DrawChrome(Painter& painter, const Rect& box) const;
  /// The ring inside of the box's edges, while the focus is visible.
  void DrawFocus(Painter& painter, const Rect& box, const CornerRadius& radii) const;
  /// Border and padding together.
  Thickness Chrome() const;

private:
  Ptr<UIElement> templateRoot;
  bool templateDue = true;
};

} // namespace Toolkit
