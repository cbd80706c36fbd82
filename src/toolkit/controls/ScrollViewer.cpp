#include "toolkit/controls/ScrollViewer.h"

#include "toolkit/visual/InputEvents.h"

#include <algorithm>

namespace Toolkit {

namespace {
/// Pixels that one notch of the wheel scrolls.
constexpr float WheelStep = 48;
} // namespace

TOOLKIT_TYPE_IMPL(ScrollViewer, ContentControl, "ScrollViewer")
void ScrollViewer::Describe(TypeBuilder<ScrollViewer>& type) {
  const uint32_t measures = DependencyProperty::AffectsMeasure;
  VerticalScrollBarVisibilityProperty =
      type.Property<ScrollBarVisibility>("VerticalScrollBarVisibility", ScrollBarVisibility::Auto, measures);
  HorizontalScrollBarVisibilityProperty =
      type.Property<ScrollBarVisibility>("HorizontalScrollBarVisibility", ScrollBarVisibility::Disabled, measures);
}

void ScrollViewer::ScrollTo(Point offset) {
  offset.x = std::clamp(offset.x, 0.0f, std::max(0.0f, extent.width - viewport.width));
  offset.y = std::clamp(offset.y, 0.0f, std::max(0.0f, extent.height - viewport.height));
  if (offset == scroll) return;
  scroll = offset;
  InvalidateArrange();
}

Size ScrollViewer::MeasureOverride(Size available) {
  const Thickness chrome = Chrome();
  UIElement* content = ContentElement();
  if (!content) return {chrome.Horizontal(), chrome.Vertical()};
  const Size inner{std::max(0.0f, available.width - chrome.Horizontal()),
                   std::max(0.0f, available.height - chrome.Vertical())};
  content->Measure({CanScroll(HorizontalScrollBarVisibilityProperty) ? Infinity : inner.width,
                    CanScroll(VerticalScrollBarVisibilityProperty) ? Infinity : inner.height});
  extent = content->DesiredSize();
  return {std::min(extent.width, inner.width) + chrome.Horizontal(),
          std::min(extent.height, inner.height) + chrome.Vertical()};
}

Size ScrollViewer::ArrangeOverride(Size finalSize) {
  const Thickness chrome = Chrome();
  viewport = {std::max(0.0f, finalSize.width - chrome.Horizontal()),
              std::max(0.0f, finalSize.height - chrome.Vertical())};
  scroll.x = std::clamp(scroll.x, 0.0f, std::max(0.0f, extent.width - viewport.width));
  scroll.y = std::clamp(scroll.y, 0.0f, std::max(0.0f, extent.height - viewport.height));
  if (UIElement* content = ContentElement())
    content->Arrange({chrome.left - scroll.x, chrome.top - scroll.y, std::max(extent.width, viewport.width),
                      std::max(extent.height, viewport.height)});
  return finalSize;
}

void ScrollViewer::OnRoutedEvent(const RoutedEventArgs& args) {
  ContentControl::OnRoutedEvent(args);
  if (args.event != &MouseWheelEvent) return;
  const Point before = scroll;
  ScrollTo({scroll.x, scroll.y - static_cast<const MouseWheelEventArgs&>(args).wheelRotation * WheelStep});
  // At the end of its way the wheel goes on to what lies around.
  if (!(before == scroll)) args.handled = true;
}

} // namespace Toolkit
