// The part of ContentNode that writes itself and all below it into a JSON object.

#include "document/NodeChildWriter.h"
#include "nodes/GenericContentNode.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePosition.h"

#include <string>
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

void ContentNode::Serialize(cJSON* json, bool writeNodeId, bool saveAllFields) {
  if (writeNodeId) WriteNodeId(json);
  WriteBody(json, saveAllFields);
}

void ContentNode::SerializeChild(cJSON* json, bool saveAllFields) { SerializeWithId(json, saveAllFields, false); }

void ContentNode::SerializeWithId(cJSON* json, bool saveAllFields, bool writeLayout) {
  WriteNodeId(json);
  if (writeLayout) {
    WriteTitle(json);
    SavePosition(*this, json);
  }
  WriteBody(json, saveAllFields);
}

void ContentNode::WriteBody(cJSON* json, bool saveAllFields) {
  const NodeWriteScope scope(*this);
  WriteComment(json);
  for (const std::string& key : Blueprint().schemaKeys) {
    WriteSchemaField(json, key, saveAllFields);
    WriteSchemaPin(json, key, saveAllFields);
  }
  WriteGenericPins(json, saveAllFields);
  if (IsPassthrough()) WriteChildren(json, saveAllFields);
}

void ContentNode::WriteNodeId(cJSON* json) {
  EnsureNodeId();
  cJSON_AddStringToObject(json, Keys::NodeId, Identity().c_str());
}

void ContentNode::WriteTitle(cJSON* json) const {
  if (Title() != Blueprint().title) cJSON_AddStringToObject(json, Keys::Title, std::string(Title()).c_str());
}

void ContentNode::WriteComment(cJSON* json) const {
  const std::string_view comment = fieldCommentData->GetValue();
  if (!comment.empty() && comment != NoComment)
    cJSON_AddStringToObject(json, Keys::Comment, std::string(comment).c_str());
}

void ContentNode::WriteSchemaField(cJSON* json, const std::string& schemaKey, bool saveAllFields) {
  const std::string* target = Blueprint().schema.Find(schemaKey);
  if (!target) return;
  const std::string key = StripPinSuffix(schemaKey);
  if (target->starts_with(ConstantPrefix))
    cJSON_AddStringToObject(json, key.c_str(), target->c_str() + ConstantPrefix.size());
  else if (BaseField* field = FindField(*target)) {
    if (saveAllFields || field->ShouldSerialize()) field->Serialize(json, key);
  } else
    cJSON_AddStringToObject(json, key.c_str(), target->c_str());
}

void ContentNode::WriteSchemaPin(cJSON* json, const std::string& schemaKey, bool saveAllFields) {
  const NodePinTarget* target = Blueprint().pinSchema.Find(schemaKey);
  const NodePinData* pin = target ? FindPin(target->pin) : nullptr;
  if (!pin) return;
  const std::string key = StripPinSuffix(schemaKey);
  if (!pin->blueprint->Multiple) {
    if (ContentNode* child = FirstChildOf(*pin)) ReplaceOrAdd(json, key, WriteChild(*child, saveAllFields));
  } else if (pin->connections.empty()) {
    if (pin->hadArray) cJSON_AddArrayToObject(json, key.c_str());
  } else if (schemaKey == Keys::AdditionalProperties) {
    WriteAdditionalProperties(json, *pin, saveAllFields);
  } else if (schemaKey == Keys::AdditionalParameters) {
    WriteAdditionalParameters(json, *pin, saveAllFields);
  } else if (pin->IsMap()) {
    WriteMap(json, key, *pin, saveAllFields);
  } else {
    cJSON_DeleteItemFromObjectCaseSensitive(json, key.c_str());
    cJSON* array = cJSON_AddArrayToObject(json, key.c_str());
    for (ContentNode* child : ChildrenOf(*pin))
      cJSON_AddItemToArray(array, WriteChild(*child, saveAllFields).release());
  }
}

void ContentNode::WriteMap(cJSON* json, const std::string& key, const NodePinData& pin, bool saveAllFields) {
  cJSON* map = cJSON_AddObjectToObject(json, key.c_str());
  for (ContentNode* child : ChildrenOf(pin)) {
    JsonPtr object = WriteChild(*child, saveAllFields);
    std::string childKey = child->mapKey;
    if (childKey.empty())
      childKey = JsonText(cJSON_GetObjectItem(object.get(), Keys::Key)).value_or(std::string(child->Title()));
    cJSON_DeleteItemFromObject(object.get(), Keys::Key);
    if (cJSON* value = cJSON_GetObjectItem(object.get(), Keys::Value)) {
      cJSON_DetachItemViaPointer(object.get(), value);
      object.reset(value);
    }
    cJSON_AddItemToObject(map, childKey.c_str(), object.release());
  }
}

void ContentNode::WriteGenericPins(cJSON* json, bool saveAllFields) {
  for (const auto& [key, pin] : pins) {
    if (pin->IsInput() || !key.starts_with(BuiltIn::Generic)) continue;
    for (ContentNode* child : ChildrenOf(*pin)) {
      auto* generic = Toolkit::DynamicCast<GenericContentNode>(child);
      if (!generic) continue;
      JsonPtr object(cJSON_CreateObject());
      generic->SerializeWithId(object.get(), saveAllFields, false);
      cJSON_AddItemToObject(json, generic->TargetKey().c_str(), object.release());
      break;
    }
  }
}

void ContentNode::WriteChildren(cJSON* json, bool saveAllFields) {
  for (size_t i = 0; i < output->Count(); ++i) {
    const NodePinData& pin = *output->Get(i);
    if (pin.connections.empty()) continue;
    cJSON* array = cJSON_AddArrayToObject(json, Keys::Children);
    for (ContentNode* child : ChildrenOf(pin)) cJSON_AddItemToArray(array, WriteChild(*child, saveAllFields).release());
  }
}

} // namespace Tesselor
