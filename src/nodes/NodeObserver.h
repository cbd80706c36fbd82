#pragma once

namespace Tesselor {

class ContentNode;

/// Whoever holds content nodes and has to follow them. A node has one at most, which outlives its registration.
class NodeObserver {
public:
  /// The node's UUID is about to change, and has changed.
  virtual void OnNodeIdChanging(ContentNode& node) = 0;
  virtual void OnNodeIdChanged(ContentNode& node) = 0;
  /// After layout: the node, or something in it, stands elsewhere or has another size.
  virtual void OnNodeLayoutChanged(ContentNode& node) = 0;

protected:
  ~NodeObserver() = default;
};

} // namespace Tesselor
