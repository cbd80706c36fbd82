#include "toolkit/controls/ScrollViewer.h"

#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"
#include "toolkit/visual/Input.h"

#include <algorithm>

namespace Toolkit {

namespace {

/// Pixels that one notch of the wheel and one press of an arrow key scroll.
constexpr float WheelStep = 48, LineStep = 24;

bool CanScroll(ScrollBarVisibility bar) { return bar != ScrollBarVisibility::Disabled; }

/// True if content of this length takes a bar.
bool TakesBar(ScrollBarVisibility bar, float length, float room) {
  return bar == ScrollBarVisibility::Visible || (bar == ScrollBarVisibility::Auto && length > room + 0.5f);
}

} // namespace

TOOLKIT_TYPE_IMPL(ScrollViewer, ContentControl, "ScrollViewer")
void ScrollViewer::Describe(TypeBuilder<ScrollViewer>& type) {
  using P = DependencyProperty;
  VerticalScrollBarVisibilityProperty =
      type.Property<ScrollBarVisibility>("VerticalScrollBarVisibility", ScrollBarVisibility::Auto, P::AffectsMeasure);
  HorizontalScrollBarVisibilityProperty = type.Property<ScrollBarVisibility>(
      "HorizontalScrollBarVisibility", ScrollBarVisibility::Disabled, P::AffectsMeasure);
  ScrollBarBrushProperty = type.Property<Brush*>("ScrollBarBrush", nullptr, P::AffectsRender);
}

void ScrollViewer::ScrollTo(Point offset) {
  const bool movedDown = vertical.ScrollTo(offset.y), movedAcross = horizontal.ScrollTo(offset.x);
  if (!movedDown && !movedAcross) return;
  InvalidateArrange();
  InvalidateVisual();
}

Size ScrollViewer::MeasureOverride(Size available) {
  const Thickness chrome = Chrome();
  UIElement* content = ContentElement();
  extent = {};
  if (!content) return {chrome.Horizontal(), chrome.Vertical()};
  const Size inner{std::max(0.0f, available.width - chrome.Horizontal()),
                   std::max(0.0f, available.height - chrome.Vertical())};
  // A bar makes the content narrower, and with it perhaps longer, which may call for the other bar. The bars of the
  // last time are a good guess, mostly right at once; after the first try bars only come, so that it settles.
  for (bool isGuess = true;; isGuess = false) {
    const Size room{std::max(0.0f, inner.width - (leavesRight ? ScrollThumb::Width : 0)),
                    std::max(0.0f, inner.height - (leavesBottom ? ScrollThumb::Width : 0))};
    content->Measure({CanScroll(Horizontal()) ? Infinity : room.width, CanScroll(Vertical()) ? Infinity : room.height});
    extent = content->DesiredSize();
    const bool takesRight = TakesBar(Vertical(), extent.height, room.height) || (!isGuess && leavesRight);
    const bool takesBottom = TakesBar(Horizontal(), extent.width, room.width) || (!isGuess && leavesBottom);
    if (takesRight == leavesRight && takesBottom == leavesBottom) break;
    leavesRight = takesRight;
    leavesBottom = takesBottom;
  }
  return {std::min(extent.width + (leavesRight ? ScrollThumb::Width : 0), inner.width) + chrome.Horizontal(),
          std::min(extent.height + (leavesBottom ? ScrollThumb::Width : 0), inner.height) + chrome.Vertical()};
}

Size ScrollViewer::ArrangeOverride(Size finalSize) {
  const Thickness chrome = Chrome();
  const Size inner{std::max(0.0f, finalSize.width - chrome.Horizontal()),
                   std::max(0.0f, finalSize.height - chrome.Vertical())};
  viewport = {chrome.left, chrome.top, std::max(0.0f, inner.width - (leavesRight ? ScrollThumb::Width : 0)),
              std::max(0.0f, inner.height - (leavesBottom ? ScrollThumb::Width : 0))};
  // A bar that no room was left for, since there was more of it to measure for, lies on the content.
  vertical.viewport = {viewport.x, viewport.y, inner.width, viewport.height};
  horizontal.viewport = {viewport.x, viewport.y, viewport.width, inner.height};
  vertical.extent = CanScroll(Vertical()) ? extent.height : 0;
  horizontal.extent = CanScroll(Horizontal()) ? extent.width : 0;
  vertical.ScrollTo(vertical.offset);
  horizontal.ScrollTo(horizontal.offset);
  if (UIElement* content = ContentElement())
    content->Arrange({viewport.x - horizontal.offset, viewport.y - vertical.offset,
                      std::max(extent.width, viewport.width), std::max(extent.height, viewport.height)});
  return finalSize;
}

Rect ScrollViewer::Reveal(const Rect& area) {
  const Point before = ScrollOffset();
  const bool movedDown = vertical.Show(area.y - viewport.y + before.y, area.height);
  const bool movedAcross = horizontal.Show(area.x - viewport.x + before.x, area.width);
  if (!movedDown && !movedAcross) return area;
  InvalidateArrange();
  InvalidateVisual();
  const Point moved = ScrollOffset() - before;
  return {area.x - moved.x, area.y - moved.y, area.width, area.height};
}

void ScrollViewer::RenderChildren(Painter& painter) {
  painter.PushClip(viewport);
  ContentControl::RenderChildren(painter);
  painter.Pop();
  const auto* brush = Get<Brush*>(ScrollBarBrushProperty);
  if (Vertical() != ScrollBarVisibility::Hidden) vertical.Draw(painter, brush);
  if (Horizontal() != ScrollBarVisibility::Hidden) horizontal.Draw(painter, brush);
}

bool ScrollViewer::IsOnBar(Point point) const {
  return (Vertical() != ScrollBarVisibility::Hidden && vertical.Track().Contains(point)) ||
         (Horizontal() != ScrollBarVisibility::Hidden && horizontal.Track().Contains(point));
}

UIElement* ScrollViewer::HitTest(Point point) {
  // Content that is scrolled out of sight cannot be reached, nor what lies below a bar.
  if (viewport.Contains(point) && !IsOnBar(point)) return ContentControl::HitTest(point);
  if (GetVisibility() != Visibility::Visible || !Get<bool>(IsHitTestVisibleProperty)) return nullptr;
  return HitTestSelf(point) ? this : nullptr;
}

bool ScrollViewer::OnKey(const KeyEventArgs& args) {
  if (Keyboard::IsKeyDown(Key::LeftAlt) || Keyboard::IsKeyDown(Key::RightAlt)) return false;
  const Point before = ScrollOffset();
  // A page leaves a line of what was in sight.
  const float page = std::max(LineStep, viewport.height - LineStep);
  Point to = before;
  switch (args.key) {
  case Key::Up: to.y -= LineStep; break;
  case Key::Down: to.y += LineStep; break;
  case Key::Left: to.x -= LineStep; break;
  case Key::Right: to.x += LineStep; break;
  case Key::PageUp: to.y -= page; break;
  case Key::PageDown: to.y += page; break;
  case Key::Home: to.y = 0; break;
  case Key::End: to.y = extent.height; break;
  default: return false;
  }
  ScrollTo(to);
  return !(ScrollOffset() == before);
}

void ScrollViewer::OnMouse(const RoutedEventArgs& args) {
  InputState* input = InputState::Current();
  if (!input) return;
  const Point mouse = Mouse::GetPosition(this);
  const Point before = ScrollOffset();
  const bool isOurs = input->Captured() == this;
  if (!isOurs) {
    vertical.Release();
    horizontal.Release();
  }
  if (args.event == &MouseLeftButtonDownEvent) {
    if (!IsOnBar(mouse)) return;
    if (!vertical.Press(mouse)) horizontal.Press(mouse);
    input->Capture(this);
    args.handled = true;
  } else if (args.event == &MouseLeftButtonUpEvent && isOurs) {
    input->Capture(nullptr);
    vertical.Release();
    horizontal.Release();
    args.handled = true;
  } else if (args.event == &MouseMoveEvent && isOurs) {
    vertical.DragTo(mouse);
    horizontal.DragTo(mouse);
    args.handled = true;
  }
  const bool isOver = args.event != &MouseLeaveEvent && IsOnBar(mouse);
  const bool verticalChanged = vertical.SetHovered(isOver && vertical.Track().Contains(mouse));
  const bool horizontalChanged = horizontal.SetHovered(isOver && horizontal.Track().Contains(mouse));
  if (!(ScrollOffset() == before)) InvalidateArrange();
  if (verticalChanged || horizontalChanged || args.handled) InvalidateVisual();
}

void ScrollViewer::OnRoutedEvent(const RoutedEventArgs& args) {
  ContentControl::OnRoutedEvent(args);
  if (args.event == &MouseWheelEvent) {
    const Point before = ScrollOffset();
    const float distance = -static_cast<const MouseWheelEventArgs&>(args).wheelRotation * WheelStep;
    const bool isSideways = Keyboard::IsKeyDown(Key::LeftShift) || Keyboard::IsKeyDown(Key::RightShift);
    ScrollTo(isSideways ? Point{before.x + distance, before.y} : Point{before.x, before.y + distance});
    // At the end of its way the wheel goes on to what lies around.
    if (!(ScrollOffset() == before)) args.handled = true;
  } else if (args.event == &KeyDownEvent) {
    if (OnKey(static_cast<const KeyEventArgs&>(args))) args.handled = true;
  } else if (args.event == &MouseLeftButtonDownEvent || args.event == &MouseLeftButtonUpEvent ||
             args.event == &MouseMoveEvent || args.event == &MouseLeaveEvent) {
    OnMouse(args);
  }
}

} // namespace Toolkit
