// The part of ContentNode that turns members which the schema doesn't name into property and parameter nodes, and
// writes those back.

#include "document/NodeChildWriter.h"
#include "document/PropertyText.h"
#include "graph/Graph.h"
#include "nodes/ContentNode.h"
#include "nodes/NodeKeys.h"
#include "platform/JsonFile.h"
#include "platform/LogFile.h"
#include "workspace/Workspace.h"

namespace Tesselor {

namespace {

constexpr char PropertyType[] = "PropertyType";
constexpr char Direct[] = "Direct";
constexpr char Compute[] = "Compute";
constexpr char PropertyValue[] = "Value";
constexpr char Description[] = "Description";
constexpr char DefaultContainer[] = "Parameters";

JsonPtr PropertyObject(const cJSON* member) {
  JsonPtr object(cJSON_CreateObject());
  cJSON_AddStringToObject(object.get(), Keys::Key, member->string);
  if (cJSON_IsNull(member)) return object;
  const auto formula = cJSON_IsObject(member) ? JsonText(cJSON_GetObjectItem(member, Compute)) : std::nullopt;
  cJSON_AddStringToObject(object.get(), PropertyType, formula ? Compute : Direct);
  cJSON_AddStringToObject(object.get(), PropertyValue, (formula ? *formula : PropertyText(member)).c_str());
  return object;
}

JsonPtr ParameterObject(const cJSON* parameter) {
  JsonPtr object(cJSON_CreateObject());
  cJSON_AddStringToObject(object.get(), Keys::Key, parameter->string);
  if (const cJSON* value = cJSON_GetObjectItem(parameter, PropertyValue); value && !cJSON_IsNull(value))
    cJSON_AddStringToObject(object.get(), PropertyValue, PropertyText(value).c_str());
  if (const auto description = JsonText(cJSON_GetObjectItem(parameter, Description)))
    cJSON_AddStringToObject(object.get(), Description, description->c_str());
  return object;
}

/// The key under which all parameters stand.
const char* ContainerKey(const NodePinData& pin) {
  return pin.blueprint->Label.empty() ? DefaultContainer : pin.blueprint->Label.c_str();
}

} // namespace

bool ContentNode::DeserializeAdditionalProperty(const cJSON* json, const Workspace& workspace, Graph& view,
                                                bool selectNewNodes) {
  const NodePinTarget* target = Blueprint().pinSchema.Find(Keys::AdditionalProperties);
  NodePinData* pin = target ? FindPin(target->pin) : nullptr;
  if (!pin) return false;
  LogFile::Write("Creating Property node for additionalProperty: '" + std::string(json->string) + "'");
  DeserializeMadeUp(PropertyObject(json).get(), *target, *pin, workspace, view, selectNewNodes);
  return true;
}

bool ContentNode::DeserializeParameters(const cJSON* json, const Workspace& workspace, Graph& view,
                                        bool selectNewNodes) {
  const NodePinTarget* target = Blueprint().pinSchema.Find(Keys::AdditionalParameters);
  NodePinData* pin = target ? FindPin(target->pin) : nullptr;
  // An object under another key is not dropped: it becomes a generic child like any unknown object.
  if (!pin || !cJSON_IsObject(json) || std::string_view(json->string) != ContainerKey(*pin)) return false;
  LogFile::Write("Processing Parameters container: '" + std::string(json->string) + "'");
  const cJSON* parameter = nullptr;
  cJSON_ArrayForEach(parameter, json) {
    if (!parameter->string) continue;
    LogFile::Write("Creating Parameter node for: '" + std::string(parameter->string) + "'");
    DeserializeMadeUp(ParameterObject(parameter).get(), *target, *pin, workspace, view, selectNewNodes);
  }
  return true;
}

void ContentNode::DeserializeMadeUp(const cJSON* object, const NodePinTarget& target, NodePinData& pin,
                                    const Workspace& workspace, Graph& view, bool selectNewNodes) {
  const Toolkit::Ptr<ContentNode> child = workspace.nodeDictionary->CreateNode(target.node, true);
  if (!child) return;
  view.AddNode(*child, 0, 0, selectNewNodes);
  child->Deserialize(object, workspace, view, selectNewNodes);
  if (NodePinData* childPin = child->FindInputPinOfType(pin.blueprint->Type))
    view.PendingConnections().push_back({child, childPin, this, &pin});
}

void ContentNode::WriteAdditionalProperties(cJSON* json, const NodePinData& pin, bool saveAllFields) {
  for (ContentNode* child : ChildrenOf(pin)) {
    const JsonPtr object = WriteChild(*child, saveAllFields);
    const auto key = JsonText(cJSON_GetObjectItem(object.get(), Keys::Key));
    const cJSON* value = cJSON_GetObjectItem(object.get(), PropertyValue);
    if (!key || !value) continue;
    JsonPtr written;
    if (!cJSON_IsString(value)) {
      written.reset(cJSON_Duplicate(value, true));
    } else if (JsonText(cJSON_GetObjectItem(object.get(), PropertyType)) == Compute) {
      written.reset(cJSON_CreateObject());
      cJSON_AddStringToObject(written.get(), Compute, value->valuestring);
    } else {
      written = ValueOfPropertyText(value->valuestring);
    }
    cJSON_AddItemToObject(json, key->c_str(), written.release());
  }
}

void ContentNode::WriteAdditionalParameters(cJSON* json, const NodePinData& pin, bool saveAllFields) {
  cJSON* container = cJSON_AddObjectToObject(json, ContainerKey(pin));
  for (ContentNode* child : ChildrenOf(pin)) {
    const JsonPtr object = WriteChild(*child, saveAllFields);
    const auto key = JsonText(cJSON_GetObjectItem(object.get(), Keys::Key));
    if (!key) continue;
    cJSON* parameter = cJSON_AddObjectToObject(container, key->c_str());
    if (const auto text = JsonText(cJSON_GetObjectItem(object.get(), PropertyValue)))
      cJSON_AddItemToObject(parameter, PropertyValue, ValueOfPropertyText(*text).release());
    if (const auto text = JsonText(cJSON_GetObjectItem(object.get(), Description)); text && !text->empty())
      cJSON_AddStringToObject(parameter, Description, text->c_str());
  }
}

} // namespace Tesselor
