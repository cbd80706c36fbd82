#include "document/NodeChildWriter.h"

#include "nodes/ContentNode.h"
#include "nodes/NodeKeys.h"
#include "nodes/ReferenceNode.h"

#include <string>

namespace Tesselor {

namespace {

/// `open` holds the pass-through nodes on the way, so that a ring of them ends.
void Collect(const NodePinData& pin, std::vector<ContentNode*>& children, NodeSet& open) {
  for (const NodePinData* other : pin.connections) {
    ContentNode* owner = other->owner;
    if (!owner->IsPassthrough()) {
      children.push_back(owner);
      continue;
    }
    if (!open.insert(owner).second) continue;
    for (size_t i = 0; i < owner->Output().Count(); ++i) Collect(*owner->Output().Get(i), children, open);
    open.erase(owner);
  }
}

} // namespace

std::vector<ContentNode*> ChildrenOf(const NodePinData& pin) {
  std::vector<ContentNode*> children;
  children.reserve(pin.connections.size());
  NodeSet open;
  Collect(pin, children, open);
  return children;
}

ContentNode* FirstChildOf(const NodePinData& pin) {
  const NodePinData* next = pin.connections.empty() ? nullptr : pin.connections.front();
  if (!next || !next->owner->IsPassthrough()) return next ? next->owner : nullptr;
  // The first pass-through node goes on by its first output pin only.
  ContentNode* node = next->owner;
  if (!node->FirstOutput() || node->FirstOutput()->connections.empty()) return nullptr;
  NodeSet passed;
  while (node->IsPassthrough() && passed.insert(node).second) {
    const NodePinData* connected = nullptr;
    for (size_t i = 0; i < node->Output().Count() && !connected; ++i)
      if (!node->Output().Get(i)->connections.empty()) connected = node->Output().Get(i);
    if (!connected) return nullptr;
    node = connected->connections.front()->owner;
  }
  return node->IsPassthrough() ? nullptr : node;
}

JsonPtr WriteChild(ContentNode& child, bool saveAllFields) {
  JsonPtr object(cJSON_CreateObject());
  if (NodeWriteScope::IsOpen(child)) {
    child.EnsureNodeId();
    cJSON_AddStringToObject(object.get(), Keys::NodeId, child.Identity().c_str());
  } else if (Toolkit::DynamicCast<ReferenceNode>(&child)) {
    child.Serialize(object.get(), false, saveAllFields);
  } else {
    child.SerializeChild(object.get(), saveAllFields);
  }
  return object;
}

NodeWriteScope::NodeWriteScope(ContentNode& node) : node(node), wasOpen(node.isBeingWritten) {
  node.isBeingWritten = true;
}

NodeWriteScope::~NodeWriteScope() { node.isBeingWritten = wasOpen; }

bool NodeWriteScope::IsOpen(const ContentNode& node) { return node.isBeingWritten; }

} // namespace Tesselor
