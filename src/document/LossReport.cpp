#include "document/LossReport.h"

#include "document/LossComparison.h"
#include "document/LossText.h"
#include "document/SchemaKey.h"
#include "nodes/NodeIdentity.h"
#include "nodes/NodeKeys.h"
#include "platform/AsciiCase.h"

#include <cjson/cJSON.h>
#include <cmath>

namespace Tesselor {

namespace {

constexpr char StandsTwice[] = "nothing (the key stands there twice)";
constexpr char IsInArrayAlready[] = "nothing (the array holds the node already)";
constexpr char LosesItsKey[] = "a node without that key";

/// An object without members has no value.
bool IsEmptyObject(const cJSON* value) { return cJSON_IsObject(value) && !value->child; }

bool IsPlaceKey(const cJSON* member) {
  return HasKey(member, Keys::Position) || HasKey(member, Keys::RootNodePosition);
}

double Coordinate(const cJSON* place, const char* key) {
  const cJSON* item = cJSON_GetObjectItem(place, key);
  return cJSON_IsNumber(item) ? item->valuedouble : 0;
}

/// Places are written as whole numbers or come from single-precision ones.
bool IsNear(double a, double b) { return std::fabs(a - b) < 1; }

long WholeCoordinate(const cJSON* place, const char* key) {
  constexpr double farthest = 1e9;
  return std::lround(std::trunc(std::min(std::max(Coordinate(place, key), -farthest), farthest)));
}

} // namespace

std::string_view KeyOf(const cJSON* member) { return member->string ? member->string : ""; }
bool HasKey(const cJSON* member, std::string_view key) { return EqualsIgnoringCase(KeyOf(member), key); }

LossComparison::PathScope::PathScope(std::string& path, std::string_view key) : path(path), length(path.size()) {
  AppendKey(path, key);
}

LossComparison::PathScope::PathScope(std::string& path, const ArrayElement& element) : path(path), length(path.size()) {
  AppendIndex(path, element.index);
  path += element.below;
}

LossComparison::NodeScope::NodeScope(LossComparison& comparison, const cJSON* object)
    : comparison(comparison), former(comparison.nodeId) {
  if (const std::string_view uuid = UuidOf(object); !uuid.empty()) comparison.nodeId = uuid;
}

LossComparison::LossComparison(const cJSON& file, const cJSON& exported, const NodeShapes& shapes,
                               const std::vector<LongNumber>& numbers)
    : file(file), exported(exported), shapes(shapes), nodes(exported),
      metadata(cJSON_GetObjectItem(&file, Keys::Metadata)) {
  for (const cJSON* place : {metadata, &file})
    for (const char* key : {Keys::FloatingNodes, Keys::FormerFloatingNodes})
      if (!floating) floating = cJSON_GetObjectItem(place, key);
  if (!numbers.empty()) {
    size_t index = 0;
    auto next = numbers.begin();
    NoteLongNumbers(&file, index, next, numbers.end());
  }
  const cJSON* link = nullptr;
  cJSON_ArrayForEach(link, cJSON_GetObjectItem(nodes.Metadata(), Keys::Links)) {
    const cJSON* place = cJSON_GetObjectItem(link, Keys::Position);
    placesOfLinks.emplace(WholeCoordinate(place, Keys::X), WholeCoordinate(place, Keys::Y));
    const cJSON* title = cJSON_GetObjectItem(link, Keys::Title);
    titlesOfLinks.insert(cJSON_IsString(title) ? title->valuestring : BuiltIn::Link);
  }
}

std::vector<Loss> LossComparison::Run() {
  CompareNode(&file, &exported);
  return std::move(losses);
}

void LossComparison::NoteLongNumbers(const cJSON* value, size_t& index, std::vector<LongNumber>::const_iterator& next,
                                     std::vector<LongNumber>::const_iterator end) {
  if (cJSON_IsNumber(value)) {
    if (next != end && next->index == index) longNumbers.emplace(value, (next++)->digits);
    ++index;
  }
  const cJSON* child = nullptr;
  cJSON_ArrayForEach(child, value) NoteLongNumbers(child, index, next, end);
}

void LossComparison::Add(std::string was, std::string becomes) {
  losses.push_back({path, std::move(was), std::move(becomes), std::string(nodeId)});
}

void LossComparison::AddMissing(const cJSON* value, const char* becomes) {
  const auto found = longNumbers.find(value);
  Add(found == longNumbers.end() ? ShortText(value) : ShortText(found->second), becomes);
}

void LossComparison::Compare(const cJSON* value, const cJSON* written, Content content) {
  const bool areObjects = cJSON_IsObject(value) && cJSON_IsObject(written);
  if (content == Content::Node && IsLinkElement(value) && !IsLinkElement(written))
    CompareBehindLink(value, written);
  else if (content == Content::Node && areObjects)
    CompareNode(value, written);
  else if (content == Content::Map && areObjects)
    CompareMap(value, written);
  else
    CompareData(value, written);
}

void LossComparison::CompareData(const cJSON* value, const cJSON* written) {
  if (cJSON_IsObject(value) && cJSON_IsObject(written)) {
    for (const MemberMatch& match : MatchMembers(*value, *written)) {
      const PathScope step(path, KeyOf(match.member));
      if (match.counterpart)
        CompareData(match.member, match.counterpart);
      else if (!IsEmptyObject(match.member))
        AddMissing(match.member, match.isRepeated ? StandsTwice : BecomesNothing);
    }
  } else if (cJSON_IsArray(value) && cJSON_IsArray(written)) {
    CompareDataArrays(value, written);
  } else if (const auto found = longNumbers.find(value); found != longNumbers.end()) {
    Add(ShortText(found->second), ShortText(written));
  } else if (IsEmptyObject(value) && cJSON_IsArray(written) && !written->child) {
    // A dictionary or map without entries is written as an array.
  } else {
    // The library takes numbers for equal that differ in their last digit.
    const bool isOtherNumber = cJSON_IsNumber(value) && value->valuedouble != written->valuedouble;
    if (isOtherNumber || !cJSON_Compare(value, written, true)) Add(ShortText(value), ShortText(written));
  }
}

void LossComparison::CompareDataArrays(const cJSON* array, const cJSON* written) {
  ArrayMatch matched(PlainElementsOf(array), written, {});
  for (const ArrayMatch::Pair& pair : matched.pairs) {
    const PathScope step(path, pair.element);
    if (pair.counterpart)
      CompareData(pair.element.value, pair.counterpart);
    else
      AddMissing(pair.element.value);
  }
  if (matched.hasMoreScalars) Add(ShortText(array), ShortText(written));
}

void LossComparison::CompareNode(const cJSON* node, const cJSON* written) {
  const NodeScope scope(*this, written);
  const NodeBlueprint* blueprint = shapes.BlueprintOf(written);
  const std::vector<MemberMatch> matches = MatchMembers(*node, *written);
  // Of several arrays under one key all elements hang on its pin.
  std::unordered_map<std::string_view, std::vector<const cJSON*>> further;
  const auto isFurther = [&](const MemberMatch& match) {
    return match.isRepeated && !match.counterpart && NodeShapes::ContentOf(blueprint, match.member) == Content::Nodes;
  };
  for (const MemberMatch& match : matches)
    if (isFurther(match)) further[KeyOf(match.member)].push_back(match.member);

  for (const MemberMatch& match : matches) {
    const cJSON* member = match.member;
    const PathScope step(path, KeyOf(member));
    if (node == &file && CompareOwnData(member)) continue;
    const Content content = NodeShapes::ContentOf(blueprint, member);
    if (content == Content::Nodes && match.counterpart && cJSON_IsArray(match.counterpart)) {
      std::vector<const cJSON*> arrays{member};
      if (const auto more = further.extract(KeyOf(member)))
        arrays.insert(arrays.end(), more.mapped().begin(), more.mapped().end());
      CompareNodes(arrays, match.counterpart, written);
    } else if (!isFurther(match) || further.contains(KeyOf(member))) {
      CompareNodeMember(match, written, content);
    }
  }
}

void LossComparison::CompareNodeMember(const MemberMatch& match, const cJSON* written, Content content) {
  const cJSON* member = match.member;
  if (!match.counterpart) {
    if (content == Content::Node && IsLinkElement(member))
      CompareBehindLink(member, nullptr);
    else if (!IsEmptyObject(member) && !CompareInMetadata(member, written))
      CompareMissing(member, match.isRepeated ? StandsTwice : BecomesNothing);
  } else if (HasKey(member, Keys::NodeId)) {
    CompareIdentity(member, match.counterpart);
  } else {
    Compare(member, match.counterpart, content);
  }
}

/// Several arrays stand for one pin if their key stands there several times.
void LossComparison::CompareNodes(const std::vector<const cJSON*>& arrays, const cJSON* written, const cJSON* parent) {
  const auto isElsewhere = [this](const cJSON* element) {
    const std::string_view uuid = UuidOf(element);
    return nodes.AmongFloating(uuid) || nodes.InTree(uuid);
  };
  std::vector<ArrayElement> elements;
  for (const cJSON* array : arrays)
    for (ArrayElement& element : ElementsOf(array)) elements.push_back(std::move(element));
  const ArrayMatch matched(std::move(elements), written, {isElsewhere, {}, shapes.OriginsOf(parent, arrays.front())});
  for (const ArrayMatch::Pair& pair : matched.pairs) {
    const PathScope step(path, pair.element);
    ComparePair(pair);
  }
  if (const std::string order = matched.OrderOfWritten(); !order.empty())
    Add("elements in their order", "the order " + ShortText(order));
}

void LossComparison::ComparePair(const ArrayMatch::Pair& pair) {
  const ArrayElement& element = pair.element;
  if (element.isLink) {
    CompareLinkItself(element.value);
  } else if (!pair.counterpart) {
    CompareMissing(element.value, pair.isRepeated ? IsInArrayAlready : BecomesNothing);
  } else {
    if (element.losesKey) Add(ShortText(element.value), LosesItsKey);
    Compare(element.value, pair.counterpart, Content::Node);
  }
}

/// What stands behind a pass-through node in a map comes back under keys of its own.
void LossComparison::CompareMap(const cJSON* map, const cJSON* written) {
  const std::vector<MemberMatch> matches = MatchMembers(*map, *written);
  std::unordered_set<const cJSON*> known;
  for (const MemberMatch& match : matches)
    if (!IsLinkElement(match.member)) known.insert(match.counterpart);
  const cJSON* next = written->child;
  const auto takeNext = [&]() -> const cJSON* {
    while (next && known.contains(next)) next = next->next;
    return next ? std::exchange(next, next->next) : nullptr;
  };
  for (const MemberMatch& match : matches) {
    const PathScope step(path, KeyOf(match.member));
    if (!IsLinkElement(match.member)) {
      CompareNodeMember(match, nullptr, Content::Node);
      continue;
    }
    for (const ArrayElement& element : ElementsBehind(match.member)) {
      const size_t length = path.size();
      path += element.below;
      const cJSON* counterpart = element.isLink ? nullptr : takeNext();
      if (counterpart) Add(ShortText(element.value), "the member " + ShortText(KeyOf(counterpart)));
      ComparePair({element, counterpart});
      path.resize(length);
    }
  }
}

void LossComparison::CompareBehindLink(const cJSON* link, const cJSON* written) {
  for (const ArrayElement& element : ElementsBehind(link)) {
    const size_t length = path.size();
    path += element.below;
    ComparePair({element, element.isLink ? nullptr : written});
    // A pin that takes one node shows the first.
    if (!element.isLink) written = nullptr;
    path.resize(length);
  }
}

/// Of a pass-through node the metadata keep place, title and connections.
void LossComparison::CompareLinkItself(const cJSON* link) {
  bool isMarked = false;
  const cJSON* member = nullptr;
  cJSON_ArrayForEach(member, link) {
    const bool isMark = !isMarked && HasKey(member, Keys::Link);
    isMarked = isMarked || isMark;
    const bool isRead = cJSON_IsArray(member) ? KeyOf(member) == Keys::Children
                                              : cJSON_IsObject(member) && !IsEditorKey(member->string);
    if (isMark || isRead || IsEmptyObject(member) || IsInLinks(member)) continue;
    const PathScope step(path, KeyOf(member));
    AddMissing(member);
  }
}

bool LossComparison::IsInLinks(const cJSON* member) {
  if (HasKey(member, Keys::NodeId))
    return cJSON_IsString(member) && member->valuestring == std::string_view(BuiltIn::Link);
  if (HasKey(member, Keys::Title)) return cJSON_IsString(member) && titlesOfLinks.contains(member->valuestring);
  if (!IsPlaceKey(member) || !cJSON_IsObject(member)) return false;
  const long x = WholeCoordinate(member, Keys::X), y = WholeCoordinate(member, Keys::Y);
  for (const long left : {x - 1, x, x + 1})
    for (const long top : {y - 1, y, y + 1})
      if (placesOfLinks.contains({left, top})) {
        const PathScope step(path, KeyOf(member));
        const cJSON* coordinate = nullptr;
        cJSON_ArrayForEach(coordinate, member) if (!cJSON_IsNumber(coordinate)) {
          const PathScope inner(path, KeyOf(coordinate));
          AddMissing(coordinate);
        }
        return true;
      }
  return false;
}

/// A type gets a UUID when it is first written.
void LossComparison::CompareIdentity(const cJSON* id, const cJSON* written) {
  const bool isExtended = cJSON_IsString(id) && cJSON_IsString(written) &&
                          NodeIdentity::Of(id->valuestring).uuid.empty() &&
                          NodeIdentity::Of(written->valuestring).type == NodeIdentity::Of(id->valuestring).type;
  if (!isExtended) CompareData(id, written);
}

/// Whether a member of a node's object is one that goes to the metadata, and is there.
bool LossComparison::CompareInMetadata(const cJSON* member, const cJSON* written) {
  const bool isPlace = IsPlaceKey(member);
  if (!isPlace && !HasKey(member, Keys::Title)) return false;
  for (const cJSON* entry : nodes.PlacesOf(UuidOf(written))) {
    const cJSON* title = cJSON_GetObjectItem(entry, Keys::Title);
    // None is written for a node that has the title of its type.
    if (isPlace ? ComparePosition(member, cJSON_GetObjectItem(entry, Keys::Position))
                : cJSON_IsString(member) && (!title || cJSON_Compare(member, title, true)))
      return true;
  }
  return false;
}

/// False if it is another place altogether.
bool LossComparison::ComparePosition(const cJSON* position, const cJSON* written) {
  if (!cJSON_IsObject(position) || !cJSON_IsObject(written)) return false;
  for (const char* key : {Keys::X, Keys::Y})
    if (!IsNear(Coordinate(position, key), Coordinate(written, key))) return false;
  for (const MemberMatch& match : MatchMembers(*position, *written)) {
    const bool isCoordinate = match.counterpart && cJSON_IsNumber(match.member);
    if (isCoordinate && IsNear(match.member->valuedouble, match.counterpart->valuedouble)) continue;
    const PathScope step(path, KeyOf(match.member));
    if (match.counterpart)
      Add(ShortText(match.member), ShortText(match.counterpart));
    else if (!IsEmptyObject(match.member))
      AddMissing(match.member, match.isRepeated ? StandsTwice : BecomesNothing);
  }
  return true;
}

/// What stands nowhere at its place may stand elsewhere.
void LossComparison::CompareMissing(const cJSON* value, const char* becomes) {
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
  if (compared.insert(moved).second) CompareNode(value, moved);
}

/// The floating entry that a node without a UUID of its own has become: those of the tree come before the file's own.
const cJSON* LossComparison::FindNewFloating(const cJSON* value) {
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

std::string Loss::Line() const {
  return path + ": was " + was + (becomes == MovesToFloatingNodes ? " " : " becomes ") + becomes;
}

std::vector<Loss> FindLosses(const cJSON& file, const cJSON& exported, const NodeShapes& shapes,
                             const std::vector<LongNumber>& longNumbers) {
  return LossComparison(file, exported, shapes, longNumbers).Run();
}

} // namespace Tesselor
