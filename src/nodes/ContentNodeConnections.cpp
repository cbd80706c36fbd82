// The part of ContentNode that reads and changes the connections of its pins.

#include "nodes/ContentNode.h"

#include <utility>

namespace Tesselor {

namespace {

template <class Visit> void ForEachPin(const ContentNode::Pins& pins, Visit visit) {
  for (size_t i = 0; i < pins.Count(); ++i) visit(*pins.Get(i));
}

/// The one type of all that is connected to a side; "Generic" counts as no type. False if there are two.
bool FindCommonType(const ContentNode::Pins& pins, const std::string*& type) {
  for (size_t i = 0; i < pins.Count(); ++i)
    for (const NodePinData* other : pins.Get(i)->connections) {
      const std::string& otherType = other->EffectiveBlueprint().Type;
      if (otherType == "Generic") continue;
      if (type && *type != otherType) return false;
      type = &otherType;
    }
  return true;
}

} // namespace

void ContentNode::DisconnectAllPins() {
  ForEachPin(*input, [](NodePinData& pin) { pin.DisconnectAll(); });
  ForEachPin(*output, [](NodePinData& pin) { pin.DisconnectAll(); });
}

void ContentNode::ForgetConnections() {
  ForEachPin(*input, [](NodePinData& pin) { pin.connections.clear(); });
  ForEachPin(*output, [](NodePinData& pin) { pin.connections.clear(); });
}

void ContentNode::ToggleUnusedOutputPins() {
  ForEachPin(*output, [](NodePinData& pin) {
    if (pin.connections.empty()) pin.SetVisible(!pin.IsVisible());
  });
}

bool ContentNode::ComputeLinkValidity() const {
  if (!IsPassthrough()) return true;
  const std::string* inputType = nullptr;
  const std::string* outputType = nullptr;
  if (!FindCommonType(*input, inputType) || !FindCommonType(*output, outputType)) return false;
  return !inputType || !outputType || *inputType == *outputType;
}

void ContentNode::PropagateLinkType() {
  // A chain of links may be as long as a document, so the neighbours wait in a list and not on the stack.
  NodeSet visited;
  std::vector<ContentNode*> waiting{this};
  while (!waiting.empty()) {
    ContentNode* node = waiting.back();
    waiting.pop_back();
    if (!node->IsPassthrough() || !visited.insert(node).second) continue;
    std::vector<ContentNode*> neighbours = node->TakeOverLinkType();
    waiting.insert(waiting.end(), neighbours.rbegin(), neighbours.rend());
  }
}

std::vector<ContentNode*> ContentNode::TakeOverLinkType() {
  std::vector<ContentNode*> neighbours;
  const NodePinBlueprint* found = nullptr;
  const auto collect = [&](const NodePinData& pin) {
    for (const NodePinData* other : pin.connections) {
      if (other->owner && other->owner->IsPassthrough()) neighbours.push_back(other->owner);
      if (!found && other->EffectiveBlueprint().Type != "Generic") found = &other->EffectiveBlueprint();
    }
  };
  ForEachPin(*input, collect);
  ForEachPin(*output, collect);
  const NodePinBlueprint* previous = FirstInput() ? &FirstInput()->EffectiveBlueprint() : nullptr;
  const auto resolve = [found](NodePinData& pin) { pin.SetResolvedBlueprint(found); };
  ForEachPin(*input, resolve);
  ForEachPin(*output, resolve);
  if (previous == found) neighbours.clear();
  return neighbours;
}

} // namespace Tesselor
