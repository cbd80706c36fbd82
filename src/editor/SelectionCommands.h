#pragma once

#include "toolkit/base/Geometry.h"

#include <cstdint>

namespace Tesselor {

class BatchMoveActionCommand;
class FrameNode;
class Graph;
class ResizeGroupNodeActionCommand;

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

/// Moves the right and the lower edge of groups and comments by keys; a run of moves of one frame is one step.
class FrameResizes {
public:
  /// In canvas units.
  void Resize(FrameNode& frame, Toolkit::Point moved);

private:
  /// The history's, as long as its revision is `revision`.
  ResizeGroupNodeActionCommand* run = nullptr;
  uint64_t revision = 0;
};

} // namespace Tesselor
