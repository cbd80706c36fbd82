#include "editor/GraphWalk.h"

#include "graph/Graph.h"
#include "nodes/CommentNode.h"
#include "nodes/GroupNode.h"

#include <algorithm>
#include <vector>

namespace Tesselor {

namespace {

using Nodes = std::vector<BaseNode*>;

ContentNode* ParentOf(const BaseNode& node) {
  const auto* content = Toolkit::DynamicCast<ContentNode>(&node);
  for (size_t i = 0; content && i < content->Input().Count(); ++i)
    if (const auto& connections = content->Input().Get(i)->connections; !connections.empty())
      return connections.front()->owner;
  return nullptr;
}

/// In the order of the pins, each once.
Nodes ChildrenOf(const BaseNode& node) {
  Nodes children;
  const auto* content = Toolkit::DynamicCast<ContentNode>(&node);
  for (size_t i = 0; content && i < content->Output().Count(); ++i)
    for (const NodePinData* pin : content->Output().Get(i)->connections)
      if (std::find(children.begin(), children.end(), pin->owner) == children.end()) children.push_back(pin->owner);
  return children;
}

Nodes WithoutParent(const Graph& graph) {
  Nodes nodes;
  const auto add = [&](const auto& list) {
    for (const auto& node : list)
      if (!ParentOf(*node)) nodes.push_back(node.Get());
  };
  add(graph.ContentNodes());
  add(graph.GroupNodes());
  add(graph.CommentNodes());
  return nodes;
}

} // namespace

BaseNode* NeighbourOf(const BaseNode& node, const Graph& graph, WalkTo way) {
  ContentNode* parent = ParentOf(node);
  if (way == WalkTo::Parent) return parent;
  if (way == WalkTo::FirstChild) {
    const Nodes children = ChildrenOf(node);
    return children.empty() ? nullptr : children.front();
  }
  const Nodes siblings = parent ? ChildrenOf(*parent) : WithoutParent(graph);
  const auto at = std::find(siblings.begin(), siblings.end(), &node);
  if (at == siblings.end()) return nullptr;
  if (way == WalkTo::NextSibling) return at + 1 == siblings.end() ? nullptr : *(at + 1);
  return at == siblings.begin() ? nullptr : *(at - 1);
}

BaseNode* StartOfWalk(const Graph& graph) {
  if (graph.Root() && graph.Contains(*graph.Root())) return graph.Root();
  const Nodes nodes = WithoutParent(graph);
  return nodes.empty() ? nullptr : nodes.front();
}

} // namespace Tesselor
