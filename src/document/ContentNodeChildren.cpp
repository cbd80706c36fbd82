// The part of ContentNode that makes child nodes of what stands behind its pins' keys.

#include "document/ChildType.h"
#include "document/NodeEntry.h"
#include "graph/Graph.h"
#include "nodes/GenericContentNode.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePosition.h"
#include "platform/JsonFile.h"
#include "platform/LogFile.h"
#include "workspace/Workspace.h"

namespace Tesselor {

namespace {

bool IsGenericNode(ContentNode& node) { return Toolkit::DynamicCast<GenericContentNode>(&node) != nullptr; }

/// The values that a map's child can't read as an object of its own.
bool NeedsWrapper(const cJSON* entry) {
  if (cJSON_IsString(cJSON_GetObjectItem(entry, Keys::Key))) return false;
  return cJSON_IsArray(entry) || cJSON_IsNumber(entry) || cJSON_IsString(entry) || cJSON_IsBool(entry);
}

JsonPtr WrapMapValue(const cJSON* entry) {
  JsonPtr wrapper(cJSON_CreateObject());
  cJSON_AddStringToObject(wrapper.get(), Keys::Key, entry->string);
  cJSON_AddItemToObject(wrapper.get(), Keys::Value, cJSON_Duplicate(entry, true));
  return wrapper;
}

} // namespace

bool ContentNode::DeserializePinMember(const cJSON* json, const cJSON* member, const NodePinTarget& target,
                                       const Workspace& workspace, Graph& view, bool selectNewNodes) {
  NodePinData* pin = FindPin(target.pin);
  // A schema that names a pin which isn't there: the key counts as unknown.
  if (!pin) return false;
  const NodeVariant* variant = workspace.nodeDictionary->FindVariant(target.node);
  LogFile::Write((variant ? "Found entry in schema: 'Node Variant: " : "Found entry in schema: '") + target.node +
                 "'.");
  if (cJSON_IsArray(member) || pin->IsMap())
    DeserializePinArray(member, target.node, *pin, variant, workspace, view, selectNewNodes);
  else if (cJSON_IsObject(member))
    DeserializePinObject(member, json, target.node, *pin, variant, workspace, view, selectNewNodes);
  else if (!cJSON_IsNull(member))
    LogUnknownField(member->string, member);
  return true;
}

void ContentNode::DeserializePinObject(const cJSON* json, const cJSON* parentJson, const std::string& nodeName,
                                       NodePinData& pin, const NodeVariant* variant, const Workspace& workspace,
                                       Graph& view, bool selectNewNodes) {
  const NodeEntry entry(json);
  ChildType type = ChildType::OfObject(*this, json, parentJson, nodeName, json->child ? variant : nullptr, workspace);
  type.ApplyEntry(entry);
  const Toolkit::Ptr<ContentNode> child = type.Create(*workspace.nodeDictionary);
  if (!child) return;
  view.AddNode(*child, 0, 0, selectNewNodes);
  if (!type.uuid.empty()) child->SetNodeId(type.uuid);
  child->Deserialize(json, workspace, view, selectNewNodes);
  ApplyPosition(*child, entry.Place());
  QueuePinConnection(*child, pin, type.isLink, type.isGeneric, view);
}

void ContentNode::DeserializePinArray(const cJSON* json, const std::string& nodeName, NodePinData& pin,
                                      const NodeVariant* variant, const Workspace& workspace, Graph& view,
                                      bool selectNewNodes) {
  pin.hadArray = true;
  std::string childPin;
  int32_t index = 0;
  const cJSON* element = nullptr;
  cJSON_ArrayForEach(element, json) {
    DeserializeArrayEntry(json, element, index, nodeName, pin, childPin, variant, workspace, view, selectNewNodes);
    ++index;
  }
}

void ContentNode::DeserializeArrayEntry(const cJSON* json, const cJSON* element, int32_t index,
                                        const std::string& nodeName, NodePinData& pin, std::string& childPin,
                                        const NodeVariant* variant, const Workspace& workspace, Graph& view,
                                        bool selectNewNodes) {
  LogFile::Write("Scanning array entry with index: '" + std::to_string(index) + "'.");
  const NodeEntry entry(element);
  ChildType type = ChildType::OfEntry(element, nodeName, variant);
  type.ReadIdentity(entry);
  if (!type.uuid.empty())
    if (ContentNode* known = view.FindNodeById(type.uuid)) {
      LogFile::Write("Skipping duplicate entry (fan-in) at index: '" + std::to_string(index) +
                     "' - UUID already exists.");
      QueuePinConnection(*known, pin, known->IsPassthrough(), IsGenericNode(*known), view);
      return;
    }
  type.ReadKind(entry);
  const Toolkit::Ptr<ContentNode> child = type.Create(*workspace.nodeDictionary);
  if (!child) return;
  child->importIndex = index;
  if (!type.uuid.empty()) child->SetNodeId(type.uuid);
  view.AddNode(*child, 0, 0, selectNewNodes);
  if (pin.IsMap() && element->string) {
    child->mapKey = element->string;
    if (NeedsWrapper(element))
      child->Deserialize(WrapMapValue(element).get(), workspace, view, selectNewNodes);
    else
      child->Deserialize(element, workspace, view, selectNewNodes);
  } else {
    child->Deserialize(element, workspace, view, selectNewNodes);
    if (!cJSON_IsObject(element) && !cJSON_IsArray(element) && !cJSON_IsNull(element) && !type.isGeneric)
      ReportUnknownField(json->string, element);
  }
  ApplyPosition(*child, entry.Place());
  ConnectArrayEntry(*child, type, pin, childPin, view);
}

void ContentNode::ConnectArrayEntry(ContentNode& child, const ChildType& type, NodePinData& pin, std::string& childPin,
                                    Graph& view) {
  std::string_view pinId = type.isLink ? BuiltIn::GenericIn : BuiltIn::Generic;
  if (!type.isLink && !type.isGeneric) {
    if (childPin.empty())
      if (const NodePinData* found = child.FindInputPinOfType(pin.blueprint->Type)) childPin = child.KeyOf(*found);
    pinId = childPin;
  }
  NodePinData* found = pinId.empty() ? nullptr : child.FindPin(pinId);
  if (found && found->IsInput())
    view.PendingConnections().push_back({&child, found, this, &pin});
  else
    LogFile::Write("Warning: Could not find matching input pin for connection type '" + pin.blueprint->Type +
                   "' on node '" + type.type + "'.");
}

void ContentNode::QueuePinConnection(ContentNode& child, NodePinData& parentPin, bool isLink, bool isGeneric,
                                     Graph& view) {
  NodePinData* childPin = isLink      ? child.FindPin(BuiltIn::GenericIn)
                          : isGeneric ? child.FindPin(BuiltIn::Generic)
                                      : child.FindInputPinOfType(parentPin.blueprint->Type);
  if (childPin && childPin->IsInput()) view.PendingConnections().push_back({&child, childPin, this, &parentPin});
}

void ContentNode::DeserializeChildren(const cJSON* json, const Workspace& workspace, Graph& view, bool selectNewNodes) {
  NodePinData* parentPin = FirstOutput();
  if (!parentPin) return;
  int32_t index = 0;
  const cJSON* element = nullptr;
  cJSON_ArrayForEach(element, json) {
    const NodeEntry entry(element);
    const bool isLink = cJSON_IsTrue(entry.link);
    std::string type = isLink ? BuiltIn::Link : BuiltIn::Generic;
    if (const auto id = JsonText(entry.nodeId); id && !isLink) type = id->substr(0, id->find('-'));
    const Toolkit::Ptr<ContentNode> child = workspace.nodeDictionary->CreateNode(type, true);
    if (!child) continue;
    child->importIndex = index++;
    view.AddNode(*child, 0, 0, selectNewNodes);
    child->Deserialize(element, workspace, view, selectNewNodes);
    ApplyPosition(*child, entry.Place());
    NodePinData* childPin = nullptr;
    if (isLink || type == BuiltIn::Generic)
      childPin = child->FindPin(isLink ? BuiltIn::GenericIn : BuiltIn::Generic);
    else
      childPin = child->FirstInputByKey();
    if (childPin) view.PendingConnections().push_back({child, childPin, this, parentPin});
  }
}

} // namespace Tesselor
