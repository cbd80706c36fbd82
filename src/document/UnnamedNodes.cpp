#include "document/UnnamedNodes.h"

#include "document/ChildWalk.h"
#include "document/LinkImport.h"
#include "document/StandIn.h"
#include "graph/Graph.h"
#include "nodes/GenericContentNode.h"
#include "nodes/NodeIdentity.h"
#include "nodes/NodeKeys.h"
#include "nodes/ReferenceNode.h"
#include "platform/JsonFile.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace Tesselor {

namespace {

/// Whether the node is written without its UUID.
bool IsUnnamed(const ContentNode& node) {
  if (Toolkit::DynamicCast<ReferenceNode>(&node)) return true;
  return Toolkit::DynamicCast<GenericContentNode>(&node) && !IsStandIn(node);
}

/// What a link's outputs name that no node has, in their order.
std::vector<NodeIdentity> UnknownOutputsOf(const cJSON* link,
                                           const std::unordered_map<std::string_view, ContentNode*>& nodes) {
  std::vector<NodeIdentity> identities;
  const cJSON* output = nullptr;
  const cJSON* outputs = cJSON_GetObjectItem(link, Keys::OutputConnections);
  if (!cJSON_IsArray(outputs)) return identities;
  cJSON_ArrayForEach(output, outputs) {
    const std::string_view text = cJSON_IsString(output) ? output->valuestring : "";
    const NodeIdentity identity = NodeIdentity::Of(text.substr(0, text.find(':')));
    if (!identity.uuid.empty() && !nodes.contains(identity.uuid)) identities.push_back(identity);
  }
  return identities;
}

const NodePinData* SourceOf(const cJSON* link, const std::unordered_map<std::string_view, ContentNode*>& nodes) {
  const auto source = JsonText(cJSON_GetObjectItem(link, Keys::SourceEndpoint));
  const size_t colon = source ? source->find(':') : std::string::npos;
  if (colon == std::string::npos) return nullptr;
  const auto found = nodes.find(NodeIdentity::Of(std::string_view(*source).substr(0, colon)).uuid);
  return found == nodes.end() ? nullptr : found->second->FindPin(std::string_view(*source).substr(colon + 1));
}

/// The first pin of a real node upstream of a link; null if there is none.
const NodePinData* SourceOf(const ContentNode& link) {
  NodeSet passed;
  for (const ContentNode* node = &link; passed.insert(node).second;) {
    const NodePinData* pin = node->FirstInput();
    if (!pin || pin->connections.empty()) return nullptr;
    const NodePinData* far = pin->connections.front();
    if (!far->owner->IsPassthrough()) return far;
    node = far->owner;
  }
  return nullptr;
}

/// How many such nodes are written below a pin, on which one hangs.
size_t CountUnnamed(const NodePinData& pin) {
  if (!pin.blueprint->Multiple) return 1;
  const std::vector<ContentNode*> children = ChildrenOf(pin);
  const auto isUnnamed = [](const ContentNode* child) { return IsUnnamed(*child); };
  return static_cast<size_t>(std::count_if(children.begin(), children.end(), isUnnamed));
}

} // namespace

void UnnamedNodes::Identify(const cJSON* links, Graph& view) {
  if (!cJSON_IsObject(links)) return;
  const std::unordered_map<std::string_view, ContentNode*> nodes = NodesById(view);
  struct Named {
    std::vector<NodeIdentity> identities;
    size_t links = 0;
    std::vector<ContentNode*> children;
  };
  std::unordered_map<const NodePinData*, Named> byPin;
  const cJSON* link = nullptr;
  cJSON_ArrayForEach(link, links) {
    std::vector<NodeIdentity> identities = UnknownOutputsOf(link, nodes);
    const NodePinData* source = identities.empty() ? nullptr : SourceOf(link, nodes);
    if (!source) continue;
    Named& named = byPin[source];
    ++named.links;
    named.identities = std::move(identities);
  }
  for (const PendingConnection& pending : view.PendingConnections()) {
    const auto found = byPin.find(pending.parentPin);
    ContentNode& child = *pending.childPin->owner;
    if (found != byPin.end() && IsUnnamed(child) && child.NodeId().empty()) found->second.children.push_back(&child);
  }
  for (auto& [pin, named] : byPin) {
    // A pin that takes one node is written with the first, and the others float.
    if (!pin->blueprint->Multiple && named.children.size() == 1) named.identities.resize(1);
    const bool areThese = named.links == 1 && std::equal(named.children.begin(), named.children.end(),
                                                         named.identities.begin(), named.identities.end(),
                                                         [](const ContentNode* child, const NodeIdentity& identity) {
                                                           return child->TypeId() == identity.type;
                                                         });
    if (!areThese) continue;
    for (size_t i = 0; i < named.children.size(); ++i)
      named.children[i]->SetNodeId(std::string(named.identities[i].uuid));
  }
}

std::vector<ContentNode*> UnnamedNodes::FindUnidentified(const Graph& view) {
  struct Linked {
    std::vector<ContentNode*> links;
    NodeSet unnamed;
  };
  std::unordered_map<const NodePinData*, Linked> byPin;
  NodeSet found;
  for (const auto& node : view.ContentNodes()) {
    if (!node->IsPassthrough() || !node->FirstOutput()) continue;
    std::vector<const ContentNode*> unnamed;
    for (const NodePinData* other : node->FirstOutput()->connections)
      if (IsUnnamed(*other->owner)) unnamed.push_back(other->owner);
    if (unnamed.empty()) continue;
    const NodePinData* source = SourceOf(*node);
    if (!source) {
      found.insert(node.Get());
      continue;
    }
    Linked& linked = byPin[source];
    linked.links.push_back(node.Get());
    linked.unnamed.insert(unnamed.begin(), unnamed.end());
  }
  for (const auto& [pin, linked] : byPin) {
    if (linked.links.size() > 1 || linked.unnamed.size() != CountUnnamed(*pin))
      found.insert(linked.links.begin(), linked.links.end());
  }
  std::vector<ContentNode*> inOrder;
  for (const auto& node : view.ContentNodes())
    if (found.contains(node.Get())) inOrder.push_back(node.Get());
  return inOrder;
}

} // namespace Tesselor
