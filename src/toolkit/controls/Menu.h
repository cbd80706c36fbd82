#pragma once

#include "toolkit/controls/ItemsControl.h"

namespace Toolkit {

/// An items control with a header.
class HeaderedItemsControl : public ItemsControl {
  TOOLKIT_TYPE(HeaderedItemsControl)
public:
  static inline const DependencyProperty* HeaderProperty = nullptr;
  HeaderedItemsControl() = default;
  const Value& GetHeader() const { return GetValue(HeaderProperty); }
  void SetHeader(Value header) { SetValue(HeaderProperty, std::move(header)); }
};

/// One entry of a menu. With items of its own it opens a submenu, without it is clicked.
class MenuItem : public HeaderedItemsControl {
  TOOLKIT_TYPE(MenuItem)
public:
  static inline const DependencyProperty* IsCheckableProperty = nullptr;
  static inline const DependencyProperty* IsCheckedProperty = nullptr;
  static inline const DependencyProperty* IsSubmenuOpenProperty = nullptr;
  static inline const DependencyProperty* InputGestureTextProperty = nullptr;
  static const RoutedEvent ClickEvent;

  MenuItem() = default;
  bool IsChecked() const { return Get<bool>(IsCheckedProperty); }
  void SetIsChecked(bool value) { SetValue(IsCheckedProperty, value); }
  /// Switches a checkable item and raises `Click`.
  void Click();

protected:
  void PrepareForMeasure() override {}
  void OnRoutedEvent(const RoutedEventArgs& args) override;
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override { return finalSize; }
  bool HitTestSelf(Point point) const override { return Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point); }
};

/// The bar at the top of a window.
class Menu : public ItemsControl {
  TOOLKIT_TYPE(Menu)
public:
  Menu() = default;

protected:
  Ptr<Panel> CreateHost() override;
};

/// A menu that opens at the mouse.
class ContextMenu : public ItemsControl {
  TOOLKIT_TYPE(ContextMenu)
public:
  static inline const DependencyProperty* IsOpenProperty = nullptr;
  ContextMenu() = default;
};

} // namespace Toolkit
