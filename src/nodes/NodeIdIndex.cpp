#include "nodes/NodeIdIndex.h"

#include "nodes/ContentNode.h"

namespace Tesselor {

void NodeIdIndex::Add(ContentNode& node) {
  if (node.idIndex) node.idIndex->Remove(node);
  node.idIndex = this;
  node.idOrder = nextOrder++;
  nodesByOrder.emplace(node.idOrder, &node);
  IdChanged(node);
}

void NodeIdIndex::Remove(ContentNode& node) {
  if (node.idIndex != this) return;
  IdChanging(node);
  nodesByOrder.erase(node.idOrder);
  node.idIndex = nullptr;
}

void NodeIdIndex::Clear() {
  nodesById.clear();
  for (const auto& [order, node] : nodesByOrder) node->idIndex = nullptr;
  nodesByOrder.clear();
}

ContentNode* NodeIdIndex::Find(std::string_view id) const {
  const auto found = nodesById.lower_bound(Key(id, 0));
  return found != nodesById.end() && found->first.first == id ? found->second : nullptr;
}

void NodeIdIndex::IdChanging(ContentNode& node) { nodesById.erase(Key(node.nodeId, node.idOrder)); }

void NodeIdIndex::IdChanged(ContentNode& node) {
  if (!node.nodeId.empty()) nodesById.emplace(Key(node.nodeId, node.idOrder), &node);
}

} // namespace Tesselor
