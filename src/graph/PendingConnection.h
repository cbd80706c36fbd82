#pragma once

#include "nodes/ContentNode.h"

namespace Tesselor {

/// A connection that is to be made once all nodes of a load or a paste are there.
struct PendingConnection {
  Toolkit::Ptr<ContentNode> childNode;
  /// The input end.
  NodePinData* childPin;
  Toolkit::Ptr<ContentNode> parentNode;
  /// The output end.
  NodePinData* parentPin;
};

} // namespace Tesselor
