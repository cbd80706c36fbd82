// The part of ContentNode that writes the clipboard's form.

#include "document/NodeChildWriter.h"
#include "nodes/GenericContentNode.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePosition.h"

#include <string>

namespace Tesselor {

namespace {

bool IsPartOf(const NodeSet& selection, const ContentNode& node) {
  return selection.empty() || selection.contains(&node);
}

/// One node with what is selected below it. A node on which a cycle comes back is written with its type alone.
JsonPtr CopyOf(ContentNode& node, const NodeSet& selection, bool genericLayout, bool writePosition) {
  JsonPtr object(cJSON_CreateObject());
  if (auto* generic = Toolkit::DynamicCast<GenericContentNode>(&node))
    generic->SerializeWithId(object.get(), false, genericLayout);
  else if (NodeWriteScope::IsOpen(node))
    cJSON_AddStringToObject(object.get(), Keys::NodeId, node.TypeId().c_str());
  else if (writePosition)
    node.SerializeForCopy(object.get(), selection);
  else
    node.SerializeForCopy(object.get(), selection, false);
  return object;
}

/// `visited` holds the nodes that the array has already: a second one of them carries no position.
void CopyEntry(ContentNode& node, cJSON* array, const NodeSet& selection, NodeSet& visited) {
  if (!node.IsPassthrough()) {
    const bool isNew = visited.insert(&node).second;
    cJSON_AddItemToArray(array, CopyOf(node, selection, isNew, isNew).release());
    return;
  }
  if (NodeWriteScope::IsOpen(node)) return;
  const NodeWriteScope scope(node);
  for (size_t i = 0; i < node.Output().Count(); ++i)
    for (const NodePinData* other : node.Output().Get(i)->connections)
      if (IsPartOf(selection, *other->owner)) CopyEntry(*other->owner, array, selection, visited);
}

} // namespace

void ContentNode::SerializeForCopy(cJSON* json, const NodeSet& selection) { SerializeForCopy(json, selection, true); }

void ContentNode::SerializeForCopy(cJSON* json, const NodeSet& selection, bool writePosition) {
  const NodeWriteScope scope(*this);
  cJSON_AddStringToObject(json, Keys::NodeId, typeId.c_str());
  WriteTitle(json);
  WriteComment(json);
  if (writePosition) SavePosition(*this, json);
  for (const std::string& key : Blueprint().schemaKeys) {
    WriteSchemaField(json, key, false);
    WriteSchemaPinForCopy(json, key, selection);
  }
  WriteGenericPins(json, false);
}

void ContentNode::WriteSchemaPinForCopy(cJSON* json, const std::string& schemaKey, const NodeSet& selection) {
  const NodePinTarget* target = Blueprint().pinSchema.Find(schemaKey);
  const NodePinData* pin = target ? FindPin(target->pin) : nullptr;
  if (!pin) return;
  if (pin->blueprint->Multiple) {
    cJSON* array = cJSON_AddArrayToObject(json, schemaKey.c_str());
    NodeSet visited;
    for (const NodePinData* other : pin->connections)
      if (IsPartOf(selection, *other->owner)) CopyEntry(*other->owner, array, selection, visited);
    return;
  }
  for (const NodePinData* other : pin->connections) {
    if (!IsPartOf(selection, *other->owner)) continue;
    ContentNode* child = other->owner->IsPassthrough() ? FirstChildOf(*pin) : other->owner;
    if (child && IsPartOf(selection, *child))
      cJSON_AddItemToObject(json, schemaKey.c_str(), CopyOf(*child, selection, false, true).release());
    return;
  }
}

} // namespace Tesselor
