#include "document/StandIn.h"

#include "fields/FieldFactory.h"
#include "nodes/GenericContentNode.h"
#include "nodes/NodeKeys.h"
#include "workspace/NodeDictionary.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace Tesselor {

bool HasPinFields(const NodeBlueprint& blueprint) {
  const auto areComplete = [](const std::vector<std::unique_ptr<NodePinBlueprint>>& pins) {
    return std::all_of(pins.begin(), pins.end(), [](const auto& pin) {
      return std::all_of(pin->fields.begin(), pin->fields.end(),
                         [](const auto& field) { return IsFieldType(field->Type); });
    });
  };
  return areComplete(blueprint.inputs) && areComplete(blueprint.outputs);
}

Toolkit::Ptr<ContentNode> MakeNodeOrStandIn(const NodeDictionary& dictionary, const std::string& id,
                                            const std::string& identity) {
  Toolkit::Ptr<ContentNode> node = dictionary.CreateNode(id, true);
  if (node && HasPinFields(node->Blueprint())) {
    MarkStandIn(dictionary, *node, id, identity);
    return node;
  }
  node = dictionary.CreateNode(BuiltIn::Generic, false);
  static_cast<GenericContentNode&>(*node).StandFor(id, identity);
  return node;
}

void MarkStandIn(const NodeDictionary& dictionary, ContentNode& node, const std::string& id,
                 const std::string& identity) {
  auto* generic = Toolkit::DynamicCast<GenericContentNode>(&node);
  if (generic && dictionary.lacksSchemas && id != BuiltIn::Generic) generic->StandFor(id, identity);
}

StandInRecord* StandInOf(const ContentNode& node) {
  const auto* generic = Toolkit::DynamicCast<GenericContentNode>(&node);
  return generic ? generic->StandsFor() : nullptr;
}

bool IsStandIn(const ContentNode& node) { return StandInOf(node) != nullptr; }

} // namespace Tesselor
