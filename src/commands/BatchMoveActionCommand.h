#pragma once

#include "graph/ChildOrder.h"
#include "graph/MoveRecord.h"
#include "values/IActionCommand.h"

#include <vector>

namespace Tesselor {

class Graph;

/// Moves nodes. Made after the nodes were moved, so it is pushed without being run.
class BatchMoveActionCommand : public IActionCommand {
public:
  /// The graph outlives the history.
  BatchMoveActionCommand(Graph& graph, std::vector<MoveRecord> records) : graph(graph), records(std::move(records)) {}
  /// For a move after which the children of the pins around were brought into their new order: how they stood before
  /// and after.
  BatchMoveActionCommand(Graph& graph, std::vector<MoveRecord> records, ChildOrder oldOrder, ChildOrder newOrder)
      : graph(graph), records(std::move(records)), oldOrder(std::move(oldOrder)), newOrder(std::move(newOrder)) {}
  void Do() override;
  void Undo() override;

private:
  Graph& graph;
  std::vector<MoveRecord> records;
  ChildOrder oldOrder, newOrder;
};

} // namespace Tesselor
