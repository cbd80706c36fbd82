// The part of NodeReader that makes children of what stands behind no pin's key.

#include "document/AdditionalMembers.h"
#include "document/NodeEntry.h"
#include "document/NodeReader.h"
#include "document/StandIn.h"
#include "nodes/GenericContentNode.h"
#include "nodes/NodeIdentity.h"
#include "nodes/NodeKeys.h"
#include "platform/JsonFile.h"
#include "platform/LogFile.h"
#include "workspace/NodeDictionary.h"

#include <string_view>

namespace Tesselor {

bool NodeReader::ReadAdditionalProperty(ContentNode& node, const cJSON* member) {
  const NodePinTarget* target = node.Blueprint().pinSchema.Find(Keys::AdditionalProperties);
  NodePinData* pin = target ? node.FindPin(target->pin) : nullptr;
  if (!pin) return false;
  LogFile::Write("Creating Property node for additionalProperty: '" + std::string(member->string) + "'");
  ReadMadeUp(PropertyNodeJson(member).get(), *target, *pin);
  return true;
}

bool NodeReader::ReadParameters(ContentNode& node, const cJSON* member) {
  const NodePinTarget* target = node.Blueprint().pinSchema.Find(Keys::AdditionalParameters);
  NodePinData* pin = target ? node.FindPin(target->pin) : nullptr;
  // An object under another key is not dropped: it becomes a generic child like any unknown object.
  if (!pin || !cJSON_IsObject(member) || std::string_view(member->string) != ParametersKey(*pin)) return false;
  LogFile::Write("Processing Parameters container: '" + std::string(member->string) + "'");
  const cJSON* parameter = nullptr;
  cJSON_ArrayForEach(parameter, member) {
    if (!parameter->string) continue;
    LogFile::Write("Creating Parameter node for: '" + std::string(parameter->string) + "'");
    ReadMadeUp(ParameterNodeJson(parameter).get(), *target, *pin);
  }
  return true;
}

void NodeReader::ReadMadeUp(const cJSON* object, const NodePinTarget& target, NodePinData& pin) {
  const Toolkit::Ptr<ContentNode> child = MakeNodeOrStandIn(Dictionary(), target.node, {});
  Add(*child);
  child->Deserialize(object, *this);
  NodePinData* childPin =
      IsStandIn(*child) ? child->FindPin(BuiltIn::Generic) : child->FindInputPinOfType(pin.blueprint->Type);
  if (childPin) Connect(*childPin, pin);
}

void NodeReader::ReadGeneric(ContentNode& node, const cJSON* member) {
  LogFile::Write("Creating generic node");
  const Toolkit::Ptr<ContentNode> child = Dictionary().CreateNode(BuiltIn::Generic, false);
  if (!Toolkit::DynamicCast<GenericContentNode>(child.Get())) return;
  Add(*child);
  child->Deserialize(member, *this);
  Place(*child, NodeEntry(member));
  if (NodePinData* childPin = child->FindPin(BuiltIn::Generic))
    Connect(*childPin, *node.AddDynamicPin(*childPin->blueprint));
}

void NodeReader::ReadChildrenOfLink(ContentNode& node, const cJSON* array) {
  NodePinData* parentPin = node.FirstOutput();
  if (!parentPin) return;
  int32_t index = 0;
  const cJSON* element = nullptr;
  cJSON_ArrayForEach(element, array) {
    const NodeEntry entry(element);
    const bool isLink = cJSON_IsTrue(entry.link);
    std::string type = isLink ? BuiltIn::Link : BuiltIn::Generic;
    std::string former;
    if (const auto id = JsonText(entry.nodeId); id && !isLink) {
      type = NodeIdentity::Of(*id).type;
      former = paste ? type : *id;
    }
    // The children of links have no UUIDs in files.
    const std::string identity = IdentityOf(entry, {});
    Toolkit::Ptr<ContentNode> child(FindNode(identity));
    if (!child) {
      child = MakeNodeOrStandIn(Dictionary(), type, former);
      SetIdentity(*child, identity);
      child->importIndex = index++;
      Add(*child);
      child->Deserialize(element, *this);
      Place(*child, entry);
    }
    NodePinData* childPin = nullptr;
    if (isLink || type == BuiltIn::Generic || IsStandIn(*child))
      childPin = child->FindPin(isLink ? BuiltIn::GenericIn : BuiltIn::Generic);
    else
      childPin = child->FirstInputByKey();
    if (childPin) Connect(*childPin, *parentPin);
  }
}

} // namespace Tesselor
