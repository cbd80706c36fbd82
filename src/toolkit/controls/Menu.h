#pragma once

#include "toolkit/controls/MenuBase.h"
#include "toolkit/visual/LayoutQueue.h"

namespace Toolkit {

/// The bar at the top of a window. Once one of its menus was opened, the mouse opens the others by passing over them,
/// and Left and Right go from one to the next; on an item without a menu the bar itself takes the keys.
///
/// Items for which the bar is too narrow stand in the menu of one more item at its end, until there is room again.
class Menu : public MenuBase, private LayoutTask {
  TOOLKIT_TYPE(Menu)
public:
  Menu();
  ~Menu() override;
  /// Gives the keys to the bar, with its first item lit; or takes them back if it has them. What the key F10 does.
  void Toggle();
  /// Nothing is lit or open any more, and the focus goes back to where it was.
  void Leave();

  void OnItemEntered(MenuItem& item) override;
  void OnItemLeft(MenuItem& item) override;
  void OnItemClosed(MenuItem& item) override;
  void OnSideKey(int step) override;
  bool TakesRelease() const override { return isActive; }

protected:
  Ptr<Panel> CreateHost() override;
  void OnAttached() override;
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  void OnRoutedEvent(const RoutedEventArgs& args) override;

private:
  void ReturnFocus();
  void AfterLayout() override;
  /// How many of all items stand in the bar itself.
  size_t CountThatFits() const;
  void MoveIntoOverflow();
  void MoveOutOfOverflow();
  /// The items in the bar that are the user's.
  size_t OwnCount() const { return ItemCount() - (isOverflowShown ? 1 : 0); }
  float room = 0;
  /// Null until the bar was once too narrow; the last item of the bar while it is.
  Ptr<MenuItem> overflow;
  bool isOverflowShown = false;
  WeakPtr<UIElement> formerFocus;
  /// A menu was opened, and the user has not left the bar since.
  bool isActive = false;
  /// One menu takes the place of another.
  bool isSwitching = false;
};

} // namespace Toolkit
