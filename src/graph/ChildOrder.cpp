#include "graph/ChildOrder.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace Tesselor {

void ChildOrder::Note(NodePinData& pin, std::vector<NodePinData*> connections) {
  if (noted.insert(&pin).second) lists.push_back({Toolkit::Ptr<ContentNode>(pin.owner), &pin, std::move(connections)});
}

void ChildOrder::NoteParentsOf(const ContentNode& node) {
  for (size_t i = 0; i < node.Input().Count(); ++i)
    for (NodePinData* parent : node.Input().Get(i)->connections)
      if (!parent->IsInput()) Note(*parent);
}

void ChildOrder::Restore(const List& list) {
  std::vector<NodePinData*>& now = list.pin->connections;
  if (now == list.connections) return;
  std::unordered_map<const NodePinData*, size_t> ranks;
  for (size_t i = 0; i < list.connections.size(); ++i) ranks.emplace(list.connections[i], i);
  const auto rankOf = [&](const NodePinData* pin) {
    const auto found = ranks.find(pin);
    return found == ranks.end() ? ranks.size() : found->second;
  };
  std::stable_sort(now.begin(), now.end(),
                   [&](const NodePinData* a, const NodePinData* b) { return rankOf(a) < rankOf(b); });
}

} // namespace Tesselor
