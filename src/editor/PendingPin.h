#pragma once

#include "nodes/NodePinControl.h"

#include <functional>

namespace Tesselor {

/// The pin from which a connection was begun by its menu, and which pulses until it is completed or cancelled.
class PendingPin {
public:
  ~PendingPin() { Clear(); }
  /// Null if there is none.
  NodePinControl* Get() const { return pin.Get(); }
  /// Marks the pin in place of a former one.
  void Set(NodePinControl& control);
  void Clear();

private:
  Toolkit::Ptr<NodePinControl> pin;
};

/// Opens the menu of a pin: it begins a connection there, or completes or cancels the one that was begun elsewhere.
/// `connect` joins two pins. Both outlive the menu, which belongs to the pin.
void ShowPinMenu(NodePinControl& control, PendingPin& pending,
                 std::function<void(NodePinData& target, NodePinData& source)> connect);

} // namespace Tesselor
