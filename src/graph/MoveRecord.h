#pragma once

#include "nodes/BaseNode.h"

namespace Tesselor {

/// A node with where it stood and where it stands: values of `Canvas.Left` and `Canvas.Top`.
struct MoveRecord {
  Toolkit::Ptr<BaseNode> node;
  float oldLeft, oldTop, newLeft, newTop;
};

} // namespace Tesselor
