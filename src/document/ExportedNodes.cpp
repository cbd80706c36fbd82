#include "document/ExportedNodes.h"

#include "nodes/NodeIdentity.h"
#include "nodes/NodeKeys.h"

#include <cjson/cJSON.h>

namespace Tesselor {

std::string_view UuidOf(const cJSON* object) {
  const cJSON* id = cJSON_IsObject(object) ? cJSON_GetObjectItem(object, Keys::NodeId) : nullptr;
  return cJSON_IsString(id) ? NodeIdentity::Of(id->valuestring).uuid : std::string_view();
}

ExportedNodes::ExportedNodes(const cJSON& exported) : metadata(cJSON_GetObjectItem(&exported, Keys::Metadata)) {
  Collect(&exported, metadata, tree);
  Collect(cJSON_GetObjectItem(metadata, Keys::FloatingNodes), nullptr, floating);
  const cJSON* place = nullptr;
  cJSON_ArrayForEach(
      place,
      cJSON_GetObjectItem(metadata, Keys::Nodes)) if (const std::string_view uuid =
                                                          NodeIdentity::Of(place->string ? place->string : "").uuid;
                                                      !uuid.empty()) places[uuid]
      .push_back(place);
}

const std::vector<const cJSON*>& ExportedNodes::PlacesOf(std::string_view uuid) const {
  static const std::vector<const cJSON*> none;
  const auto found = places.find(uuid);
  return found == places.end() ? none : found->second;
}

const cJSON* ExportedNodes::Find(const Index& index, std::string_view uuid) {
  if (uuid.empty()) return nullptr;
  const auto found = index.find(uuid);
  return found == index.end() ? nullptr : found->second;
}

void ExportedNodes::Collect(const cJSON* value, const cJSON* except, Index& index) {
  if (const std::string_view uuid = UuidOf(value); !uuid.empty()) index.emplace(uuid, value);
  const cJSON* child = nullptr;
  cJSON_ArrayForEach(child, value) if (child != except) Collect(child, except, index);
}

} // namespace Tesselor
