#include "document/LossReport.h"

#include "document/ArrayMatch.h"
#include "document/ExportedNodes.h"
#include "document/LossText.h"
#include "document/MemberMatch.h"
#include "nodes/NodeIdentity.h"
#include "nodes/NodeKeys.h"
#include "platform/AsciiCase.h"

#include <array>
#include <cjson/cJSON.h>
#include <cmath>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace Tesselor {

namespace {

constexpr char StandsTwice[] = "nothing (the key stands there twice)";
constexpr char IsInArrayAlready[] = "nothing (the array holds the node already)";

std::string_view KeyOf(const cJSON* member) { return member->string ? member->string : ""; }
bool HasKey(const cJSON* member, std::string_view key) { return EqualsIgnoringCase(KeyOf(member), key); }

/// Places are written as whole numbers or come from single-precision ones.
bool IsSamePlace(const cJSON* a, const cJSON* b) {
  const auto coordinate = [](const cJSON* place, const char* key) {
    const cJSON* item = cJSON_GetObjectItem(place, key);
    return cJSON_IsNumber(item) ? item->valuedouble : 0;
  };
  const auto isNear = [&](const char* key) { return std::fabs(coordinate(a, key) - coordinate(b, key)) < 1; };
  return cJSON_IsObject(a) && isNear(Keys::X) && isNear(Keys::Y);
}

class Comparison {
public:
  Comparison(const cJSON& file, const cJSON& exported, const std::vector<LongNumber>& numbers)
      : file(file), exported(exported), nodes(exported), metadata(cJSON_GetObjectItem(&file, Keys::Metadata)) {
    for (const cJSON* place : {metadata, &file})
      for (const char* key : {Keys::FloatingNodes, Keys::FormerFloatingNodes})
        if (!floating) floating = cJSON_GetObjectItem(place, key);
    if (!numbers.empty()) {
      size_t index = 0;
      auto next = numbers.begin();
      NoteLongNumbers(&file, index, next, numbers.end());
    }
  }

  std::vector<Loss> Run() {
    const NodeScope scope(*this, &exported);
    for (const MemberMatch& match : MatchMembers(file, exported)) {
      const PathScope step(path, KeyOf(match.member));
      if (match.member == metadata && cJSON_IsObject(metadata))
        CompareMetadata();
      else if (!metadata && IsMetadataKey(match.member))
        CompareMetadataMember(match.member);
      else if (match.member == floating)
        CompareFloating(match.member);
      else
        CompareMember(match, &exported);
    }
    return std::move(losses);
  }

private:
  /// Holds one more step of the path for as long as it lives.
  class PathScope {
  public:
    PathScope(std::string& path, std::string_view key) : path(path), length(path.size()) { AppendKey(path, key); }
    PathScope(std::string& path, const ArrayElement& element) : path(path), length(path.size()) {
      AppendIndex(path, element.index);
      path += element.below;
    }
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
    NodeScope(Comparison& comparison, const cJSON* object) : comparison(comparison), former(comparison.nodeId) {
      if (const std::string_view uuid = UuidOf(object); !uuid.empty()) comparison.nodeId = uuid;
    }
    ~NodeScope() { comparison.nodeId = former; }
    NodeScope(const NodeScope&) = delete;
    NodeScope& operator=(const NodeScope&) = delete;

  private:
    Comparison& comparison;
    std::string_view former;
  };

  void NoteLongNumbers(const cJSON* value, size_t& index, std::vector<LongNumber>::const_iterator& next,
                       std::vector<LongNumber>::const_iterator end) {
    if (cJSON_IsNumber(value)) {
      if (next != end && next->index == index) longNumbers.emplace(value, (next++)->digits);
      ++index;
    }
    const cJSON* child = nullptr;
    cJSON_ArrayForEach(child, value) NoteLongNumbers(child, index, next, end);
  }

  void Add(std::string was, std::string becomes) {
    losses.push_back({path, std::move(was), std::move(becomes), std::string(nodeId)});
  }
  void AddMissing(const cJSON* value, const char* becomes = BecomesNothing) { Add(ShortText(value), becomes); }

  void Compare(const cJSON* value, const cJSON* written) {
    if (cJSON_IsObject(value) && cJSON_IsObject(written)) {
      if (IsLinkElement(value) && !IsLinkElement(written))
        CompareBehindLink(value, written);
      else
        CompareObjects(value, written);
    } else if (cJSON_IsArray(value) && cJSON_IsArray(written)) {
      CompareArrays(value, written);
    } else if (const auto found = longNumbers.find(value); found != longNumbers.end()) {
      Add(ShortText(found->second), ShortText(written));
    } else if (!cJSON_Compare(value, written, true) || IsOtherNumber(value, written)) {
      Add(ShortText(value), ShortText(written));
    }
  }

  /// The library takes numbers for equal that differ in their last digit.
  static bool IsOtherNumber(const cJSON* value, const cJSON* written) {
    return cJSON_IsNumber(value) && value->valuedouble != written->valuedouble;
  }

  void CompareObjects(const cJSON* object, const cJSON* written) {
    const NodeScope scope(*this, written);
    for (const MemberMatch& match : MatchMembers(*object, *written)) {
      const PathScope step(path, KeyOf(match.member));
      CompareMember(match, written);
    }
  }

  void CompareMember(const MemberMatch& match, const cJSON* written) {
    const cJSON* member = match.member;
    // An object without members has no value, and a map without entries is written as an array.
    const bool isEmpty = cJSON_IsObject(member) && !member->child;
    const bool staysEmpty = !match.counterpart || (cJSON_IsArray(match.counterpart) && !match.counterpart->child);
    if (isEmpty && staysEmpty) return;
    if (!match.counterpart) {
      if (!IsInMetadata(member, written)) CompareMissing(member, match.isRepeated ? StandsTwice : BecomesNothing);
    } else if (HasKey(member, Keys::NodeId)) {
      CompareIdentity(member, match.counterpart);
    } else if (!HasKey(member, Keys::Generic)) {
      Compare(member, match.counterpart);
    }
  }

  /// A type gets a UUID when it is first written.
  void CompareIdentity(const cJSON* id, const cJSON* written) {
    const bool isExtended = cJSON_IsString(id) && cJSON_IsString(written) &&
                            NodeIdentity::Of(id->valuestring).uuid.empty() &&
                            NodeIdentity::Of(written->valuestring).type == NodeIdentity::Of(id->valuestring).type;
    if (!isExtended) Compare(id, written);
  }

  bool IsInMetadata(const cJSON* member, const cJSON* written) const {
    const bool isPlace = HasKey(member, Keys::Position) || HasKey(member, Keys::RootNodePosition);
    if (!isPlace && !HasKey(member, Keys::Title)) return false;
    const cJSON* entry = nodes.PlaceOf(UuidOf(written));
    if (!entry) return false;
    if (isPlace) return IsSamePlace(member, cJSON_GetObjectItem(entry, Keys::Position));
    const cJSON* title = cJSON_GetObjectItem(entry, Keys::Title);
    // None is written for a node that has the title of its type.
    return cJSON_IsString(member) && (!title || cJSON_Compare(member, title, true));
  }

  /// What stands nowhere at its place may stand elsewhere.
  void CompareMissing(const cJSON* value, const char* becomes) {
    const std::string_view uuid = UuidOf(value);
    const cJSON* moved = nodes.AmongFloating(uuid);
    // Also what stood behind a pass-through node, which gets a new UUID when it is read.
    if (!moved && cJSON_IsObject(value) && !nodes.InTree(uuid)) moved = FindNewFloating(value);
    if (!moved) {
      AddMissing(value, becomes);
      return;
    }
    {
      const NodeScope scope(*this, moved);
      Add(ShortText(value), MovesToFloatingNodes);
    }
    if (compared.insert(moved).second) CompareObjects(value, moved);
  }

  /// The floating entry that a node without a UUID of its own has become: those of the tree come before the file's own.
  const cJSON* FindNewFloating(const cJSON* value) {
    if (!areNewFloatingKnown) {
      areNewFloatingKnown = true;
      const cJSON* written = cJSON_GetObjectItem(nodes.Metadata(), Keys::FloatingNodes);
      const int more = cJSON_GetArraySize(written) - (cJSON_IsArray(floating) ? cJSON_GetArraySize(floating) : 0);
      const cJSON* entry = written ? written->child : nullptr;
      for (int i = 0; i < more && entry; ++i, entry = entry->next) newFloating.push_back(entry);
    }
    constexpr size_t farthest = 8;
    for (size_t i = nextFloating; i < newFloating.size() && i < nextFloating + farthest; ++i) {
      if (compared.contains(newFloating[i]) || !Resembles(value, newFloating[i])) continue;
      if (i == nextFloating) ++nextFloating;
      return newFloating[i];
    }
    return nullptr;
  }

  void CompareBehindLink(const cJSON* link, const cJSON* written) {
    bool isFirst = true;
    for (const ArrayElement& element : ElementsBehind(link)) {
      const size_t length = path.size();
      path += element.below;
      if (isFirst)
        Compare(element.value, written);
      else
        CompareMissing(element.value, BecomesNothing);
      isFirst = false;
      path.resize(length);
    }
    if (isFirst) AddMissing(link);
  }

  void CompareArrays(const cJSON* array, const cJSON* written) {
    ArrayMatch matched(array, written, [this](const cJSON* element) {
      const std::string_view uuid = UuidOf(element);
      return nodes.AmongFloating(uuid) || nodes.InTree(uuid);
    });
    for (const auto& [element, counterpart, isRepeated] : matched.pairs) {
      const PathScope step(path, element);
      if (counterpart)
        Compare(element.value, counterpart);
      else
        CompareMissing(element.value, isRepeated ? IsInArrayAlready : BecomesNothing);
    }
    if (const std::string order = matched.OrderOfWritten(); !order.empty())
      Add("elements in their order", "the order " + ShortText(order));
    if (matched.hasMoreScalars) Add(ShortText(array), ShortText(written));
  }

  // The editor's own data.
  static bool IsMetadataKey(const cJSON* member) {
    static constexpr std::array<std::string_view, 7> keys = {
        Keys::Nodes,  Keys::FloatingNodes, Keys::FormerFloatingNodes, Keys::Links,
        Keys::Groups, Keys::Comments,      Keys::WorkspaceId};
    for (const std::string_view key : keys)
      if (HasKey(member, key)) return true;
    return false;
  }

  void CompareMetadata() {
    const cJSON* member = nullptr;
    cJSON_ArrayForEach(member, metadata) {
      const PathScope step(path, KeyOf(member));
      if (IsMetadataKey(member))
        CompareMetadataMember(member);
      else
        AddMissing(member);
    }
  }

  void CompareMetadataMember(const cJSON* member) {
    const cJSON* written = cJSON_GetObjectItem(nodes.Metadata(), member->string);
    // The root of a document is chosen by whoever opens it.
    if (HasKey(member, Keys::WorkspaceId)) return;
    if (HasKey(member, Keys::FloatingNodes) || HasKey(member, Keys::FormerFloatingNodes))
      CompareFloating(member);
    else if (HasKey(member, Keys::Nodes) && cJSON_IsObject(member))
      ComparePlaces(member);
    else if (HasKey(member, Keys::Links) && cJSON_IsObject(member))
      CompareLinks(member, written);
    else if ((HasKey(member, Keys::Groups) || HasKey(member, Keys::Comments)) && cJSON_IsArray(member))
      CompareFrames(member, written);
    else
      Add(ShortText(member), ShortText(written));
  }

  void CompareFloating(const cJSON* member) {
    const cJSON* written = cJSON_GetObjectItem(nodes.Metadata(), Keys::FloatingNodes);
    if (member != floating) {
      AddMissing(member);
    } else if (!cJSON_IsArray(member)) {
      Add(ShortText(member), ShortText(written));
    } else {
      ArrayMatch matched(
          member, written, [this](const cJSON* element) { return nodes.InTree(UuidOf(element)) != nullptr; },
          [this](const cJSON* entry) { return compared.contains(entry); });
      for (const auto& [element, counterpart, isRepeated] : matched.pairs) {
        const PathScope step(path, element);
        // One that hangs on something by a link stands in the tree now.
        const cJSON* place = counterpart ? counterpart : nodes.InTree(UuidOf(element.value));
        if (!place) place = nodes.AmongFloating(UuidOf(element.value));
        if (place)
          Compare(element.value, place);
        else
          AddMissing(element.value);
      }
    }
  }

  /// Places of nodes that aren't there say nothing about the asset.
  void ComparePlaces(const cJSON* places) {
    const cJSON* place = nullptr;
    cJSON_ArrayForEach(place, places) {
      const std::string_view uuid = NodeIdentity::Of(KeyOf(place)).uuid;
      const cJSON* written = nodes.PlaceOf(uuid);
      if (!written) continue;
      const std::string_view former = std::exchange(nodeId, uuid);
      const PathScope step(path, KeyOf(place));
      ComparePlace(place, written, {});
      nodeId = former;
    }
  }

  /// What an entry of `$Nodes` or `$Links` has in common; `others` are members that are compared elsewhere.
  void ComparePlace(const cJSON* place, const cJSON* written, const std::vector<std::string_view>& others) {
    const cJSON* member = nullptr;
    cJSON_ArrayForEach(member, place) {
      bool isOther = false;
      for (const std::string_view key : others) isOther = isOther || HasKey(member, key);
      if (isOther) continue;
      const PathScope step(path, KeyOf(member));
      const cJSON* counterpart = cJSON_GetObjectItem(written, member->string);
      const bool isSame = HasKey(member, Keys::Position) ? IsSamePlace(member, counterpart)
                          : HasKey(member, Keys::Title)  ? !counterpart || cJSON_Compare(member, counterpart, true)
                                                         : false;
      if (isSame) continue;
      if (counterpart)
        Add(ShortText(member), ShortText(counterpart));
      else
        AddMissing(member);
    }
    if (!cJSON_IsObject(place)) Add(ShortText(place), ShortText(written));
  }

  void CompareLinks(const cJSON* links, const cJSON* written) {
    std::unordered_map<std::string_view, const cJSON*> byId;
    const cJSON* link = nullptr;
    cJSON_ArrayForEach(link, written) byId.emplace(KeyOf(link), link);
    cJSON_ArrayForEach(link, links) {
      const PathScope step(path, KeyOf(link));
      const auto found = byId.find(KeyOf(link));
      if (found == byId.end()) {
        AddMissing(link);
        continue;
      }
      ComparePlace(link, found->second,
                   {Keys::InputConnections, Keys::OutputConnections, Keys::SourceEndpoint, Keys::TargetEndpoint});
      for (const char* key : {Keys::InputConnections, Keys::OutputConnections})
        CompareEndpoints(link, found->second, key);
    }
  }

  /// Of an endpoint only the UUID and the pin count.
  static std::string EndpointKey(const cJSON* endpoint) {
    const std::string_view text = endpoint->valuestring;
    return std::string(text.starts_with("link:") ? text : NodeIdentity::Of(text).uuid);
  }

  void CompareEndpoints(const cJSON* link, const cJSON* written, const char* key) {
    std::unordered_set<std::string> known;
    const cJSON* endpoint = nullptr;
    cJSON_ArrayForEach(endpoint, cJSON_GetObjectItem(written, key)) known.insert(EndpointKey(endpoint));
    const PathScope member(path, key);
    size_t index = 0;
    cJSON_ArrayForEach(endpoint, cJSON_GetObjectItem(link, key)) {
      const PathScope step(path, ArrayElement{endpoint, index++, {}});
      if (!cJSON_IsString(endpoint) || !known.contains(EndpointKey(endpoint))) AddMissing(endpoint);
    }
  }

  void CompareFrames(const cJSON* frames, const cJSON* written) {
    const cJSON* other = written ? written->child : nullptr;
    const cJSON* frame = nullptr;
    size_t index = 0;
    cJSON_ArrayForEach(frame, frames) {
      const PathScope step(path, ArrayElement{frame, index++, {}});
      const cJSON* counterpart = other;
      if (other) other = other->next;
      if (!counterpart || !cJSON_IsObject(frame)) {
        Add(ShortText(frame), counterpart ? ShortText(counterpart) : BecomesNothing);
        continue;
      }
      for (const MemberMatch& match : MatchMembers(*frame, *counterpart)) {
        const PathScope key(path, KeyOf(match.member));
        const cJSON* value = match.counterpart;
        const bool isSame = HasKey(match.member, Keys::Position)
                                ? IsSamePlace(match.member, value)
                                : cJSON_IsNumber(match.member) && cJSON_IsNumber(value) &&
                                      std::fabs(match.member->valuedouble - value->valuedouble) < 0.01;
        if (isSame) continue;
        if (value)
          Compare(match.member, value);
        else
          AddMissing(match.member);
      }
    }
  }

  const cJSON& file;
  const cJSON& exported;
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

  std::string path = "$";
  std::string_view nodeId;
  std::vector<Loss> losses;
};

} // namespace

std::string Loss::Line() const {
  return path + ": was " + was + (becomes == MovesToFloatingNodes ? " " : " becomes ") + becomes;
}

std::vector<Loss> FindLosses(const cJSON& file, const cJSON& exported, const std::vector<LongNumber>& longNumbers) {
  return Comparison(file, exported, longNumbers).Run();
}

} // namespace Tesselor
