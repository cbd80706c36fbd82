#pragma once

#include "toolkit/base/Geometry.h"

#include <cstdint>

namespace Tesselor {

class BatchMoveActionCommand;
class Graph;

/// Selects all nodes of any kind.
void SelectAllNodes(Graph& graph);

/// Deletes the selected connections as one step, or if there are none the selected nodes. False if nothing is selected.
bool DeleteSelected(Graph& graph);

/// Moves what is selected by keys. A run of moves of the same nodes, with no other step in between, is one step.
class Nudges {
public:
  /// The graph outlives this.
  explicit Nudges(Graph& graph) : graph(graph) {}
  /// In canvas units.
  void Move(Toolkit::Point distance);

private:
  bool GoesOn() const;

  Graph& graph;
  /// The history's, as long as its revision is `revision`.
  BatchMoveActionCommand* run = nullptr;
  uint64_t revision = 0;
  Toolkit::Point moved;
};

} // namespace Tesselor
