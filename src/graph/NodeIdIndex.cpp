#include "graph/NodeIdIndex.h"

#include "nodes/ContentNode.h"

namespace Tesselor {

void NodeIdIndex::Add(ContentNode& node) {
  if (!node.NodeId().empty()) nodes.emplace(std::pair(std::string_view(node.NodeId()), node.DocumentOrder()), &node);
}

void NodeIdIndex::Remove(ContentNode& node) {
  nodes.erase(std::pair(std::string_view(node.NodeId()), node.DocumentOrder()));
}

ContentNode* NodeIdIndex::Find(std::string_view id) const {
  const auto found = nodes.lower_bound(std::pair(id, uint64_t{0}));
  return found != nodes.end() && found->first.first == id ? found->second : nullptr;
}

} // namespace Tesselor
