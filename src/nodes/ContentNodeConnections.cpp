// The part of ContentNode that reads and changes the connections of its pins.

#include "nodes/ContentNode.h"

#include <algorithm>

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

NodePinData* ContentNode::NumberingPin() const {
  for (size_t i = input->Count(); i-- > 0;) {
    const std::vector<NodePinData*>& parents = input->Get(i)->connections;
    const auto found = std::find_if(parents.rbegin(), parents.rend(), [](const NodePinData* parent) {
      return !parent->IsInput() && parent->blueprint->Multiple;
    });
    if (found != parents.rend()) return *found;
  }
  return nullptr;
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

void ContentNode::TakeOverRecord(const NodePinBlueprint* record) {
  const auto resolve = [record](NodePinData& pin) { pin.SetResolvedBlueprint(record); };
  ForEachPin(*input, resolve);
  ForEachPin(*output, resolve);
}

} // namespace Tesselor
