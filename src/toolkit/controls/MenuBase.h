#pragma once

#include "toolkit/controls/ItemsControl.h"

namespace Toolkit {

class MenuItem;

/// A row or column of menu items: one of them is current, which is the one that is lit, and whose submenu is open if
/// any is.
class MenuBase : public ItemsControl {
  TOOLKIT_TYPE(MenuBase)
public:
  /// The menu that shows the item; null while none does.
  static MenuBase* Of(const MenuItem& item);

  MenuItem* Current() const;
  /// Null if nothing is to be lit. Closes the submenu of the former one.
  void SetCurrent(MenuItem* item);
  /// The item whose submenu is open, or null.
  MenuItem* OpenItem() const;

  /// The mouse has come over an item, or has left it.
  virtual void OnItemEntered(MenuItem& item) {}
  virtual void OnItemLeft(MenuItem& item) {}
  /// An item's submenu has closed.
  virtual void OnItemClosed(MenuItem& item) {}
  /// Right (1) or Left (-1) was pressed in the submenu of an item, where it means nothing.
  virtual void OnSideKey(int step) {}
  /// True if the item at the cursor may be chosen by a release of the mouse button.
  virtual bool TakesRelease() const { return true; }

protected:
  MenuBase() = default;
  /// Makes the next usable item current: `step` is 1 or -1, and the ends are joined. Returns it, or null.
  MenuItem* MoveCurrent(int step);
  /// Makes the first or the last usable item current.
  void MoveToEnd(bool last);

private:
  MenuItem* ItemElementAt(size_t index) const;
  WeakPtr<MenuItem> current;
};

} // namespace Toolkit
