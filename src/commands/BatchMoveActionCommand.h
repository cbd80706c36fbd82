#pragma once

#include "graph/ChildOrder.h"
#include "graph/MoveRecord.h"
#include "toolkit/base/Geometry.h"
#include "values/IActionCommand.h"

#include <vector>

namespace Tesselor {

class Graph;

/// Moves nodes, which brings the children of the pins around into the order of their heights. Made before the nodes are
/// moved, and pushed without being run once they are where they should be.
class BatchMoveActionCommand : public IActionCommand {
public:
  enum class Siblings {
    /// The move decides the order of the children around.
    Reordered,
    /// As a layout does it, which follows the order instead.
    Kept,
  };
  /// The graph outlives the history. The children around stand as they did before the move.
  BatchMoveActionCommand(Graph& graph, std::vector<MoveRecord> records, Siblings siblings = Siblings::Kept);

  const std::vector<MoveRecord>& Records() const { return records; }
  /// Moves all nodes to `distance` from where they stood before, and leaves the order of siblings for `Settle`.
  void MoveBy(Toolkit::Point distance);
  /// The nodes stay where they are now.
  void Settle();

  void Do() override;
  void Undo() override;
  StepDescription Description() const override;

private:
  ChildOrder OrderAround() const;

  Graph& graph;
  std::vector<MoveRecord> records;
  ChildOrder oldOrder, newOrder;
};

} // namespace Tesselor
