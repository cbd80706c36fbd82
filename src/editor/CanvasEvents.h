#pragma once

#include "toolkit/base/RoutedEvent.h"

namespace Tesselor {

/// A rubber-band rectangle was finished. Panel coordinates.
struct SelectionUpEventArgs : Toolkit::RoutedEventArgs {
  using RoutedEventArgs::RoutedEventArgs;
  float width = 0, height = 0, x = 0, y = 0;
};

/// The background was clicked with the right button. Panel coordinates.
struct ShowNodesMenuEventArgs : Toolkit::RoutedEventArgs {
  using RoutedEventArgs::RoutedEventArgs;
  float x = 0, y = 0;
};

/// A cut line was finished. Panel coordinates.
struct CutLineUpEventArgs : Toolkit::RoutedEventArgs {
  using RoutedEventArgs::RoutedEventArgs;
  float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  /// Ctrl was held when the button went up.
  bool ctrl = false;
};

} // namespace Tesselor
