// The part of NodeDictionary that makes nodes: the dictionary itself knows nothing of controls.

#include "fields/FieldFactory.h"
#include "nodes/GenericContentNode.h"
#include "nodes/NodeKeys.h"
#include "nodes/ReferenceNode.h"
#include "platform/MessageBoxes.h"
#include "workspace/NodeDictionary.h"

namespace Tesselor {

namespace {

void CreatePins(bool isInput, ContentNode& node, const std::vector<std::unique_ptr<NodePinBlueprint>>& pins) {
  for (const auto& pin : pins) {
    for (int32_t i = 0; i < pin->SpacingAbove; ++i) node.AddPin(isInput, NodePinData::BlankBlueprint());
    node.AddPin(isInput, *pin);
    // A pin's fields always start from their defaults. A field that can't be made is left out.
    for (const auto& entry : pin->fields)
      if (const Toolkit::Ptr<BaseField> field = sCreateField(entry.get(), true))
        node.AddField(entry->Id, *field, isInput ? FieldPlacement::InputPin : FieldPlacement::OutputPin);
  }
}

} // namespace

Toolkit::Ptr<ContentNode> NodeDictionary::CreateNode(const std::string& id, bool applyDefaults) const {
  const NodeBlueprint* blueprint = FindBlueprint(id);
  Toolkit::Ptr<ContentNode> node;
  if (id != BuiltIn::Generic && blueprint && blueprint->isReference) {
    node = Toolkit::MakePtr<ReferenceNode>(id, *blueprint);
    CreatePins(true, *node, blueprint->inputs);
    return node;
  }
  if (id != BuiltIn::Generic && blueprint) {
    node = Toolkit::MakePtr<ContentNode>(id, *blueprint);
  } else {
    if (!blueprint) {
      ShowError("Could not find node id: " + id + ". A generic node will be created", AttentionCaption);
      blueprint = FindBlueprint(BuiltIn::Generic);
    }
    node = Toolkit::MakePtr<GenericContentNode>(*blueprint);
  }

  CreatePins(true, *node, blueprint->inputs);
  CreatePins(false, *node, blueprint->outputs);
  for (const auto& entry : blueprint->content) {
    const Toolkit::Ptr<BaseField> field = sCreateField(entry.get(), applyDefaults);
    if (!field) return nullptr;
    node->AddField(entry->Id, *field, FieldPlacement::Body);
  }
  return node;
}

} // namespace Tesselor
