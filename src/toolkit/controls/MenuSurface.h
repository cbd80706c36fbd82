#pragma once

#include "toolkit/controls/MenuBase.h"
#include "toolkit/controls/ScrollThumb.h"

#include <cstdint>

namespace Toolkit {

class Popup;
struct KeyEventArgs;

/// The column of items that drops down from a menu item. Where there is no room for all items it scrolls.
class MenuSurface : public MenuBase {
  TOOLKIT_TYPE(MenuSurface)
public:
  static inline const DependencyProperty* ScrollBarBrushProperty = nullptr;
  MenuSurface();
  ~MenuSurface() override;

  /// Shows the items in a popup that has this surface as its content, until a click or Escape closes it. False if the
  /// popup's owner is in no window.
  bool OpenIn(const Ptr<Popup>& newPopup);
  void Close();
  bool IsShown() const { return popup != nullptr; }
  /// True if an item of this menu can be checked, or has a submenu: all items then leave room for the sign.
  bool HasMarks() const { return hasMarks; }
  bool HasArrows() const { return hasArrows; }
  void MoveToFirst() { MoveToEnd(false); }
  /// Lets go of items that were taken out; a menu that is not shown is not laid out, which does it otherwise.
  void ReleaseItems() { PrepareForMeasure(); }

  void OnItemEntered(MenuItem& item) override;
  void OnItemLeft(MenuItem& item) override;
  void OnSideKey(int step) override;
  bool TakesRelease() const override;

protected:
  /// The surface is no longer shown.
  virtual void OnClosed();
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  void RenderChildren(Painter& painter) override;
  void OnRoutedEvent(const RoutedEventArgs& args) override;
  Rect Reveal(const Rect& area) override;

private:
  /// The menu that this one was opened from, or null.
  MenuBase* Outer() const;
  bool OnKey(const KeyEventArgs& args);
  void StopTimer();
  void ScrollTo(float offset);

  Ptr<Popup> popup;
  ScrollThumb bar;
  uint64_t timer = 0;
  bool hasMarks = false;
  bool hasArrows = false;
};

} // namespace Toolkit
