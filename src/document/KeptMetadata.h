#pragma once

#include "nodes/StandInRecord.h"
#include "toolkit/base/Object.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct cJSON;

namespace Tesselor {

class ContentNode;
class Graph;

/// Notes in the nodes that stand in for others what the metadata says of those that their texts hold: places and
/// titles, and ends of pass-through nodes. All nodes but the pass-through ones are made.
void KeepMetadataOfStandIns(const cJSON* metadata, const Graph& view);

/// What was noted so, for a save. Holds pointers into the nodes only.
class KeptMetadata {
public:
  explicit KeptMetadata(const std::vector<Toolkit::Ptr<ContentNode>>& nodes);

  /// Adds the entries of nodes that have none of their own.
  void AddPlaces(cJSON* places) const;
  /// Adds the ends that the pass-through node of that id has in texts to its list `key`, at their places.
  void InsertEndpoints(std::vector<std::string>& list, const std::string& linkId, std::string_view key) const;

private:
  const std::vector<Toolkit::Ptr<ContentNode>>& nodes;
  std::vector<const StandInRecord*> records;
  std::unordered_map<std::string_view, std::vector<const StandInRecord::Endpoint*>> endpoints;
};

} // namespace Tesselor
