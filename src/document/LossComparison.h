#pragma once

#include "document/ArrayMatch.h"
#include "document/ExportedNodes.h"
#include "document/LossReport.h"
#include "document/MemberMatch.h"
#include "document/NodeShapes.h"

#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace Tesselor {

/// The walk over a file's tree that `FindLosses` makes. What the schemas know as nodes is compared as nodes, whose
/// places, titles and pass-through nodes may stand elsewhere; all else value by value.
class LossComparison {
public:
  LossComparison(const cJSON& file, const cJSON& exported, const NodeShapes& shapes,
                 const std::vector<LongNumber>& numbers);
  std::vector<Loss> Run();

private:
  using Content = NodeShapes::Content;

  /// Holds one more step of the path for as long as it lives.
  class PathScope {
  public:
    PathScope(std::string& path, std::string_view key);
    PathScope(std::string& path, const ArrayElement& element);
    ~PathScope() { path.resize(length); }
    PathScope(const PathScope&) = delete;
    PathScope& operator=(const PathScope&) = delete;

  private:
    std::string& path;
    size_t length;
  };
  /// The node around what is compared, if the object is one.
  class NodeScope {
  public:
    NodeScope(LossComparison& comparison, const cJSON* object);
    ~NodeScope() { comparison.nodeId = former; }
    NodeScope(const NodeScope&) = delete;
    NodeScope& operator=(const NodeScope&) = delete;

  private:
    LossComparison& comparison;
    std::string_view former;
  };

  void NoteLongNumbers(const cJSON* value, size_t& index, std::vector<LongNumber>::const_iterator& next,
                       std::vector<LongNumber>::const_iterator end);
  void Add(std::string was, std::string becomes);
  void AddMissing(const cJSON* value, const char* becomes = BecomesNothing);

  void Compare(const cJSON* value, const cJSON* written, Content content);
  // Values.
  void CompareData(const cJSON* value, const cJSON* written);
  void CompareDataArrays(const cJSON* array, const cJSON* written);
  // Nodes.
  void CompareNode(const cJSON* node, const cJSON* written);
  void CompareNodeMember(const MemberMatch& match, const cJSON* written, Content content);
  void CompareNodes(const std::vector<const cJSON*>& arrays, const cJSON* written, const cJSON* parent);
  void ComparePair(const ArrayMatch::Pair& pair);
  void CompareMap(const cJSON* map, const cJSON* written);
  void CompareBehindLink(const cJSON* link, const cJSON* written);
  void CompareLinkItself(const cJSON* link);
  void CompareIdentity(const cJSON* id, const cJSON* written);
  bool CompareInMetadata(const cJSON* member, const cJSON* written);
  bool IsInLinks(const cJSON* member);
  bool ComparePosition(const cJSON* position, const cJSON* written);
  void CompareMissing(const cJSON* value, const char* becomes);
  const cJSON* FindNewFloating(const cJSON* value);

  // The editor's own data, in LossMetadata.cpp.
  static bool IsMetadataKey(const cJSON* member);
  bool CompareOwnData(const cJSON* member);
  void CompareMetadata();
  void CompareMetadataMember(const cJSON* member);
  void CompareFloating(const cJSON* member);
  void ComparePlaces(const cJSON* places);
  void ComparePlaceOfNone(const cJSON* place);
  void ComparePlace(const cJSON* place, const cJSON* written, const std::vector<std::string_view>& others);
  void CompareLinks(const cJSON* links, const cJSON* written);
  void CompareEndpoints(const cJSON* link, const cJSON* written, const char* key);
  void CompareFrames(const cJSON* frames, const cJSON* written);

  const cJSON& file;
  const cJSON& exported;
  const NodeShapes& shapes;
  ExportedNodes nodes;
  const cJSON* metadata;
  /// The array of floating nodes that is read.
  const cJSON* floating = nullptr;
  std::unordered_map<const cJSON*, std::string> longNumbers;
  /// Entries of the exported floating nodes that have their counterpart in the file's tree.
  std::unordered_set<const cJSON*> compared;
  std::vector<const cJSON*> newFloating;
  size_t nextFloating = 0;
  bool areNewFloatingKnown = false;
  /// Places and titles of the exported pass-through nodes.
  std::set<std::pair<long, long>> placesOfLinks;
  std::unordered_set<std::string_view> titlesOfLinks;

  std::string path = "$";
  std::string_view nodeId;
  std::vector<Loss> losses;
};

/// What two comparisons of members share.
std::string_view KeyOf(const cJSON* member);
bool HasKey(const cJSON* member, std::string_view key);

} // namespace Tesselor
