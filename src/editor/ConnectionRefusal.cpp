#include "editor/ConnectionRefusal.h"

#include "nodes/ContentNode.h"
#include "nodes/NodeKeys.h"

namespace Tesselor {

std::string NameOf(const NodePinData& pin) {
  return pin.Label().empty() ? pin.blueprint->id : std::string(pin.Label());
}

std::string ConnectionRefusal(const NodePinData& a, const NodePinData& b) {
  if (&a == &b) return "a pin can't be connected to itself";
  if (a.IsConnectedTo(b)) return "they are connected already";
  if (NodePinData::CanConnect(a, b)) return {};
  if (a.IsInput() == b.IsInput()) return a.IsInput() ? "both are inputs" : "both are outputs";
  const std::string &typeOfA = a.blueprint->Type, &typeOfB = b.blueprint->Type;
  if (typeOfA != typeOfB && typeOfA != BuiltIn::Generic && typeOfB != BuiltIn::Generic)
    return "the types " + typeOfA + " and " + typeOfB + " don't fit";
  const NodePinData& taken = a.blueprint->Multiple || a.connections.empty() ? b : a;
  return "\"" + NameOf(taken) + "\" of " + taken.owner->DisplayName() + " is taken";
}

} // namespace Tesselor
