#pragma once

#include "editor/gestures/Gesture.h"
#include "graph/MoveRecord.h"

#include <functional>
#include <vector>

namespace Tesselor {

class Graph;

/// Moves the selected nodes, and with groups what lies in them, as one undo step. A press and release without a move is
/// a click.
class NodeDragGesture : public Gesture {
public:
  /// The graph outlives the gesture.
  NodeDragGesture(Graph& graph, Toolkit::Point mouse, std::function<void()> onClick)
      : graph(graph), start(mouse), onClick(std::move(onClick)) {}
  void Move(Toolkit::Point mouse) override;
  void End(Toolkit::Point mouse) override;
  void Cancel() override;

private:
  void Begin();

  Graph& graph;
  Toolkit::Point start;
  std::function<void()> onClick;
  /// Empty until the mouse moves. Each node once.
  std::vector<MoveRecord> records;
  bool hasMoved = false;
};

} // namespace Tesselor
