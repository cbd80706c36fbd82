#pragma once

#include "toolkit/controls/ContentControl.h"
#include "toolkit/controls/TextBox.h"

namespace Toolkit {

/// Shows a part of content that may be larger than itself.
class ScrollViewer : public ContentControl {
  TOOLKIT_TYPE(ScrollViewer)
public:
  static inline const DependencyProperty* VerticalScrollBarVisibilityProperty = nullptr;
  static inline const DependencyProperty* HorizontalScrollBarVisibilityProperty = nullptr;

  ScrollViewer() = default;
  /// How far the content is scrolled, in pixels; kept within what can be scrolled.
  Point ScrollOffset() const { return scroll; }
  void ScrollTo(Point offset);
  Size Extent() const { return extent; }
  Size Viewport() const { return viewport; }

protected:
  void OnRoutedEvent(const RoutedEventArgs& args) override;
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  bool HitTestSelf(Point point) const override { return Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point); }

private:
  bool CanScroll(const DependencyProperty* property) const {
    return Get<ScrollBarVisibility>(property) != ScrollBarVisibility::Disabled;
  }
  Point scroll;
  Size extent, viewport;
};

} // namespace Toolkit
