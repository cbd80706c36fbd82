#pragma once

#include "nodes/ContentNode.h"

namespace Tesselor {

/// Holds a node in the set of those that are being written for as long as it lives.
class OpenNode {
public:
  OpenNode(NodeSet& open, const ContentNode& node) : open(open), node(node), isOwn(open.insert(&node).second) {}
  ~OpenNode() {
    if (isOwn) open.erase(&node);
  }
  OpenNode(const OpenNode&) = delete;
  OpenNode& operator=(const OpenNode&) = delete;

private:
  NodeSet& open;
  const ContentNode& node;
  /// A node may be entered again while it is being written.
  bool isOwn;
};

} // namespace Tesselor
