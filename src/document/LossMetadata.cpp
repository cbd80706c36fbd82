// The part of LossComparison that holds the editor's own data against what is written of it.

#include "document/LossComparison.h"
#include "document/LossText.h"
#include "nodes/NodeIdentity.h"
#include "nodes/NodeKeys.h"

#include <array>
#include <cjson/cJSON.h>
#include <cmath>

namespace Tesselor {

bool LossComparison::IsMetadataKey(const cJSON* member) {
  static constexpr std::array<std::string_view, 7> keys = {
      Keys::Nodes,  Keys::FloatingNodes, Keys::FormerFloatingNodes, Keys::Links,
      Keys::Groups, Keys::Comments,      Keys::WorkspaceId};
  for (const std::string_view key : keys)
    if (HasKey(member, key)) return true;
  return false;
}

/// False for a member of the document that is none of the editor's.
bool LossComparison::CompareOwnData(const cJSON* member) {
  if (member == metadata && cJSON_IsObject(metadata))
    CompareMetadata();
  else if (!metadata && IsMetadataKey(member))
    CompareMetadataMember(member);
  else if (member == floating)
    CompareFloating(member);
  else
    return false;
  return true;
}

void LossComparison::CompareMetadata() {
  const cJSON* member = nullptr;
  cJSON_ArrayForEach(member, metadata) {
    const PathScope step(path, KeyOf(member));
    if (IsMetadataKey(member))
      CompareMetadataMember(member);
    else
      AddMissing(member);
  }
}

void LossComparison::CompareMetadataMember(const cJSON* member) {
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

void LossComparison::CompareFloating(const cJSON* member) {
  const cJSON* written = cJSON_GetObjectItem(nodes.Metadata(), Keys::FloatingNodes);
  if (member != floating) {
    AddMissing(member);
    return;
  }
  if (!cJSON_IsArray(member)) {
    Add(ShortText(member), ShortText(written));
    return;
  }
  const ArrayMatch matched(PlainElementsOf(member), written,
                           {[this](const cJSON* element) { return nodes.InTree(UuidOf(element)) != nullptr; },
                            [this](const cJSON* entry) { return compared.contains(entry); },
                            {}});
  for (const ArrayMatch::Pair& pair : matched.pairs) {
    const cJSON* value = pair.element.value;
    const PathScope step(path, pair.element);
    // One that hangs on something by a link stands in the tree now.
    const cJSON* place = pair.counterpart ? pair.counterpart : nodes.InTree(UuidOf(value));
    if (!place) place = nodes.AmongFloating(UuidOf(value));
    if (!place)
      AddMissing(value);
    else if (cJSON_IsObject(value) && cJSON_IsObject(place))
      CompareNode(value, place);
    else
      CompareData(value, place);
  }
}

void LossComparison::ComparePlaces(const cJSON* places) {
  std::unordered_map<std::string_view, size_t> left;
  const auto uuidOf = [](const cJSON* place) { return NodeIdentity::Of(KeyOf(place)).uuid; };
  const cJSON* place = nullptr;
  cJSON_ArrayForEach(place, places)++ left[uuidOf(place)];
  cJSON_ArrayForEach(place, places) {
    const std::string_view uuid = uuidOf(place);
    const std::vector<const cJSON*>& written = nodes.PlacesOf(uuid);
    const PathScope step(path, KeyOf(place));
    if (written.empty()) {
      ComparePlaceOfNone(place);
      continue;
    }
    // Several nodes may have one UUID. The last entry is the last one's.
    const size_t behind = --left[uuid];
    const std::string_view former = std::exchange(nodeId, uuid);
    ComparePlace(place, written[behind < written.size() ? written.size() - 1 - behind : 0], {});
    nodeId = former;
  }
}

/// Where a node stood that isn't there says nothing about the asset.
void LossComparison::ComparePlaceOfNone(const cJSON* place) {
  const cJSON* rootTitle = nullptr;
  for (const cJSON* root : nodes.PlacesOf(UuidOf(&exported))) rootTitle = cJSON_GetObjectItem(root, Keys::Title);
  const cJSON* member = nullptr;
  cJSON_ArrayForEach(member, place) {
    const bool isRootTitle = HasKey(member, Keys::Title) && rootTitle && cJSON_Compare(member, rootTitle, true);
    if (HasKey(member, Keys::Position) || isRootTitle) continue;
    const PathScope step(path, KeyOf(member));
    AddMissing(member);
  }
}

/// What an entry of `$Nodes` or `$Links` has in common; `others` are members that are compared elsewhere.
void LossComparison::ComparePlace(const cJSON* place, const cJSON* written,
                                  const std::vector<std::string_view>& others) {
  const cJSON* member = nullptr;
  cJSON_ArrayForEach(member, place) {
    bool isOther = false;
    for (const std::string_view key : others) isOther = isOther || HasKey(member, key);
    if (isOther) continue;
    const PathScope step(path, KeyOf(member));
    const cJSON* counterpart = cJSON_GetObjectItem(written, member->string);
    if (HasKey(member, Keys::Position) && ComparePosition(member, counterpart)) continue;
    if (counterpart && HasKey(member, Keys::Title) && cJSON_Compare(member, counterpart, true)) continue;
    // None is written for a node that has the title of its type; what is no text is no title.
    if (!counterpart && HasKey(member, Keys::Title) && cJSON_IsString(member)) continue;
    if (counterpart)
      Add(ShortText(member), ShortText(counterpart));
    else
      AddMissing(member);
  }
  if (!cJSON_IsObject(place)) Add(ShortText(place), ShortText(written));
}

void LossComparison::CompareLinks(const cJSON* links, const cJSON* written) {
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

void LossComparison::CompareEndpoints(const cJSON* link, const cJSON* written, const char* key) {
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

void LossComparison::CompareFrames(const cJSON* frames, const cJSON* written) {
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
      if (HasKey(match.member, Keys::Position) && ComparePosition(match.member, value)) continue;
      if (cJSON_IsNumber(match.member) && cJSON_IsNumber(value) &&
          std::fabs(match.member->valuedouble - value->valuedouble) < 0.01)
        continue;
      if (value)
        CompareData(match.member, value);
      else
        AddMissing(match.member);
    }
  }
}

} // namespace Tesselor
