#include "graph/LinkTypes.h"

#include <unordered_map>

namespace Tesselor {

namespace {

constexpr char Wildcard[] = "Generic";

/// Calls `visit` with every pin that is connected to one of the node's, inputs first, until it returns true.
template <class Visit> bool VisitConnected(const ContentNode& node, Visit visit) {
  for (const ContentNode::Pins* pins : {&node.Input(), &node.Output()})
    for (size_t i = 0; i < pins->Count(); ++i)
      for (NodePinData* other : pins->Get(i)->connections)
        if (visit(*other)) return true;
  return false;
}

/// The pass-through nodes that are joined to the given ones, themselves included, each once.
std::vector<ContentNode*> CollectJoined(const std::vector<ContentNode*>& changed) {
  std::vector<ContentNode*> joined;
  NodeSet seen;
  const auto add = [&](ContentNode& node) {
    if (node.IsPassthrough() && seen.insert(&node).second) joined.push_back(&node);
  };
  for (ContentNode* node : changed) add(*node);
  for (size_t next = 0; next < joined.size(); ++next)
    VisitConnected(*joined[next], [&](NodePinData& other) {
      add(*other.owner);
      return false;
    });
  return joined;
}

/// The record of the first pin of another kind of node that is connected and is no wild card; null if there is none.
const NodePinBlueprint* OwnRecord(const ContentNode& link) {
  const NodePinBlueprint* found = nullptr;
  VisitConnected(link, [&found](const NodePinData& other) {
    if (!other.owner->IsPassthrough() && other.blueprint->Type != Wildcard) found = other.blueprint;
    return found != nullptr;
  });
  return found;
}

using Records = std::unordered_map<const ContentNode*, const NodePinBlueprint*>;

/// Gives the neighbours of `reached` that have no record yet the one of their own first neighbour that has, and returns
/// them. All of them look at what was known before, so that the order of `reached` does not count.
std::vector<ContentNode*> HandOn(const std::vector<ContentNode*>& reached, Records& records) {
  std::vector<ContentNode*> next;
  NodeSet seen;
  for (const ContentNode* link : reached)
    VisitConnected(*link, [&](const NodePinData& other) {
      ContentNode* owner = other.owner;
      if (owner->IsPassthrough() && !records.contains(owner) && seen.insert(owner).second) next.push_back(owner);
      return false;
    });
  std::vector<const NodePinBlueprint*> found;
  for (const ContentNode* link : next)
    VisitConnected(*link, [&](const NodePinData& other) {
      const auto record = records.find(other.owner);
      if (record == records.end()) return false;
      found.push_back(record->second);
      return true;
    });
  for (size_t i = 0; i < next.size(); ++i) records.emplace(next[i], found[i]);
  return next;
}

} // namespace

void RefreshLinkTypes(const std::vector<ContentNode*>& changed) {
  const std::vector<ContentNode*> joined = CollectJoined(changed);
  Records records;
  std::vector<ContentNode*> reached;
  for (ContentNode* link : joined)
    if (const NodePinBlueprint* record = OwnRecord(*link)) {
      records.emplace(link, record);
      reached.push_back(link);
    }
  while (!reached.empty()) reached = HandOn(reached, records);
  for (ContentNode* link : joined) {
    const auto record = records.find(link);
    link->TakeOverRecord(record == records.end() ? nullptr : record->second);
  }
  for (ContentNode* link : joined) link->SetValue(ContentNode::IsLinkValidProperty, link->ComputeLinkValidity());
}

} // namespace Tesselor
