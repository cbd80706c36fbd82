#pragma once

#include <cstdint>
#include <map>
#include <string_view>
#include <utility>

namespace Tesselor {

class ContentNode;

/// Finds the content nodes of a view by their UUIDs. The view adds a node when it takes it into its list and removes
/// it again with it; a change of a node's id in between reaches the index by itself. Owns nothing.
class NodeIdIndex {
public:
  NodeIdIndex() = default;
  ~NodeIdIndex() { Clear(); }
  NodeIdIndex(const NodeIdIndex&) = delete;
  NodeIdIndex& operator=(const NodeIdIndex&) = delete;

  void Add(ContentNode& node);
  void Remove(ContentNode& node);
  void Clear();

  /// Of nodes with the same id the one that was added first; null if there is none. Empty ids are never found.
  ContentNode* Find(std::string_view id) const;

private:
  friend class ContentNode;
  using Key = std::pair<std::string_view, uint64_t>;
  void IdChanging(ContentNode& node);
  void IdChanged(ContentNode& node);

  // The texts are the nodes' own.
  std::map<Key, ContentNode*> nodesById;
  std::map<uint64_t, ContentNode*> nodesByOrder;
  uint64_t nextOrder = 1;
};

} // namespace Tesselor
