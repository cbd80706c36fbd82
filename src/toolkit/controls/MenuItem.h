#pragma once

#include "toolkit/controls/ItemsControl.h"
#include "toolkit/text/TextCache.h"

namespace Toolkit {

class MenuSurface;

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
  /// Lit, by the mouse or by keys.
  static inline const DependencyProperty* IsHighlightedProperty = nullptr;
  static inline const DependencyProperty* HighlightBrushProperty = nullptr;
  /// Paints the gesture text and the arrow of a submenu.
  static inline const DependencyProperty* DimBrushProperty = nullptr;
  static const RoutedEvent ClickEvent;

  MenuItem();
  ~MenuItem() override;
  bool IsChecked() const { return Get<bool>(IsCheckedProperty); }
  void SetIsChecked(bool value) { SetValue(IsCheckedProperty, value); }
  bool IsSubmenuOpen() const { return Get<bool>(IsSubmenuOpenProperty); }
  /// Opens or closes the submenu; does nothing for an item without items or outside of a window.
  void SetIsSubmenuOpen(bool open) { SetValue(IsSubmenuOpenProperty, open); }
  void SetIsHighlighted(bool value) { SetValue(IsHighlightedProperty, value); }
  /// Switches a checkable item and raises `Click`.
  void Click();
  /// What it takes of the length of a bar.
  float WidthInBar() const;
  /// Items that were taken out are free of the submenu at once.
  void ReleaseItems();
  /// What Return does: opens the submenu with its first item lit, or closes all menus and clicks.
  void Choose();

protected:
  void PrepareForMeasure() override {}
  void OnPropertyChanged(const PropertyChange& change) override;
  void OnRoutedEvent(const RoutedEventArgs& args) override;
  void OnRender(Painter& painter) override;
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override { return finalSize; }
  bool HitTestSelf(Point point) const override { return Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point); }

private:
  bool IsInBar() const;
  float RoomForMark() const;
  float RoomForArrow() const;
  bool OpenSubmenu();
  void CloseMenusAndClick();
  /// In a bar, what is painted while it is lit: the bar's upper and lower edge are left alone, however high it is.
  Rect LitBoxInBar() const;
  TextSize HeaderSize() const;
  void DrawRow(Painter& painter);

  /// Made when it first opens. The items are children of its panel from then on.
  Ptr<MenuSurface> submenu;
  bool isPressed = false;
};

} // namespace Toolkit
