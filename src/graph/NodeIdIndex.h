#pragma once

#include <cstdint>
#include <map>
#include <string_view>
#include <utility>

namespace Tesselor {

class ContentNode;

/// Finds content nodes by their UUIDs. Owns nothing: a node is added when it joins the graph and removed when it
/// leaves, and around a change of its id in between as well.
class NodeIdIndex {
public:
  void Add(ContentNode& node);
  void Remove(ContentNode& node);
  void Clear() { nodes.clear(); }

  /// Of nodes with the same id the first of the document; null if there is none. Empty ids are never found.
  ContentNode* Find(std::string_view id) const;

private:
  // The texts are the nodes' own.
  std::map<std::pair<std::string_view, uint64_t>, ContentNode*> nodes;
};

} // namespace Tesselor
