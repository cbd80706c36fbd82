#pragma once

#include "toolkit/base/Geometry.h"

namespace Tesselor {

/// How much room the pins of one record take in their rows, as the first of them was laid out: the others need no
/// controls for the layout before somebody sees them.
struct PinRoom {
  bool isSizeKnown = false;
  bool isShapeKnown = false;
  /// What room there was.
  Toolkit::Size available;
  Toolkit::Size wanted;
  /// The middle of the drawn shape, from the corner at that end of the row where the shape is.
  Toolkit::Point shape;
};

} // namespace Tesselor
