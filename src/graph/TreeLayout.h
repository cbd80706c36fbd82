#pragma once

#include "graph/MoveRecord.h"

#include <unordered_map>
#include <vector>

namespace Tesselor {

class ContentNode;

/// The automatic layout: a left-to-right tree from one node through output pins. Columns are as wide as their widest
/// node, the children of a node are centred on its middle, and no two nodes of a column overlap. One object per run.
class TreeLayout {
public:
  /// Between columns, and between nodes above each other, in canvas units.
  static constexpr float ColumnGap = 300, RowGap = 80;
  /// What orders the children of a node: their height on the canvas, or their place in the file's array.
  enum class Order { ByHeight, AsImported };
  explicit TreeLayout(Order childOrder) : childOrder(childOrder) {}
  /// Moves everything that is reached from `start`, which stays where it is; tells what stood and stands where. Runs
  /// layout before, since sizes count.
  std::vector<MoveRecord> Run(ContentNode& start);

private:
  using Children = std::vector<ContentNode*>;
  Children ChildrenOf(const ContentNode& node) const;
  /// Visits each node once: the graph may have cycles and nodes with several parents.
  void Collect(ContentNode& node, size_t depth);
  void MeasureSubtrees();
  float SubtreeHeight(const ContentNode& node) const;
  void Place(ContentNode& start, float x, float y);

  struct Entry {
    Children children;
    size_t depth = 0;
    float subtreeHeight = 0;
  };
  Order childOrder;
  std::unordered_map<const ContentNode*, Entry> entries;
  std::vector<ContentNode*> order;
  std::vector<float> columnWidths;
  std::vector<float> nextFreeY;
  std::vector<MoveRecord> records;
};

} // namespace Tesselor
