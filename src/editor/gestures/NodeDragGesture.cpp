#include "editor/gestures/NodeDragGesture.h"

#include "graph/Graph.h"
#include "values/ActionHistory.h"

namespace Tesselor {

using Toolkit::Point;

void NodeDragGesture::Move(Point mouse) {
  if (!move)
    move = std::make_unique<BatchMoveActionCommand>(graph, graph.Selected().MoveRecords(),
                                                    BatchMoveActionCommand::Siblings::Reordered);
  move->MoveBy(mouse - start);
}

void NodeDragGesture::End(Point) {
  if (!move) {
    onClick();
    return;
  }
  if (move->Records().empty()) return;
  move->Settle();
  ActionHistory::Instance().Push(std::move(move));
}

void NodeDragGesture::Cancel() {
  if (move) move->MoveBy({});
}

} // namespace Tesselor
