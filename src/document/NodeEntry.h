#pragma once

struct cJSON;

namespace Tesselor {

/// The editor's own members of one node's object, found in a single walk. Keys match in any letter case; of equal keys
/// the first counts. Holds pointers into the JSON only.
struct NodeEntry {
  explicit NodeEntry(const cJSON* json);

  /// The object with the node's place; null if there is none.
  const cJSON* Place() const { return rootPosition ? rootPosition : position; }

  const cJSON* nodeId = nullptr;
  const cJSON* generic = nullptr;
  const cJSON* link = nullptr;
  const cJSON* title = nullptr;
  const cJSON* comment = nullptr;
  const cJSON* name = nullptr;
  const cJSON* position = nullptr;
  const cJSON* rootPosition = nullptr;
  const cJSON* copied = nullptr;
};

} // namespace Tesselor
