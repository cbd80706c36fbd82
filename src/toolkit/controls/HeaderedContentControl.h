#pragma once

#include "toolkit/controls/ContentControl.h"

namespace Toolkit {

/// A content control with a header of its own.
class HeaderedContentControl : public ContentControl {
  TOOLKIT_TYPE(HeaderedContentControl)
public:
  static inline const DependencyProperty* HeaderProperty = nullptr;
  static inline const DependencyProperty* HeaderTemplateProperty = nullptr;

  HeaderedContentControl() = default;
  ~HeaderedContentControl() override;
  const Value& GetHeader() const { return GetValue(HeaderProperty); }
  void SetHeader(Value header) { SetValue(HeaderProperty, std::move(header)); }
  UIElement* HeaderElement() const { return headerElement.Get(); }

  size_t VisualChildCount() const override;
  UIElement* VisualChild(size_t index) const override;

protected:
  void PrepareForMeasure() override;
  void OnPropertyChanged(const PropertyChange& change) override;

private:
  Ptr<UIElement> headerElement;
  bool headerDue = true;
};

/// A frame with its header on the upper edge.
class GroupBox : public HeaderedContentControl {
  TOOLKIT_TYPE(GroupBox)
public:
  GroupBox() = default;

protected:
  void OnRender(Painter& painter) override;
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
};

/// Content that shows only while the expander is open; a click on the header opens and closes it, and so do Space and
/// Return while it has the focus.
class Expander : public HeaderedContentControl {
  TOOLKIT_TYPE(Expander)
public:
  static inline const DependencyProperty* IsExpandedProperty = nullptr;
  /// Paints the header while the mouse is over it.
  static inline const DependencyProperty* HighlightBrushProperty = nullptr;
  static const RoutedEvent ExpandedEvent, CollapsedEvent;

  Expander() = default;
  bool IsExpanded() const { return Get<bool>(IsExpandedProperty); }
  void SetIsExpanded(bool value) { SetValue(IsExpandedProperty, value); }
  size_t VisualChildCount() const override;

protected:
  void OnRender(Painter& painter) override;
  void OnPropertyChanged(const PropertyChange& change) override;
  void OnRoutedEvent(const RoutedEventArgs& args) override;
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  bool HitTestSelf(Point point) const override;

private:
  float HeaderHeight() const;
  Rect HeaderBox() const { return {0, 0, ActualWidth(), HeaderHeight()}; }

  bool isHeaderHovered = false;
};

} // namespace Toolkit
