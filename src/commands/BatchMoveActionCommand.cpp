#include "commands/BatchMoveActionCommand.h"

#include "graph/Graph.h"
#include "toolkit/controls/Canvas.h"

namespace Tesselor {

namespace {

void Place(BaseNode& node, float left, float top) {
  Toolkit::Canvas::SetTop(&node, top);
  Toolkit::Canvas::SetLeft(&node, left);
}

} // namespace

void BatchMoveActionCommand::Do() {
  for (const MoveRecord& record : records) Place(*record.node, record.newLeft, record.newTop);
  graph.RestoreOrder(newOrder);
}

void BatchMoveActionCommand::Undo() {
  for (const MoveRecord& record : records) Place(*record.node, record.oldLeft, record.oldTop);
  graph.RestoreOrder(oldOrder);
}

} // namespace Tesselor
