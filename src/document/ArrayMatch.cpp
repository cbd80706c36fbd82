#include "document/ArrayMatch.h"

#include "document/ExportedNodes.h"
#include "document/LossText.h"
#include "document/SchemaKey.h"
#include "nodes/NodeKeys.h"

#include <algorithm>
#include <cjson/cJSON.h>
#include <limits>
#include <string_view>
#include <unordered_map>

namespace Tesselor {

namespace {

constexpr size_t NoPlace = std::numeric_limits<size_t>::max();

bool IsScalar(const cJSON* value) { return !cJSON_IsObject(value) && !cJSON_IsArray(value); }

/// What a pass-through node has under that key, and whether it is the list of its children.
bool IsChildren(const cJSON* member) {
  return cJSON_IsArray(member) && member->string && std::string_view(member->string) == Keys::Children;
}

void CollectBehind(const cJSON* link, size_t index, const std::string& below, std::vector<ArrayElement>& elements) {
  elements.push_back({link, index, below, true});
  const cJSON* member = nullptr;
  cJSON_ArrayForEach(member, link) {
    if (!IsChildren(member)) continue;
    size_t child = 0;
    const cJSON* value = nullptr;
    cJSON_ArrayForEach(value, member) {
      std::string path = below;
      AppendKey(path, Keys::Children);
      AppendIndex(path, child++);
      if (IsLinkElement(value))
        CollectBehind(value, index, path, elements);
      else
        elements.push_back({value, index, std::move(path)});
    }
  }
  cJSON_ArrayForEach(member, link) {
    if (!cJSON_IsObject(member) || IsEditorKey(member->string)) continue;
    std::string path = below;
    AppendKey(path, member->string);
    elements.push_back({member, index, std::move(path), false, true});
  }
}

} // namespace

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

std::vector<ArrayElement> PlainElementsOf(const cJSON* array) {
  std::vector<ArrayElement> elements;
  const cJSON* value = nullptr;
  cJSON_ArrayForEach(value, array) elements.push_back({value, elements.size(), {}});
  return elements;
}

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

ArrayMatch::ArrayMatch(std::vector<ArrayElement> elements, const cJSON* written, const Options& options) {
  const cJSON* value = nullptr;
  bool hasScalarsOnly = true;
  cJSON_ArrayForEach(value, written) {
    hasScalarsOnly = hasScalarsOnly && IsScalar(value);
    targets.push_back({value, !options.isTaken || !options.isTaken(value)});
  }
  for (ArrayElement& element : elements) pairs.push_back({std::move(element)});
  places.assign(pairs.size(), NoPlace);
  hasMoreScalars = hasScalarsOnly && targets.size() > pairs.size();
  MatchByOrder(MatchKnown(options), !options.origins.empty());
}

void ArrayMatch::Take(size_t pair, size_t place) {
  places[pair] = place;
  targets[place].isFree = false;
  pairs[pair].counterpart = targets[place].value;
}

std::vector<size_t> ArrayMatch::MatchKnown(const Options& options) {
  /// Places in the written array, each of which is taken once.
  struct Places {
    std::vector<size_t> all;
    size_t next = 0;
  };
  std::unordered_map<std::string_view, Places> byUuid, byOrigin;
  for (size_t place = 0; place < targets.size(); ++place) {
    if (!targets[place].isFree) continue;
    if (const std::string_view uuid = UuidOf(targets[place].value); !uuid.empty()) byUuid[uuid].all.push_back(place);
    if (options.origins.size() == targets.size()) byOrigin[options.origins[place]].all.push_back(place);
  }
  std::vector<size_t> unnamed, others;
  for (size_t i = 0; i < pairs.size(); ++i) {
    if (pairs[i].element.isLink) continue;
    const auto found = byUuid.find(UuidOf(pairs[i].element.value));
    if (found == byUuid.end()) {
      unnamed.push_back(i);
      continue;
    }
    Places& known = found->second;
    pairs[i].isRepeated = known.next == known.all.size();
    if (!pairs[i].isRepeated) Take(i, known.all[known.next++]);
  }
  for (const size_t i : unnamed) {
    std::string origin;
    AppendIndex(origin, pairs[i].element.index);
    origin += pairs[i].element.below;
    if (const auto found = byOrigin.find(origin); found != byOrigin.end()) {
      Places& known = found->second;
      while (known.next < known.all.size() && !targets[known.all[known.next]].isFree) ++known.next;
      if (known.next < known.all.size()) {
        Take(i, known.all[known.next++]);
        continue;
      }
    }
    if (!options.isElsewhere || !options.isElsewhere(pairs[i].element.value)) others.push_back(i);
  }
  return others;
}

void ArrayMatch::MatchByOrder(const std::vector<size_t>& others, bool areOriginsKnown) {
  std::vector<const cJSON*> left;
  for (const Written& target : targets)
    if (target.isFree) left.push_back(target.value);
  size_t next = 0;
  for (size_t i = 0; i < others.size() && next < left.size(); ++i) {
    Pair& pair = pairs[others[i]];
    const bool isSure = !areOriginsKnown && others.size() - i <= left.size() - next;
    if (isSure || Resembles(pair.element.value, left[next])) pair.counterpart = left[next++];
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
