// The part of NodeWriter that writes the clipboard's form.

#include "document/ChildWalk.h"
#include "document/NodeWriter.h"
#include "document/OpenNode.h"
#include "nodes/GenericContentNode.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePosition.h"

namespace Tesselor {

void NodeWriter::WriteCopy(cJSON* json, ContentNode& node, NodeLayout position) {
  const OpenNode scope(open, node);
  cJSON_AddStringToObject(json, Keys::NodeId, node.TypeId().c_str());
  WriteTitle(json, node);
  WriteComment(json, node);
  if (position == NodeLayout::Written) SavePosition(node, json);
  for (const std::string& key : node.Blueprint().schemaKeys) {
    WriteSchemaField(json, node, key);
    WriteSchemaPinOfCopy(json, node, key);
  }
  WriteGenericPins(json, node);
}

/// A node on which a cycle comes back is written with its type alone.
JsonPtr NodeWriter::WriteCopyOf(ContentNode& child, NodeLayout genericPosition, NodeLayout position) {
  JsonPtr object(cJSON_CreateObject());
  if (auto* generic = Toolkit::DynamicCast<GenericContentNode>(&child))
    generic->SerializeWithId(object.get(), *this, genericPosition);
  else if (open.contains(&child))
    cJSON_AddStringToObject(object.get(), Keys::NodeId, child.TypeId().c_str());
  else
    child.SerializeForCopy(object.get(), *this, position);
  return object;
}

void NodeWriter::WriteSchemaPinOfCopy(cJSON* json, const ContentNode& node, const std::string& schemaKey) {
  const NodePinTarget* target = node.Blueprint().pinSchema.Find(schemaKey);
  const NodePinData* pin = target ? node.FindPin(target->pin) : nullptr;
  if (!pin) return;
  if (pin->blueprint->Multiple) {
    WriteArrayOfCopies(cJSON_AddArrayToObject(json, schemaKey.c_str()), *pin);
    return;
  }
  for (const NodePinData* other : pin->connections) {
    if (!IsPartOf(selection, *other->owner)) continue;
    ContentNode* child = other->owner->IsPassthrough() ? FirstChildOf(*pin) : other->owner;
    if (child && IsPartOf(selection, *child))
      cJSON_AddItemToObject(json, schemaKey.c_str(),
                            WriteCopyOf(*child, NodeLayout::Omitted, NodeLayout::Written).release());
    return;
  }
}

void NodeWriter::WriteArrayOfCopies(cJSON* array, const NodePinData& pin) {
  // A node that stands in the array already carries no position.
  NodeSet visited;
  ChildWalk walk(pin, selection, open);
  while (ContentNode* child = walk.Next()) {
    const NodeLayout position = visited.insert(child).second ? NodeLayout::Written : NodeLayout::Omitted;
    cJSON_AddItemToArray(array, WriteCopyOf(*child, position, position).release());
  }
}

} // namespace Tesselor
