#pragma once

#include "toolkit/base/Geometry.h"

namespace Tesselor {

/// How much room the fields of one schema entry take, as the first of them was measured: the others need no controls
/// for the layout before somebody sees them.
struct FieldSize {
  bool isKnown = false;
  /// What room there was.
  Toolkit::Size available;
  Toolkit::Size wanted;
};

} // namespace Tesselor
