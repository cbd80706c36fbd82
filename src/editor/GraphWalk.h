#pragma once

namespace Tesselor {

class BaseNode;
class Graph;

enum class WalkTo { Parent, FirstChild, PreviousSibling, NextSibling };

/// Where a step from one node along the connections leads. Nodes without a parent are each other's siblings, groups and
/// comments after them, so that everything can be reached. Null if there is nothing that way.
BaseNode* NeighbourOf(const BaseNode& node, const Graph& graph, WalkTo way);
/// Where a walk begins: at the root, else at the first of what has no parent. Null in an empty graph.
BaseNode* StartOfWalk(const Graph& graph);

} // namespace Tesselor
