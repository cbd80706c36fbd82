#include "toolkit/controls/Border.h"

#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"

#include <algorithm>

namespace Toolkit {

TOOLKIT_TYPE_IMPL(Border, FrameworkElement, "Border")
void Border::Describe(TypeBuilder<Border>& type) {
  using P = DependencyProperty;
  BackgroundProperty = type.Property<Brush*>("Background", nullptr, P::AffectsRender);
  BorderBrushProperty = type.Property<Brush*>("BorderBrush", nullptr, P::AffectsRender);
  BorderThicknessProperty = type.Property<Thickness>("BorderThickness", Thickness(), P::AffectsMeasure);
  CornerRadiusProperty = type.Property<CornerRadius>("CornerRadius", CornerRadius(), P::AffectsRender);
  PaddingProperty = type.Property<Thickness>("Padding", Thickness(), P::AffectsMeasure);
  type.Member<&Border::GetChild, &Border::SetChild>("Child");
  type.Content("Child");
}

Border::~Border() {
  if (child) ReleaseVisualChild(child.Get());
}

void Border::SetChild(UIElement* newChild) {
  if (child == newChild) return;
  if (child) RemoveVisualChild(child.Get());
  child = Ptr<UIElement>(newChild);
  if (child) AddVisualChild(child.Get());
  InvalidateMeasure();
}

Size Border::MeasureOverride(Size available) {
  const Thickness border = Get<Thickness>(BorderThicknessProperty), padding = Get<Thickness>(PaddingProperty);
  const float width = border.Horizontal() + padding.Horizontal(), height = border.Vertical() + padding.Vertical();
  if (!child) return {width, height};
  child->Measure({std::max(0.0f, available.width - width), std::max(0.0f, available.height - height)});
  return {child->DesiredSize().width + width, child->DesiredSize().height + height};
}

Size Border::ArrangeOverride(Size finalSize) {
  if (child) {
    const Thickness border = Get<Thickness>(BorderThicknessProperty), padding = Get<Thickness>(PaddingProperty);
    child->Arrange({border.left + padding.left, border.top + padding.top,
                    std::max(0.0f, finalSize.width - border.Horizontal() - padding.Horizontal()),
                    std::max(0.0f, finalSize.height - border.Vertical() - padding.Vertical())});
  }
  return finalSize;
}

void Border::OnRender(Painter& painter) {
  painter.DrawRectangle({0, 0, ActualWidth(), ActualHeight()}, Get<CornerRadius>(CornerRadiusProperty),
                        Get<Brush*>(BackgroundProperty), Get<Brush*>(BorderBrushProperty),
                        Get<Thickness>(BorderThicknessProperty));
}

bool Border::HitTestSelf(Point point) const {
  if (!Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point)) return false;
  if (!GetValue(BackgroundProperty).IsNone()) return true;
  if (GetValue(BorderBrushProperty).IsNone()) return false;
  const Thickness b = Get<Thickness>(BorderThicknessProperty);
  return point.x < b.left || point.y < b.top || point.x >= ActualWidth() - b.right ||
         point.y >= ActualHeight() - b.bottom;
}

} // namespace Toolkit
