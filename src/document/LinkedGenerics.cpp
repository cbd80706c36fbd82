#include "document/LinkedGenerics.h"

#include "document/ChildWalk.h"
#include "document/LinkImport.h"
#include "document/StandIn.h"
#include "graph/Graph.h"
#include "nodes/GenericContentNode.h"
#include "nodes/NodeIdentity.h"
#include "nodes/NodeKeys.h"
#include "platform/JsonFile.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace Tesselor {

namespace {

/// Whether the node is written without its UUID.
bool IsUnnamed(const ContentNode& node) { return Toolkit::DynamicCast<GenericContentNode>(&node) && !IsStandIn(node); }

/// The UUIDs of a link's generic nodes that no node has, in their order.
std::vector<std::string> UnknownGenericsOf(const cJSON* link,
                                           const std::unordered_map<std::string_view, ContentNode*>& nodes) {
  std::vector<std::string> uuids;
  const cJSON* output = nullptr;
  const cJSON* outputs = cJSON_GetObjectItem(link, Keys::OutputConnections);
  if (!cJSON_IsArray(outputs)) return uuids;
  cJSON_ArrayForEach(output, outputs) {
    if (!cJSON_IsString(output)) continue;
    const std::string_view text = output->valuestring;
    const NodeIdentity identity = NodeIdentity::Of(text.substr(0, text.find(':')));
    if (identity.type != BuiltIn::Generic || identity.uuid.empty() || nodes.contains(identity.uuid)) continue;
    uuids.emplace_back(identity.uuid);
  }
  return uuids;
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

} // namespace

void LinkedGenerics::Identify(const cJSON* links, Graph& view) {
  if (!cJSON_IsObject(links)) return;
  const std::unordered_map<std::string_view, ContentNode*> nodes = NodesById(view);
  struct Named {
    std::vector<std::string> uuids;
    size_t links = 0;
    std::vector<ContentNode*> children;
  };
  std::unordered_map<const NodePinData*, Named> byPin;
  const cJSON* link = nullptr;
  cJSON_ArrayForEach(link, links) {
    std::vector<std::string> uuids = UnknownGenericsOf(link, nodes);
    const NodePinData* source = uuids.empty() ? nullptr : SourceOf(link, nodes);
    if (!source) continue;
    Named& named = byPin[source];
    ++named.links;
    named.uuids = std::move(uuids);
  }
  for (const PendingConnection& pending : view.PendingConnections()) {
    const auto found = byPin.find(pending.parentPin);
    ContentNode& child = *pending.childPin->owner;
    if (found != byPin.end() && IsUnnamed(child) && child.NodeId().empty()) found->second.children.push_back(&child);
  }
  for (const auto& [pin, named] : byPin) {
    // A pin that takes one node is written with the first, and the others float.
    const bool areAll = !pin->blueprint->Multiple || named.children.size() == named.uuids.size();
    if (named.links != 1 || !areAll) continue;
    for (size_t i = 0; i < std::min(named.children.size(), named.uuids.size()); ++i)
      named.children[i]->SetNodeId(named.uuids[i]);
  }
}

std::vector<ContentNode*> LinkedGenerics::FindUnidentified(const Graph& view) {
  struct Linked {
    std::vector<ContentNode*> links;
    std::unordered_set<const ContentNode*> generics;
  };
  std::unordered_map<const NodePinData*, Linked> byPin;
  std::vector<ContentNode*> found;
  for (const auto& node : view.ContentNodes()) {
    if (!node->IsPassthrough() || !node->FirstOutput()) continue;
    std::vector<const ContentNode*> generics;
    for (const NodePinData* other : node->FirstOutput()->connections)
      if (IsUnnamed(*other->owner)) generics.push_back(other->owner);
    if (generics.empty()) continue;
    const NodePinData* source = SourceOf(*node);
    if (!source) {
      found.push_back(node.Get());
      continue;
    }
    Linked& linked = byPin[source];
    linked.links.push_back(node.Get());
    linked.generics.insert(generics.begin(), generics.end());
  }
  for (const auto& [pin, linked] : byPin) {
    size_t count = 1;
    if (pin->blueprint->Multiple) {
      const std::vector<ContentNode*> children = ChildrenOf(*pin);
      count = static_cast<size_t>(
          std::count_if(children.begin(), children.end(), [](const ContentNode* child) { return IsUnnamed(*child); }));
    }
    const bool areIdentified = linked.links.size() == 1 && linked.generics.size() == count;
    if (!areIdentified) found.insert(found.end(), linked.links.begin(), linked.links.end());
  }
  return found;
}

} // namespace Tesselor
