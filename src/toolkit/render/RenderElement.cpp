#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"
#include "toolkit/visual/Transform.h"
#include "toolkit/visual/UIElement.h"

#include <numbers>

namespace Toolkit {

namespace {

/// The shadow falls to the lower right, at an angle of 45 degrees.
void DrawEffect(Painter& painter, const DropShadowEffect& effect, Size size) {
  const float shift = effect.Get<float>(DropShadowEffect::ShadowDepthProperty) / std::numbers::sqrt2_v<float>;
  Color color = effect.Get<Color>(DropShadowEffect::ColorProperty);
  color.a *= effect.Get<float>(DropShadowEffect::OpacityProperty);
  painter.DrawShadow({shift, shift, size.width, size.height}, 0,
                     effect.Get<float>(DropShadowEffect::BlurRadiusProperty), color);
}

} // namespace

void UIElement::Render(Painter& painter) {
  if (GetVisibility() != Visibility::Visible) return;
  painter.PushTransform(TransformToParent());
  // What has no size of its own may still draw beyond it.
  const bool hasArea = renderSize.width > 0 && renderSize.height > 0;
  if (!hasArea || !painter.IsTooSmall(renderSize)) RenderContent(painter);
  painter.Pop();
}

void UIElement::RenderContent(Painter& painter) {
  if (GetVisibility() != Visibility::Visible) return;
  drawingStale = false;
  const float opacity = Get<float>(OpacityProperty);
  if (!(opacity > 0)) return;
  if (opacity < 1) painter.PushOpacity(opacity);
  if (const auto* shadow = DynamicCast<DropShadowEffect>(GetValue(EffectProperty).AsObject()))
    DrawEffect(painter, *shadow, renderSize);
  const bool clips = Get<bool>(ClipToBoundsProperty);
  if (clips) painter.PushClip({0, 0, renderSize.width, renderSize.height});
  OnRender(painter);
  RenderChildren(painter);
  if (clips) painter.Pop();
  if (opacity < 1) painter.Pop();
}

void UIElement::RenderChildren(Painter& painter) {
  for (size_t i = 0, n = VisualChildCount(); i < n; ++i)
    if (UIElement* child = VisualChild(i)) child->Render(painter);
}

} // namespace Toolkit
