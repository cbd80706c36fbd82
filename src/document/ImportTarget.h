#pragma once

#include "graph/MoveRecord.h"

#include <functional>
#include <memory>
#include <vector>

namespace Tesselor {

class Graph;
struct RootType;

/// Where a document is imported to.
struct ImportTarget {
  /// Empty, and on a panel that is laid out.
  Graph& graph;
  /// What kind of document it becomes; null before one was chosen.
  std::shared_ptr<RootType> root;
  /// Told what the automatic layout has moved, of a file that places nothing.
  std::function<void(std::vector<MoveRecord>)> onLaidOut;
};

} // namespace Tesselor
