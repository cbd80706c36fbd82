#pragma once

#include "graph/ChildOrder.h"
#include "graph/MoveRecord.h"
#include "values/IActionCommand.h"

#include <vector>

namespace Tesselor {

/// Moves nodes. Made after the nodes were moved, so it is pushed without being run.
class BatchMoveActionCommand : public IActionCommand {
public:
  explicit BatchMoveActionCommand(std::vector<MoveRecord> records) : records(std::move(records)) {}
  /// For a move after which the children of the pins around were brought into their new order: how they stood before
  /// and after.
  BatchMoveActionCommand(std::vector<MoveRecord> records, ChildOrder oldOrder, ChildOrder newOrder)
      : records(std::move(records)), oldOrder(std::move(oldOrder)), newOrder(std::move(newOrder)) {}
  void Do() override;
  void Undo() override;

private:
  std::vector<MoveRecord> records;
  ChildOrder oldOrder, newOrder;
};

} // namespace Tesselor
