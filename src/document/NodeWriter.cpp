#include "document/NodeWriter.h"

#include "document/AdditionalMembers.h"
#include "document/ChildWalk.h"
#include "document/CopyDetails.h"
#include "document/OpenNode.h"
#include "nodes/GenericContentNode.h"
#include "nodes/NodeKeys.h"
#include "nodes/ReferenceNode.h"

#include <string_view>

namespace Tesselor {

namespace {

constexpr std::string_view ConstantPrefix = "$Const:";

/// The JSON key of a schema key, whose suffix tells field and pin apart.
std::string StripPinSuffix(const std::string& schemaKey) {
  std::string key = schemaKey;
  for (const std::string_view suffix : {"$Ref", "$Pin"})
    if (const size_t found = key.find(suffix); found != std::string::npos) {
      key.erase(found, suffix.size());
      break;
    }
  return key;
}

/// Lets an object have the key once only, at the place where it stood.
void ReplaceOrAdd(cJSON* json, const std::string& key, JsonPtr value) {
  if (cJSON_GetObjectItemCaseSensitive(json, key.c_str()))
    cJSON_ReplaceItemInObjectCaseSensitive(json, key.c_str(), value.release());
  else
    cJSON_AddItemToObject(json, key.c_str(), value.release());
}

} // namespace

void NodeWriter::WriteNodeId(cJSON* json, ContentNode& node) {
  node.EnsureNodeId();
  cJSON_AddStringToObject(json, Keys::NodeId, node.Identity().c_str());
}

void NodeWriter::WriteTitle(cJSON* json, const ContentNode& node) {
  if (node.Title() != node.Blueprint().title)
    cJSON_AddStringToObject(json, Keys::Title, std::string(node.Title()).c_str());
}

void NodeWriter::WriteComment(cJSON* json, const ContentNode& node) {
  const std::string_view comment = node.GetFieldCommentData()->GetValue();
  if (!comment.empty() && comment != NoComment)
    cJSON_AddStringToObject(json, Keys::Comment, std::string(comment).c_str());
}

void NodeWriter::WriteBody(cJSON* json, ContentNode& node) {
  const OpenNode scope(open, node);
  WriteComment(json, node);
  for (const std::string& key : node.Blueprint().schemaKeys) {
    WriteSchemaField(json, node, key);
    WriteSchemaPin(json, node, key);
  }
  WriteGenericPins(json, node);
  if (node.IsPassthrough()) WriteChildren(json, node);
}

JsonPtr NodeWriter::WriteChild(ContentNode& child) {
  JsonPtr object(cJSON_CreateObject());
  if (open.contains(&child))
    WriteNodeId(object.get(), child);
  else if (Toolkit::DynamicCast<ReferenceNode>(&child))
    child.Serialize(object.get(), *this, NodeIdMember::Omitted);
  else
    child.SerializeChild(object.get(), *this);
  return object;
}

void NodeWriter::WriteSchemaField(cJSON* json, const ContentNode& node, const std::string& schemaKey) {
  const std::string* target = node.Blueprint().schema.Find(schemaKey);
  if (!target) return;
  const std::string key = StripPinSuffix(schemaKey);
  if (target->starts_with(ConstantPrefix))
    cJSON_AddStringToObject(json, key.c_str(), target->c_str() + ConstantPrefix.size());
  else if (BaseField* field = node.FindField(*target)) {
    if (ShouldWrite(*field)) field->Serialize(json, key);
  } else
    cJSON_AddStringToObject(json, key.c_str(), target->c_str());
}

void NodeWriter::WriteSchemaPin(cJSON* json, const ContentNode& node, const std::string& schemaKey) {
  const NodePinTarget* target = node.Blueprint().pinSchema.Find(schemaKey);
  const NodePinData* pin = target ? node.FindPin(target->pin) : nullptr;
  if (!pin) return;
  const std::string key = StripPinSuffix(schemaKey);
  if (!pin->blueprint->Multiple) {
    if (ContentNode* child = FirstChildOf(*pin)) ReplaceOrAdd(json, key, WriteChild(*child));
  } else if (pin->connections.empty()) {
    if (pin->hadArray) cJSON_AddArrayToObject(json, key.c_str());
  } else if (schemaKey == Keys::AdditionalProperties) {
    WriteAdditionalProperties(json, *pin);
  } else if (schemaKey == Keys::AdditionalParameters) {
    WriteAdditionalParameters(cJSON_AddObjectToObject(json, ParametersKey(*pin)), *pin);
  } else if (pin->IsMap()) {
    WriteMap(cJSON_AddObjectToObject(json, key.c_str()), *pin);
  } else {
    cJSON_DeleteItemFromObjectCaseSensitive(json, key.c_str());
    WriteArray(cJSON_AddArrayToObject(json, key.c_str()), *pin);
  }
}

void NodeWriter::WriteArray(cJSON* array, const NodePinData& pin) {
  for (ContentNode* child : ChildrenOf(pin)) cJSON_AddItemToArray(array, WriteChild(*child).release());
}

void NodeWriter::WriteMap(cJSON* map, const NodePinData& pin) {
  for (ContentNode* child : ChildrenOf(pin)) {
    JsonPtr object = WriteChild(*child);
    std::string key = child->mapKey;
    if (key.empty()) key = JsonText(cJSON_GetObjectItem(object.get(), Keys::Key)).value_or(std::string(child->Title()));
    cJSON_DeleteItemFromObject(object.get(), Keys::Key);
    if (cJSON* value = cJSON_GetObjectItem(object.get(), Keys::Value)) {
      cJSON_DetachItemViaPointer(object.get(), value);
      object.reset(value);
    }
    cJSON_AddItemToObject(map, key.c_str(), object.release());
  }
}

void NodeWriter::WriteAdditionalProperties(cJSON* json, const NodePinData& pin) {
  for (ContentNode* child : ChildrenOf(pin)) AddProperty(json, WriteChild(*child).get());
}

void NodeWriter::WriteAdditionalParameters(cJSON* container, const NodePinData& pin) {
  for (ContentNode* child : ChildrenOf(pin)) AddParameter(container, WriteChild(*child).get());
}

void NodeWriter::WriteGenericPins(cJSON* json, const ContentNode& node) {
  for (const auto& [key, pin] : node.pins) {
    if (pin->IsInput() || !key.starts_with(BuiltIn::Generic)) continue;
    GenericContentNode* generic = FirstGenericChildOf(*pin);
    if (!generic) continue;
    JsonPtr object(cJSON_CreateObject());
    if (details) details->Begin(*generic, *object);
    generic->SerializeWithId(object.get(), *this, NodeLayout::Omitted);
    cJSON_AddItemToObject(json, generic->TargetKey().c_str(), object.release());
  }
}

void NodeWriter::WriteChildren(cJSON* json, const ContentNode& node) {
  for (size_t i = 0; i < node.Output().Count(); ++i) {
    const NodePinData& pin = *node.Output().Get(i);
    if (!pin.connections.empty()) WriteArray(cJSON_AddArrayToObject(json, Keys::Children), pin);
  }
}

} // namespace Tesselor
