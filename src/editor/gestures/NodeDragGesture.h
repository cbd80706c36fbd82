#pragma once

#include "commands/BatchMoveActionCommand.h"
#include "editor/gestures/Gesture.h"

#include <functional>
#include <memory>

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
  const char* Cursor() const override { return "SizeAll"; }

private:
  Graph& graph;
  Toolkit::Point start;
  std::function<void()> onClick;
  /// Null until the mouse moves.
  std::unique_ptr<BatchMoveActionCommand> move;
};

} // namespace Tesselor
