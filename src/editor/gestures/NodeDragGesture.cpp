#include "editor/gestures/NodeDragGesture.h"

#include "graph/Graph.h"
#include "values/ActionHistory.h"

#include <algorithm>

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
  const auto stays = [](const MoveRecord& r) { return r.oldLeft == r.newLeft && r.oldTop == r.newTop; };
  if (std::all_of(move->Records().begin(), move->Records().end(), stays)) return;
  move->Settle();
  ActionHistory::Instance().Push(std::move(move));
}

void NodeDragGesture::Cancel() {
  if (move) move->MoveBy({});
}

} // namespace Tesselor
