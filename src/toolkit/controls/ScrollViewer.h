#pragma once

#include "toolkit/controls/ContentControl.h"
#include "toolkit/controls/ScrollThumb.h"
#include "toolkit/controls/TextBox.h"

namespace Toolkit {

struct KeyEventArgs;

/// Shows a part of content that may be larger than itself, with a bar at the right and at the lower edge where it can
/// be scrolled. The content gives way to a bar that is shown.
class ScrollViewer : public ContentControl {
  TOOLKIT_TYPE(ScrollViewer)
public:
  static inline const DependencyProperty* VerticalScrollBarVisibilityProperty = nullptr;
  static inline const DependencyProperty* HorizontalScrollBarVisibilityProperty = nullptr;
  static inline const DependencyProperty* ScrollBarBrushProperty = nullptr;

  ScrollViewer() = default;
  /// How far the content is scrolled, in pixels; kept within what can be scrolled.
  Point ScrollOffset() const { return {horizontal.offset, vertical.offset}; }
  void ScrollTo(Point offset);
  Size Extent() const { return extent; }
  /// The part that shows the content.
  Size Viewport() const { return {viewport.width, viewport.height}; }
  /// The bars as they stand, in the viewer's own coordinates.
  const ScrollThumb& VerticalBar() const { return vertical; }
  const ScrollThumb& HorizontalBar() const { return horizontal; }

  UIElement* HitTest(Point point) override;

protected:
  void OnRoutedEvent(const RoutedEventArgs& args) override;
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  void RenderChildren(Painter& painter) override;
  bool HitTestSelf(Point point) const override { return Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point); }
  Rect Reveal(const Rect& area) override;

private:
  ScrollBarVisibility Vertical() const { return Get<ScrollBarVisibility>(VerticalScrollBarVisibilityProperty); }
  ScrollBarVisibility Horizontal() const { return Get<ScrollBarVisibility>(HorizontalScrollBarVisibilityProperty); }
  bool IsOnBar(Point point) const;
  bool OnKey(const KeyEventArgs& args);
  void OnMouse(const RoutedEventArgs& args);

  Size extent;
  Rect viewport;
  ScrollThumb vertical, horizontal{ScrollThumb::Axis::Horizontal};
  /// The bars for which the last measure has left room.
  bool leavesRight = false, leavesBottom = false;
};

} // namespace Toolkit
