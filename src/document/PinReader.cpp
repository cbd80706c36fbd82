#include "document/PinReader.h"

#include "document/ChildType.h"
#include "document/NodeEntry.h"
#include "document/NodeReader.h"
#include "document/StandIn.h"
#include "nodes/GenericContentNode.h"
#include "nodes/NodeKeys.h"
#include "platform/JsonFile.h"
#include "platform/LogFile.h"

#include <string_view>

namespace Tesselor {

namespace {

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

PinReader::PinReader(NodeReader& reader, NodePinData& pin, const std::string& nodeName, const NodeVariant* variant)
    : reader(reader), parent(*pin.owner), pin(pin), nodeName(nodeName), variant(variant) {}

void PinReader::ReadObject(const cJSON* json, const cJSON* parentJson) {
  const NodeEntry entry(json);
  ChildType type =
      ChildType::OfObject(parent, json, parentJson, nodeName, json->child ? variant : nullptr, reader.GetWorkspace());
  type.ApplyEntry(entry);
  const std::string identity = reader.IdentityOf(entry, type.uuid);
  // A file may hold one node behind several single pins; it comes several times.
  if (ContentNode* known = reader.IsPaste() ? reader.FindNode(identity) : nullptr) {
    ConnectKnown(*known);
    return;
  }
  if (reader.IsPaste()) type.identity = type.type;
  const Toolkit::Ptr<ContentNode> child = type.Create(reader.Dictionary());
  reader.SetIdentity(*child, identity);
  reader.Add(*child);
  child->Deserialize(json, reader);
  reader.Place(*child, entry);
  ConnectByType(*child, type.isLink, type.isGeneric || IsStandIn(*child));
}

void PinReader::ReadArray(const cJSON* json) {
  pin.hadArray = true;
  int32_t index = 0;
  const cJSON* element = nullptr;
  cJSON_ArrayForEach(element, json) ReadEntry(json, element, index++);
}

void PinReader::ReadEntry(const cJSON* json, const cJSON* element, int32_t index) {
  LogFile::Write("Scanning array entry with index: '" + std::to_string(index) + "'.");
  const NodeEntry entry(element);
  ChildType type = ChildType::OfEntry(element, nodeName, variant);
  type.ReadIdentity(entry);
  const std::string identity = reader.IdentityOf(entry, type.uuid);
  ContentNode* known = reader.FindNode(identity);
  // What stands in for another type has one parent, and what it holds goes out at each of its places.
  if (known && (reader.IsPaste() || !IsStandIn(*known))) {
    LogFile::Write("Skipping duplicate entry (fan-in) at index: '" + std::to_string(index) +
                   "' - UUID already exists.");
    ConnectKnown(*known);
    return;
  }
  type.ReadKind(entry);
  if (reader.IsPaste()) type.identity = type.type;
  const Toolkit::Ptr<ContentNode> child = type.Create(reader.Dictionary());
  reader.SetIdentity(*child, identity);
  child->importIndex = index;
  reader.Add(*child);
  if (pin.IsMap() && element->string) {
    child->mapKey = element->string;
    ReadEntryInto(*child, element);
  } else {
    child->Deserialize(element, reader);
    if (!cJSON_IsObject(element) && !cJSON_IsArray(element) && !cJSON_IsNull(element) && !type.isGeneric)
      reader.ReportUnknownField(parent, json->string, element);
  }
  reader.Place(*child, entry);
  ConnectEntry(*child, type);
}

void PinReader::ReadEntryInto(ContentNode& child, const cJSON* element) {
  if (NeedsWrapper(element))
    child.Deserialize(WrapMapValue(element).get(), reader);
  else
    child.Deserialize(element, reader);
}

void PinReader::ConnectEntry(ContentNode& child, const ChildType& type) {
  std::string_view pinId = type.isLink ? BuiltIn::GenericIn : BuiltIn::Generic;
  if (!type.isLink && !type.isGeneric && !IsStandIn(child)) {
    if (childPin.empty())
      if (const NodePinData* found = child.FindInputPinOfType(pin.blueprint->Type)) childPin = child.KeyOf(*found);
    pinId = childPin;
  }
  NodePinData* found = pinId.empty() ? nullptr : child.FindPin(pinId);
  if (found && found->IsInput())
    reader.Connect(*found, pin);
  else
    LogFile::Write("Warning: Could not find matching input pin for connection type '" + pin.blueprint->Type +
                   "' on node '" + type.type + "'.");
}

void PinReader::ConnectKnown(ContentNode& node) {
  ConnectByType(node, node.IsPassthrough(), Toolkit::DynamicCast<GenericContentNode>(&node) != nullptr);
}

void PinReader::ConnectByType(ContentNode& child, bool isLink, bool isGeneric) {
  NodePinData* found = isLink      ? child.FindPin(BuiltIn::GenericIn)
                       : isGeneric ? child.FindPin(BuiltIn::Generic)
                                   : child.FindInputPinOfType(pin.blueprint->Type);
  if (found && found->IsInput()) reader.Connect(*found, pin);
}

} // namespace Tesselor
