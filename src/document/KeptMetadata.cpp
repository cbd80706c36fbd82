#include "document/KeptMetadata.h"

#include "document/ExportedNodes.h"
#include "document/StandIn.h"
#include "fields/FieldRawJson.h"
#include "graph/Graph.h"
#include "nodes/GenericContentNode.h"
#include "nodes/NodeIdentity.h"
#include "nodes/NodeKeys.h"

#include <algorithm>
#include <cstddef>
#include <unordered_set>
#include <utility>

namespace Tesselor {

namespace {

/// Which node stands in for the one of a UUID, itself or by what its text holds.
using Holders = std::unordered_map<std::string, StandInRecord*>;

void AddHolder(const cJSON* value, StandInRecord& record, Holders& holders) {
  if (const std::string_view uuid = UuidOf(value); !uuid.empty()) holders.emplace(uuid, &record);
  const cJSON* child = nullptr;
  cJSON_ArrayForEach(child, value) AddHolder(child, record, holders);
}

Holders FindHolders(const Graph& view) {
  Holders holders;
  for (const auto& node : view.ContentNodes()) {
    StandInRecord* record = StandInOf(*node);
    if (!record) continue;
    if (!node->NodeId().empty()) holders.emplace(node->NodeId(), record);
    if (FieldRawJson* field = static_cast<GenericContentNode&>(*node).RawField())
      AddHolder(ParseJson(field->TextToSave().ToString()).json.get(), *record, holders);
  }
  return holders;
}

/// Notes the end of a link if it is one of a text, or the pin by which it names what stands in for a node.
void KeepEndpoint(const cJSON* link, std::string_view key, size_t index, const cJSON* item, const Graph& view,
                  const Holders& holders) {
  if (!cJSON_IsString(item)) return;
  const std::string_view text = item->valuestring;
  const size_t colon = text.find(':');
  if (colon == std::string_view::npos) return;
  const std::string uuid(NodeIdentity::Of(text.substr(0, colon)).uuid);
  const auto holder = holders.find(uuid);
  if (holder == holders.end()) return;
  const ContentNode* node = view.FindNodeById(uuid);
  if (node && !IsStandIn(*node)) return;
  if (node && key == Keys::OutputConnections)
    holder->second->inputPin = text.substr(colon + 1);
  else
    holder->second->endpoints.push_back({link->string, key, index, std::string(text)});
}

} // namespace

void KeepMetadataOfStandIns(const cJSON* metadata, const Graph& view) {
  const Holders holders = FindHolders(view);
  if (holders.empty()) return;
  const cJSON* place = nullptr;
  cJSON_ArrayForEach(place, cJSON_GetObjectItem(metadata, Keys::Nodes)) {
    if (!place->string) continue;
    const std::string uuid(NodeIdentity::Of(place->string).uuid);
    const auto holder = holders.find(uuid);
    if (holder != holders.end())
      holder->second->places.push_back({place->string, JsonPtr(cJSON_Duplicate(place, true))});
  }
  const cJSON* link = nullptr;
  cJSON_ArrayForEach(link, cJSON_GetObjectItem(metadata, Keys::Links)) {
    if (!link->string) continue;
    for (const char* key : {Keys::InputConnections, Keys::OutputConnections}) {
      size_t index = 0;
      const cJSON* item = nullptr;
      cJSON_ArrayForEach(item, cJSON_GetObjectItem(link, key)) KeepEndpoint(link, key, index++, item, view, holders);
    }
  }
}

KeptMetadata::KeptMetadata(const std::vector<Toolkit::Ptr<ContentNode>>& nodes) : nodes(nodes) {
  for (const auto& node : nodes) {
    const StandInRecord* record = StandInOf(*node);
    if (!record) continue;
    records.push_back(record);
    for (const StandInRecord::Endpoint& endpoint : record->endpoints) endpoints[endpoint.linkId].push_back(&endpoint);
  }
  for (auto& [linkId, list] : endpoints)
    std::stable_sort(list.begin(), list.end(), [](const auto* a, const auto* b) { return a->index < b->index; });
}

void KeptMetadata::AddPlaces(cJSON* places) const {
  if (records.empty()) return;
  std::unordered_set<std::string_view> known;
  for (const auto& node : nodes) known.insert(node->NodeId());
  for (const StandInRecord* record : records)
    for (const auto& [key, json] : record->places)
      if (!known.contains(NodeIdentity::Of(key).uuid))
        cJSON_AddItemToObject(places, key.c_str(), cJSON_Duplicate(json.get(), true));
}

void KeptMetadata::InsertEndpoints(std::vector<std::string>& list, const std::string& linkId,
                                   std::string_view key) const {
  const auto found = endpoints.find(linkId);
  if (found == endpoints.end()) return;
  for (const StandInRecord::Endpoint* endpoint : found->second)
    if (endpoint->key == key)
      list.insert(list.begin() + static_cast<std::ptrdiff_t>(std::min(endpoint->index, list.size())), endpoint->text);
}

} // namespace Tesselor
