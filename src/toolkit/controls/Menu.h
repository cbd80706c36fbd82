#pragma once

#include "toolkit/controls/MenuBase.h"

namespace Toolkit {

/// The bar at the top of a window. Once one of its menus was opened, the mouse opens the others by passing over them,
/// and Left and Right go from one to the next; on an item without a menu the bar itself takes the keys.
class Menu : public MenuBase {
  TOOLKIT_TYPE(Menu)
public:
  Menu();
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
  void OnRoutedEvent(const RoutedEventArgs& args) override;

private:
  void ReturnFocus();
  WeakPtr<UIElement> formerFocus;
  /// A menu was opened, and the user has not left the bar since.
  bool isActive = false;
  /// One menu takes the place of another.
  bool isSwitching = false;
};

} // namespace Toolkit
