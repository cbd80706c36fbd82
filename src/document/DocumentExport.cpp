#include "document/DocumentExport.h"

#include "document/KeptMetadata.h"
#include "document/StandIn.h"
#include "document/WrittenNodes.h"
#include "nodes/CommentNode.h"
#include "nodes/GenericContentNode.h"
#include "nodes/GroupNode.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePosition.h"
#include "nodes/StandInRecord.h"
#include "platform/JsonMemory.h"
#include "platform/Uuid.h"

#include <algorithm>
#include <unordered_map>

namespace Tesselor {

namespace {

/// The nodes that are written inside of one of `nodes` which the root's tree doesn't hold.
NodeSet NodesWithFloatingParents(const std::vector<Toolkit::Ptr<ContentNode>>& nodes, const NodeSet& inTree) {
  NodeSet found;
  std::vector<const ContentNode*> waiting;
  const auto visit = [&](const ContentNode& parent) {
    for (const ContentNode* child : WrittenNodes::Below(parent))
      if (found.insert(child).second && child->IsPassthrough()) waiting.push_back(child);
  };
  for (const auto& node : nodes)
    if (!node->IsPassthrough() && !inTree.contains(node.Get())) visit(*node);
  while (!waiting.empty()) {
    const ContentNode& link = *waiting.back();
    waiting.pop_back();
    visit(link);
  }
  return found;
}

const std::string& EnsureLinkId(ContentNode& link) {
  if (link.linkId.empty()) link.linkId = GenerateUuid();
  return link.linkId;
}

std::string EndpointOf(const NodePinData& pin) {
  ContentNode& owner = *pin.owner;
  if (owner.IsPassthrough()) return "link:" + EnsureLinkId(owner);
  owner.EnsureNodeId();
  const StandInRecord* record = StandInOf(owner);
  const bool isNamed = record && !record->inputPin.empty();
  return owner.Identity() + ":" + (isNamed ? record->inputPin : owner.KeyOf(pin));
}

/// The pins of real nodes that are reached from links on one side, each by the first connections of its own and other
/// links' first pins.
class FarEnds {
public:
  enum class Side { Upstream, Downstream };
  explicit FarEnds(Side side) : side(side) {}
  /// Null if there is none.
  const NodePinData* Of(const ContentNode& link) {
    std::vector<const ContentNode*> passed;
    const NodePinData* far = nullptr;
    for (const ContentNode* node = &link; node; node = far->owner) {
      const auto [entry, isNew] = known.emplace(node, nullptr);
      if (!isNew) {
        far = entry->second;
        break;
      }
      passed.push_back(node);
      const NodePinData* pin = side == Side::Upstream ? node->FirstInput() : node->FirstOutput();
      far = pin && !pin->connections.empty() ? pin->connections.front() : nullptr;
      if (!far || !far->owner->IsPassthrough()) break;
    }
    for (const ContentNode* node : passed) known[node] = far;
    return far;
  }

private:
  Side side;
  /// A ring has no end: until all of it is passed, and so in the end, its links stand here with null.
  std::unordered_map<const ContentNode*, const NodePinData*> known;
};

void AddEndpoints(cJSON* json, const char* key, const NodePinData* pin, const std::string& linkId,
                  const KeptMetadata& kept) {
  std::vector<std::string> texts;
  if (pin)
    for (const NodePinData* other : pin->connections) texts.push_back(EndpointOf(*other));
  kept.InsertEndpoints(texts, linkId, key);
  cJSON* array = cJSON_AddArrayToObject(json, key);
  for (const std::string& text : texts) cJSON_AddItemToArray(array, cJSON_CreateString(text.c_str()));
}

using TypeNames = std::vector<std::string>;

TypeNames ConnectedTypes(const ContentNode::Pins& pins) {
  TypeNames types;
  for (size_t i = 0; i < pins.Count(); ++i)
    for (const NodePinData* other : pins.Get(i)->connections) {
      const std::string& type = other->EffectiveBlueprint().Type;
      if (type != "Generic" && std::find(types.begin(), types.end(), type) == types.end()) types.push_back(type);
    }
  return types;
}

void AppendTypes(std::string& report, const char* heading, const TypeNames& types) {
  if (types.empty()) return;
  report += heading;
  for (size_t i = 0; i < types.size(); ++i) report += (i > 0 ? ", " : "") + types[i];
  report += "\n";
}

} // namespace

std::string DocumentExport::DescribeLinkMismatches(const std::vector<Toolkit::Ptr<ContentNode>>& nodes) {
  std::string mismatches;
  for (const auto& node : nodes) {
    if (!node->IsPassthrough() || node->ComputeLinkValidity()) continue;
    mismatches += "\"" + std::string(node->Title()) + "\":\n";
    AppendTypes(mismatches, "  Input connections: ", ConnectedTypes(node->Input()));
    AppendTypes(mismatches, "  Output connections: ", ConnectedTypes(node->Output()));
    mismatches += "\n";
  }
  if (mismatches.empty()) return {};
  return "Cannot export: The following Link nodes have mismatched pin types:\n\n" + mismatches +
         "Please ensure all Link nodes connect nodes of the same type.";
}

DocumentExport::Size DocumentExport::Measure() const {
  WrittenSize size;
  Size result{size.Nodes(rootNode), size.Nesting(rootNode)};
  // The metadata and the array around a floating node.
  constexpr size_t around = 3;
  for (const ContentNode* top : FloatingTops()) {
    result.nodes += size.Nodes(*top);
    result.nesting = std::max(result.nesting, size.Nesting(*top) + around);
  }
  return result;
}

JsonPtr DocumentExport::Build(const std::vector<Toolkit::Ptr<GroupNode>>& groups,
                              const std::vector<Toolkit::Ptr<CommentNode>>& comments, const std::string& workspaceId) {
  JsonPtr document(cJSON_CreateObject());
  // The trees and the links come first: they give the nodes the identities by which their places are found again.
  rootNode.SerializeChild(document.get(), writer);
  JsonPtr floating = BuildFloatingNodes();
  JsonPtr links = BuildLinks();
  JsonPtr metadata(cJSON_CreateObject());
  cJSON_AddItemToObject(metadata.get(), Keys::Nodes, BuildNodes().release());
  if (!nodes.empty()) cJSON_AddItemToObject(metadata.get(), Keys::FloatingNodes, floating.release());
  cJSON_AddItemToObject(metadata.get(), Keys::Links, links.release());
  cJSON* groupArray = cJSON_AddArrayToObject(metadata.get(), Keys::Groups);
  for (const auto& group : groups) cJSON_AddItemToArray(groupArray, group->ToJson().release());
  cJSON* commentArray = cJSON_AddArrayToObject(metadata.get(), Keys::Comments);
  for (const auto& comment : comments) cJSON_AddItemToArray(commentArray, comment->ToJson().release());
  cJSON_AddStringToObject(metadata.get(), Keys::WorkspaceId, workspaceId.c_str());
  cJSON_AddItemToObject(document.get(), Keys::Metadata, metadata.release());
  return document;
}

std::string DocumentExport::Print(const std::vector<Toolkit::Ptr<GroupNode>>& groups,
                                  const std::vector<Toolkit::Ptr<CommentNode>>& comments,
                                  const std::string& workspaceId) {
  if (!Measure().CanBeRead()) return {};
  const JsonMemory memory;
  std::string text = PrintJson(Build(groups, comments, workspaceId).get());
  // Members that there was no memory for are left out without a word.
  return memory.RanOut() || JsonNesting(text) > JsonNestingLimit ? std::string() : text;
}

JsonPtr DocumentExport::BuildNodes() const {
  JsonPtr json(cJSON_CreateObject());
  for (const auto& node : nodes) {
    if (node->IsPassthrough()) continue;
    cJSON* entry = cJSON_AddObjectToObject(json.get(), node->Identity().c_str());
    SavePosition(*node, entry);
    if (!node->Title().empty()) NodeWriter::WriteTitle(entry, *node);
  }
  KeptMetadata(nodes).AddPlaces(json.get());
  return json;
}

std::vector<ContentNode*> DocumentExport::FloatingTops() const {
  NodeSet written;
  WrittenNodes::Collect(rootNode, written);
  const NodeSet withParents = NodesWithFloatingParents(nodes, written);
  std::vector<ContentNode*> tops, inner;
  const auto add = [&](ContentNode& node) {
    tops.push_back(&node);
    WrittenNodes::Collect(node, written);
  };
  for (const auto& node : nodes) {
    if (node->IsPassthrough() || written.contains(node.Get())) continue;
    if (withParents.contains(node.Get()))
      inner.push_back(node.Get());
    else
      add(*node);
  }
  // What no top leads to stands in a ring, of which any node may be the top.
  for (ContentNode* node : inner)
    if (!written.contains(node)) add(*node);
  return tops;
}

JsonPtr DocumentExport::BuildFloatingNodes() {
  JsonPtr array(cJSON_CreateArray());
  for (ContentNode* node : FloatingTops()) {
    JsonPtr object(cJSON_CreateObject());
    if (Toolkit::DynamicCast<GenericContentNode>(node))
      node->SerializeWithId(object.get(), writer, NodeLayout::Omitted);
    else
      node->Serialize(object.get(), writer, NodeIdMember::Written);
    cJSON_AddItemToArray(array.get(), object.release());
  }
  return array;
}

JsonPtr DocumentExport::BuildLinks() const {
  JsonPtr json(cJSON_CreateObject());
  FarEnds sources(FarEnds::Side::Upstream), targets(FarEnds::Side::Downstream);
  const KeptMetadata kept(nodes);
  for (const auto& node : nodes) {
    if (!node->IsPassthrough()) continue;
    cJSON* entry = cJSON_AddObjectToObject(json.get(), EnsureLinkId(*node).c_str());
    SavePosition(*node, entry);
    NodeWriter::WriteTitle(entry, *node);
    AddEndpoints(entry, Keys::InputConnections, node->FirstInput(), node->linkId, kept);
    AddEndpoints(entry, Keys::OutputConnections, node->FirstOutput(), node->linkId, kept);
    if (const NodePinData* source = sources.Of(*node))
      cJSON_AddStringToObject(entry, Keys::SourceEndpoint, EndpointOf(*source).c_str());
    if (const NodePinData* target = targets.Of(*node))
      cJSON_AddStringToObject(entry, Keys::TargetEndpoint, EndpointOf(*target).c_str());
  }
  return json;
}

} // namespace Tesselor
