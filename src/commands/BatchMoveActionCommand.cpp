#include "commands/BatchMoveActionCommand.h"

#include "graph/Graph.h"
#include "nodes/NodeNames.h"
#include "toolkit/controls/Canvas.h"

namespace Tesselor {

using Toolkit::DynamicCast;

BatchMoveActionCommand::BatchMoveActionCommand(Graph& graph, std::vector<MoveRecord> moves, Siblings siblings)
    : graph(graph), records(std::move(moves)) {
  if (siblings == Siblings::Reordered) oldOrder = OrderAround();
}

ChildOrder BatchMoveActionCommand::OrderAround() const {
  ChildOrder order;
  for (const MoveRecord& record : records)
    if (const auto* node = DynamicCast<ContentNode>(record.node.Get())) order.NoteParentsOf(*node);
  return order;
}

void BatchMoveActionCommand::MoveBy(Toolkit::Point distance) {
  for (MoveRecord& record : records) {
    record.newLeft = record.oldLeft + distance.x;
    record.newTop = record.oldTop + distance.y;
    Toolkit::Canvas::SetPlace(*record.node, {record.newLeft, record.newTop});
  }
}

void BatchMoveActionCommand::Settle() {
  std::vector<ContentNode*> moved;
  for (const MoveRecord& record : records)
    if (auto* node = DynamicCast<ContentNode>(record.node.Get())) moved.push_back(node);
  graph.RefreshOrderAround(moved);
  newOrder = OrderAround();
}

void BatchMoveActionCommand::Do() {
  for (const MoveRecord& record : records) Toolkit::Canvas::SetPlace(*record.node, {record.newLeft, record.newTop});
  graph.RestoreOrder(newOrder);
}

void BatchMoveActionCommand::Undo() {
  for (const MoveRecord& record : records) Toolkit::Canvas::SetPlace(*record.node, {record.oldLeft, record.oldTop});
  graph.RestoreOrder(oldOrder);
}

StepDescription BatchMoveActionCommand::Description() const {
  const std::string what =
      records.size() == 1 ? NameOf(*records.front().node) : Counted(records.size(), "node", "nodes");
  return {"Moved", "move of", what};
}

} // namespace Tesselor
