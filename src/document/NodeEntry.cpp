#include "document/NodeEntry.h"

#include "nodes/NodeKeys.h"
#include "platform/AsciiCase.h"

#include <cjson/cJSON.h>
#include <string_view>
#include <utility>

namespace Tesselor {

NodeEntry::NodeEntry(const cJSON* json) {
  const std::pair<std::string_view, const cJSON**> known[] = {
      {Keys::NodeId, &nodeId},     {Keys::Generic, &generic},
      {Keys::Link, &link},         {Keys::Title, &title},
      {Keys::Comment, &comment},   {Keys::Name, &name},
      {Keys::Position, &position}, {Keys::RootNodePosition, &rootPosition},
      {Keys::Copied, &copied}};
  const cJSON* member = nullptr;
  cJSON_ArrayForEach(member, json) {
    // All keys but one begin with a dollar, and few of an asset's own do.
    const char first = member->string ? member->string[0] : 0;
    if (first != '$' && first != 'N' && first != 'n') continue;
    const std::string_view key = member->string;
    for (const auto& [name, item] : known)
      if (!*item && EqualsIgnoringCase(key, name)) {
        *item = member;
        break;
      }
  }
}

} // namespace Tesselor
