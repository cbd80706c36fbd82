// The part of NodeWriter that writes the clipboard's form.

#include "document/ChildWalk.h"
#include "document/CopyDetails.h"
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
  if (node.IsPassthrough())
    WriteChildrenOfCopy(json, node);
  else
    WriteGenericPins(json, node);
}

JsonPtr NodeWriter::WriteTopOfCopy(ContentNode& node) {
  return WriteCopyOf(node, NodeLayout::Omitted, NodeLayout::Written);
}

/// A node on which a cycle comes back is written with its type alone.
JsonPtr NodeWriter::WriteCopyOf(ContentNode& child, NodeLayout genericPosition, NodeLayout position) {
  JsonPtr object(cJSON_CreateObject());
  // A node takes at least one level of the text.
  isTooDeep |= depth >= JsonNestingLimit;
  if (isTooDeep) return object;
  ++depth;
  const bool isWhole = !details || details->Begin(child, *object);
  if (auto* generic = Toolkit::DynamicCast<GenericContentNode>(&child))
    generic->SerializeWithId(object.get(), *this, genericPosition);
  else if (open.contains(&child) || !isWhole)
    cJSON_AddStringToObject(object.get(), Keys::NodeId, child.TypeId().c_str());
  else
    child.SerializeForCopy(object.get(), *this, position);
  --depth;
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
  ChildWalk walk(pin, selection, open, details ? &details->repeats : nullptr);
  while (ContentNode* child = walk.Next()) {
    const NodeLayout position = visited.insert(child).second ? NodeLayout::Written : NodeLayout::Omitted;
    cJSON_AddItemToArray(array, WriteCopyOf(*child, position, position).release());
  }
}

/// A link that is written itself, because nothing of the copy leads to it, holds what it leads to.
void NodeWriter::WriteChildrenOfCopy(cJSON* json, const ContentNode& link) {
  const NodePinData* pin = link.FirstOutput();
  if (!pin) return;
  JsonPtr children(cJSON_CreateArray());
  WriteArrayOfCopies(children.get(), *pin);
  if (children->child) cJSON_AddItemToObject(json, Keys::Children, children.release());
}

} // namespace Tesselor
