#include "document/ArrayMatch.h"

#include "document/ExportedNodes.h"
#include "document/LossText.h"
#include "nodes/NodeKeys.h"

#include <algorithm>
#include <cjson/cJSON.h>
#include <limits>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace Tesselor {

namespace {

constexpr size_t NoPlace = std::numeric_limits<size_t>::max();

bool IsScalar(const cJSON* value) { return !cJSON_IsObject(value) && !cJSON_IsArray(value); }

void CollectBehind(const cJSON* link, size_t index, const std::string& below, std::vector<ArrayElement>& elements) {
  size_t child = 0;
  const cJSON* value = nullptr;
  const cJSON* children = cJSON_GetObjectItem(link, Keys::Children);
  if (!cJSON_IsArray(children)) return;
  cJSON_ArrayForEach(value, children) {
    std::string path = below;
    AppendKey(path, Keys::Children);
    AppendIndex(path, child++);
    if (IsLinkElement(value))
      CollectBehind(value, index, path, elements);
    else
      elements.push_back({value, index, std::move(path)});
  }
}

std::vector<ArrayElement> ElementsOf(const cJSON* array) {
  std::vector<ArrayElement> elements;
  size_t index = 0;
  const cJSON* value = nullptr;
  cJSON_ArrayForEach(value, array) {
    if (IsLinkElement(value))
      CollectBehind(value, index, {}, elements);
    else
      elements.push_back({value, index, {}});
    ++index;
  }
  return elements;
}

} // namespace

bool IsLinkElement(const cJSON* value) {
  return cJSON_IsObject(value) && cJSON_IsTrue(cJSON_GetObjectItem(value, Keys::Link));
}

std::vector<ArrayElement> ElementsBehind(const cJSON* link) {
  std::vector<ArrayElement> elements;
  CollectBehind(link, 0, {}, elements);
  return elements;
}

bool Resembles(const cJSON* value, const cJSON* written) {
  if (!cJSON_IsObject(value) || !cJSON_IsObject(written)) return cJSON_Compare(value, written, true);
  constexpr int most = 8;
  int equal = 0, different = 0;
  for (const cJSON* member = value->child; member && equal + different < most; member = member->next) {
    if (!IsScalar(member) || !member->string || member->string[0] == '$') continue;
    const cJSON* counterpart = cJSON_GetObjectItem(written, member->string);
    ++(counterpart && cJSON_Compare(member, counterpart, true) ? equal : different);
  }
  return equal >= different;
}

ArrayMatch::ArrayMatch(const cJSON* array, const cJSON* written, const Test& isElsewhere, const Test& isTaken) {
  struct Written {
    const cJSON* value;
    bool isFree;
  };
  std::vector<Written> targets;
  std::unordered_map<std::string_view, std::pair<std::vector<size_t>, size_t>> byUuid;
  const cJSON* value = nullptr;
  bool hasScalarsOnly = true;
  cJSON_ArrayForEach(value, written) {
    hasScalarsOnly = hasScalarsOnly && IsScalar(value);
    const bool isFree = !isTaken || !isTaken(value);
    if (const std::string_view uuid = UuidOf(value); isFree && !uuid.empty())
      byUuid[uuid].first.push_back(targets.size());
    targets.push_back({value, isFree});
  }
  for (ArrayElement& element : ElementsOf(array)) pairs.push_back({std::move(element)});
  places.assign(pairs.size(), NoPlace);
  hasMoreScalars = hasScalarsOnly && targets.size() > pairs.size();

  std::vector<size_t> others;
  for (size_t i = 0; i < pairs.size(); ++i) {
    const auto found = byUuid.find(UuidOf(pairs[i].element.value));
    if (found != byUuid.end()) {
      auto& [known, next] = found->second;
      pairs[i].isRepeated = next == known.size();
      if (pairs[i].isRepeated) continue;
      places[i] = known[next++];
      targets[places[i]].isFree = false;
      pairs[i].counterpart = targets[places[i]].value;
    } else if (!isElsewhere(pairs[i].element.value)) {
      others.push_back(i);
    }
  }
  std::vector<const cJSON*> left;
  for (const Written& target : targets)
    if (target.isFree) left.push_back(target.value);
  size_t next = 0;
  for (size_t i = 0; i < others.size() && next < left.size(); ++i) {
    Pair& pair = pairs[others[i]];
    const bool isOneOfMany = others.size() - i > left.size() - next;
    if (!isOneOfMany || Resembles(pair.element.value, left[next])) pair.counterpart = left[next++];
  }
}

std::string ArrayMatch::OrderOfWritten() const {
  std::vector<size_t> order;
  for (size_t i = 0; i < pairs.size(); ++i)
    if (places[i] != NoPlace) order.push_back(i);
  const auto isBefore = [this](size_t a, size_t b) { return places[a] < places[b]; };
  if (std::is_sorted(order.begin(), order.end(), isBefore)) return {};
  std::sort(order.begin(), order.end(), isBefore);
  std::string text;
  for (const size_t i : order) text.append(text.empty() ? "" : ", ").append(std::to_string(pairs[i].element.index));
  return text;
}

} // namespace Tesselor
