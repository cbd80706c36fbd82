#include "document/NodeEntry.h"

#include "nodes/NodeKeys.h"

#include <cjson/cJSON.h>
#include <strings.h>
#include <utility>

namespace Tesselor {

NodeEntry::NodeEntry(const cJSON* json) {
  const std::pair<const char*, const cJSON**> known[] = {
      {Keys::NodeId, &nodeId},     {Keys::Generic, &generic},
      {Keys::Link, &link},         {Keys::Title, &title},
      {Keys::Comment, &comment},   {Keys::Name, &name},
      {Keys::Position, &position}, {Keys::RootNodePosition, &rootPosition}};
  const cJSON* member = nullptr;
  cJSON_ArrayForEach(member, json) {
    const char* key = member->string;
    // All keys but one begin with a dollar, and few of an asset's own do.
    if (!key || (key[0] != '$' && key[0] != 'N' && key[0] != 'n')) continue;
    for (const auto& [name, item] : known)
      if (!*item && strcasecmp(key, name) == 0) {
        *item = member;
        break;
      }
  }
}

} // namespace Tesselor
