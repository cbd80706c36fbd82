#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

struct cJSON;

namespace Tesselor {

/// The UUID in an object's "$NodeId"; empty if there is none.
std::string_view UuidOf(const cJSON* object);

/// Where the nodes of an exported document stand, by their UUIDs. Holds pointers into its tree only.
class ExportedNodes {
public:
  explicit ExportedNodes(const cJSON& exported);

  /// Null if there is none.
  const cJSON* InTree(std::string_view uuid) const { return Find(tree, uuid); }
  const cJSON* AmongFloating(std::string_view uuid) const { return Find(floating, uuid); }
  /// The entries of the metadata with the node's place and title, several if several nodes have the UUID.
  const std::vector<const cJSON*>& PlacesOf(std::string_view uuid) const;
  const cJSON* Metadata() const { return metadata; }

private:
  using Index = std::unordered_map<std::string_view, const cJSON*>;
  static const cJSON* Find(const Index& index, std::string_view uuid);
  static void Collect(const cJSON* value, const cJSON* except, Index& index);

  const cJSON* metadata;
  Index tree, floating;
  std::unordered_map<std::string_view, std::vector<const cJSON*>> places;
};

} // namespace Tesselor
