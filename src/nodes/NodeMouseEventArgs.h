#pragma once

#include "toolkit/base/RoutedEvent.h"

#include <cstdint>

namespace Tesselor {

/// A node was pressed with the left button.
struct NodeMouseDownEventArgs : Toolkit::RoutedEventArgs {
  NodeMouseDownEventArgs(const Toolkit::RoutedEvent& event, Toolkit::Object* source, int32_t clickCount)
      : RoutedEventArgs(event, source), clickCount(clickCount) {}
  /// Of the mouse event behind it: 2 for a double click.
  int32_t clickCount;
};

/// A node was released.
struct NodeMouseUpEventArgs : Toolkit::RoutedEventArgs {
  using RoutedEventArgs::RoutedEventArgs;
};

} // namespace Tesselor
