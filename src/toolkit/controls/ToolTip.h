#pragma once

#include "toolkit/controls/ContentControl.h"

#include <cstdint>

namespace Toolkit {

class Popup;
class PopupLayer;

/// A small window with an explanation, shown while the mouse rests on its owner.
class ToolTip : public ContentControl {
  TOOLKIT_TYPE(ToolTip)
public:
  ToolTip() = default;
  /// False if there is nothing to read in it, so that it is better not shown.
  bool HasContent() const;
};

/// Shows the tool tips of a window's elements. A tip is made when it is due and dropped when it goes.
class ToolTipService {
public:
  explicit ToolTipService(PopupLayer& layer);
  ~ToolTipService();
  /// Each event of the window passes here first.
  void Observe(const RoutedEventArgs& args);
  void Hide();

private:
  /// Hides the tip until the mouse has been elsewhere.
  void StayAway();
  void OnMouseMoved(const RoutedEventArgs& args);
  void Show();
  Ptr<ToolTip> MakeTip(FrameworkElement& owner) const;
  void StopTimer();
  void StartTimer(double milliseconds, void (ToolTipService::*task)());

  PopupLayer& layer;
  /// The element with a tip that the mouse is over.
  WeakPtr<FrameworkElement> owner;
  Ptr<Popup> popup;
  uint64_t timer = 0;
  /// Milliseconds of rest that the owner's tip asks for.
  double delay = 0;
  /// When a tip was last seen.
  double shownAt = -1e9;
};

} // namespace Toolkit
