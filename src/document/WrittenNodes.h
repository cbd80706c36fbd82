#pragma once

#include "nodes/ContentNode.h"

#include <cstddef>
#include <unordered_map>
#include <vector>

namespace Tesselor {

/// Which nodes are written inside of which. Not all that hangs on a node is: a pin that takes one child is written with
/// its first, one that no key of the schema names not at all. Takes time linear in the connections, however often a
/// node with several parents is written.
namespace WrittenNodes {

/// What stands behind the written pins of a node, or behind a pass-through node; pass-through nodes themselves among
/// it where all that is behind them is written.
std::vector<ContentNode*> Below(const ContentNode& node);
/// Adds `start` and all that is written below it.
void Collect(const ContentNode& start, NodeSet& written);

} // namespace WrittenNodes

/// How large the JSON of nodes becomes, without writing it.
class WrittenSize {
public:
  /// How many nodes stand in the object of `node`, itself included: one with several parents counts below each. A
  /// floating-point number, since it may double with every node.
  double Nodes(const ContentNode& node) { return Of(node).nodes; }
  /// How deeply its object nests at least.
  size_t Nesting(const ContentNode& node) { return Of(node).nesting; }

private:
  struct Size {
    double nodes = 0;
    size_t nesting = 0;
  };
  const Size& Of(const ContentNode& node);

  std::unordered_map<const ContentNode*, Size> known;
};

} // namespace Tesselor
