#pragma once

#include "platform/JsonFile.h"

#include <vector>

namespace Tesselor {

class ContentNode;
class NodePinData;

/// The nodes that hang on an output pin, in order. Pass-through nodes leave no trace: what is behind them stands in
/// their place.
std::vector<ContentNode*> ChildrenOf(const NodePinData& pin);

/// The one node behind a pin that takes no more, pass-through nodes skipped: of each only the first connection counts.
/// Null if nothing but pass-through nodes is there.
ContentNode* FirstChildOf(const NodePinData& pin);

/// A node with all below it as an object of its own. A node that is being written already, which a cycle leads back
/// to, is written with its identity alone.
JsonPtr WriteChild(ContentNode& child, bool saveAllFields);

/// Marks a node as being written for as long as it lives.
class NodeWriteScope {
public:
  explicit NodeWriteScope(ContentNode& node);
  ~NodeWriteScope();
  NodeWriteScope(const NodeWriteScope&) = delete;
  NodeWriteScope& operator=(const NodeWriteScope&) = delete;

  static bool IsOpen(const ContentNode& node);

private:
  ContentNode& node;
  bool wasOpen;
};

} // namespace Tesselor
