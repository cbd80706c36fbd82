#include "document/ChildWalk.h"

#include "nodes/GenericContentNode.h"

namespace Tesselor {

bool IsPartOf(const NodeSet& selection, const ContentNode& node) {
  return selection.empty() || selection.contains(&node);
}

ChildWalk::ChildWalk(const NodePinData& pin, const NodeSet& selection, NodeSet& open, size_t* repeats)
    : selection(selection), open(open), repeats(repeats), levels{{nullptr, &pin}} {}

ChildWalk::~ChildWalk() {
  for (const Level& level : levels)
    if (level.link) open.erase(level.link);
}

ContentNode* ChildWalk::Next() {
  while (!levels.empty()) {
    Level& level = levels.back();
    if (level.connection >= level.pin->connections.size()) {
      LeavePin();
      continue;
    }
    ContentNode& owner = *level.pin->connections[level.connection++]->owner;
    if (!IsPartOf(selection, owner)) continue;
    if (!owner.IsPassthrough()) return &owner;
    if (owner.FirstOutput() && MayEnter(owner) && open.insert(&owner).second)
      levels.push_back({&owner, owner.FirstOutput()});
  }
  return nullptr;
}

std::vector<const ContentNode*> ChildWalk::Links() const {
  std::vector<const ContentNode*> links;
  for (size_t i = 1; i < levels.size(); ++i) links.push_back(levels[i].link);
  return links;
}

bool ChildWalk::MayEnter(const ContentNode& link) {
  if (!repeats || entered.insert(&link).second) return true;
  if (*repeats == 0) return false;
  --*repeats;
  return true;
}

void ChildWalk::LeavePin() {
  Level& level = levels.back();
  if (level.link && ++level.output < level.link->Output().Count()) {
    level.pin = level.link->Output().Get(level.output);
    level.connection = 0;
    return;
  }
  if (level.link) open.erase(level.link);
  levels.pop_back();
}

std::vector<ContentNode*> ChildrenOf(const NodePinData& pin) {
  static const NodeSet all;
  std::vector<ContentNode*> children;
  children.reserve(pin.connections.size());
  NodeSet open;
  ChildWalk walk(pin, all, open);
  while (ContentNode* child = walk.Next()) children.push_back(child);
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

GenericContentNode* FirstGenericChildOf(const NodePinData& pin) {
  std::vector<const NodePinData*> waiting(pin.connections.rbegin(), pin.connections.rend());
  NodeSet passed;
  while (!waiting.empty()) {
    ContentNode& node = *waiting.back()->owner;
    waiting.pop_back();
    if (auto* generic = Toolkit::DynamicCast<GenericContentNode>(&node)) return generic;
    if (!node.IsPassthrough() || !passed.insert(&node).second) continue;
    for (size_t i = node.Output().Count(); i-- > 0;) {
      const std::vector<NodePinData*>& behind = node.Output().Get(i)->connections;
      waiting.insert(waiting.end(), behind.rbegin(), behind.rend());
    }
  }
  return nullptr;
}

} // namespace Tesselor
