#include "document/LinkImport.h"

#include "nodes/ContentNode.h"
#include "nodes/NodeIdentity.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePosition.h"
#include "platform/JsonFile.h"
#include "workspace/Workspace.h"

#include <algorithm>
#include <limits>
#include <set>

namespace Tesselor {

namespace {

constexpr std::string_view LinkPrefix = "link:";
constexpr size_t NoPlace = std::numeric_limits<size_t>::max();

std::vector<std::string> ReadTexts(const cJSON* array) {
  std::vector<std::string> texts;
  if (!cJSON_IsArray(array)) return texts;
  const cJSON* element = nullptr;
  cJSON_ArrayForEach(element, array) if (auto text = JsonText(element)) texts.push_back(*std::move(text));
  return texts;
}

struct PinPairHash {
  size_t operator()(const std::pair<const NodePinData*, const NodePinData*>& pins) const {
    return std::hash<const void*>()(pins.first) * 31 + std::hash<const void*>()(pins.second);
  }
};

/// The indices of pending connections by their two pins.
using PendingIndex = std::unordered_multimap<std::pair<const NodePinData*, const NodePinData*>, size_t, PinPairHash>;

} // namespace

std::unordered_map<std::string_view, ContentNode*> NodesById(const Graph& view) {
  std::unordered_map<std::string_view, ContentNode*> nodes;
  for (const auto& node : view.ContentNodes())
    if (!node->NodeId().empty()) nodes[node->NodeId()] = node.Get();
  return nodes;
}

LinkImport::LinkImport(const cJSON* metadata, const Workspace& workspace, Graph& view)
    : metadata(metadata), workspace(workspace), view(view) {}

void LinkImport::Read() {
  nodesById = NodesById(view);
  const cJSON* links = cJSON_GetObjectItem(metadata, Keys::Links);
  if (!cJSON_IsObject(links)) return;
  const cJSON* json = nullptr;
  cJSON_ArrayForEach(json, links) {
    const Toolkit::Ptr<ContentNode> node = workspace.nodeDictionary->CreateNode(BuiltIn::Link, true);
    if (!node) continue;
    node->linkId = json->string;
    view.AddNode(*node, 0, 0, false);
    if (const auto title = JsonText(cJSON_GetObjectItem(json, Keys::Title))) node->SetTitle(*title);
    recordsById[node->linkId] = records.size();
    records.push_back({node,
                       json,
                       ReadTexts(cJSON_GetObjectItem(json, Keys::InputConnections)),
                       ReadTexts(cJSON_GetObjectItem(json, Keys::OutputConnections)),
                       JsonText(cJSON_GetObjectItem(json, Keys::SourceEndpoint)).value_or(std::string()),
                       {}});
  }
}

void LinkImport::SpliceIntoPendingConnections() {
  if (records.empty()) return;
  TakeDirectConnectionsOut();
  for (Record& record : records) OrderOutputs(record);
  PutLinkConnectionsIn();
}

void LinkImport::Finish() {
  ChildOrder order;
  for (const Record& record : records) {
    LoadPosition(*record.node, record.json);
    NodePinData* in = record.node->FirstInput();
    if (!in || in->connections.size() < 2) continue;
    std::unordered_map<const NodePinData*, size_t> ranks;
    for (size_t i = 0; i < record.inputConnections.size(); ++i) {
      const std::string& text = record.inputConnections[i];
      const Record* link = FindLink(text);
      const NodePinData* pin = link ? link->node->FirstOutput() : Resolve(text).pin;
      if (pin) ranks.emplace(pin, i);
    }
    const auto rankOf = [&ranks](const NodePinData* pin) {
      const auto found = ranks.find(pin);
      return found == ranks.end() ? NoPlace : found->second;
    };
    std::vector<NodePinData*> parents = in->connections;
    std::stable_sort(parents.begin(), parents.end(),
                     [&rankOf](const NodePinData* a, const NodePinData* b) { return rankOf(a) < rankOf(b); });
    order.Note(*in, std::move(parents));
  }
  view.RestoreOrder(order);
}

LinkImport::Endpoint LinkImport::Resolve(std::string_view text) const {
  const size_t colon = text.find(':');
  if (colon == std::string_view::npos) return {};
  const auto found = nodesById.find(NodeIdentity::Of(text.substr(0, colon)).uuid);
  if (found == nodesById.end()) return {};
  return {found->second, found->second->FindPin(text.substr(colon + 1))};
}

LinkImport::Record* LinkImport::FindLink(std::string_view text) {
  if (!text.starts_with(LinkPrefix)) return nullptr;
  const auto found = recordsById.find(std::string(text.substr(LinkPrefix.size())));
  return found == recordsById.end() ? nullptr : &records[found->second];
}

/// The pins of real nodes from which a link is reached, the file's own source first.
std::vector<LinkImport::Endpoint> LinkImport::SourcesOf(const Record& record) {
  std::vector<Endpoint> sources;
  std::set<const NodePinData*> known;
  const auto add = [&](std::string_view text) {
    const Endpoint source = Resolve(text);
    if (source && known.insert(source.pin).second) sources.push_back(source);
  };
  add(record.sourceEndpoint);
  std::vector<const Record*> waiting{&record};
  std::set<const Record*> visited{&record};
  for (size_t next = 0; next < waiting.size(); ++next)
    for (const std::string& text : waiting[next]->inputConnections)
      if (const Record* link = FindLink(text)) {
        if (visited.insert(link).second) waiting.push_back(link);
      } else {
        add(text);
      }
  return sources;
}

void LinkImport::TakeDirectConnectionsOut() {
  const std::vector<PendingConnection>& pending = view.PendingConnections();
  PendingIndex index;
  for (size_t i = 0; i < pending.size(); ++i)
    index.emplace(std::make_pair(pending[i].childPin, pending[i].parentPin), i);
  isRemoved.assign(pending.size(), false);

  for (Record& record : records) {
    const std::vector<Endpoint> sources = SourcesOf(record);
    for (const std::string& text : record.outputConnections) {
      if (text.starts_with(LinkPrefix)) continue;
      const Endpoint target = Resolve(text);
      if (!target) continue;
      for (const Endpoint& source : sources) {
        size_t first = NoPlace;
        const auto [begin, end] = index.equal_range({target.pin, source.pin});
        for (auto entry = begin; entry != end; ++entry) {
          isRemoved[entry->second] = true;
          first = std::min(first, entry->second);
        }
        if (first == NoPlace) continue;
        RememberPlace(record, *source.pin, first);
        size_t& place = record.outputPlaces.emplace(text, NoPlace).first->second;
        place = std::min(place, first);
      }
    }
  }
}

/// The link itself, and every link through which it hangs on `source`, stands where its first child stood.
void LinkImport::RememberPlace(Record& record, const NodePinData& source, size_t index) {
  std::vector<const Record*> waiting{&record};
  std::set<const Record*> visited{&record};
  for (size_t next = 0; next < waiting.size(); ++next) {
    size_t& place = places.emplace(std::make_pair(waiting[next], &source), NoPlace).first->second;
    place = std::min(place, index);
    for (const std::string& text : waiting[next]->inputConnections)
      if (const Record* link = FindLink(text); link && visited.insert(link).second) waiting.push_back(link);
  }
}

/// A file that was edited elsewhere may have its children in another order than the link lists them. What has no place
/// in the tree stays behind what stands before it.
void LinkImport::OrderOutputs(Record& record) {
  std::vector<std::pair<size_t, std::string>> ordered;
  size_t place = 0;
  for (std::string& text : record.outputConnections) {
    if (const size_t own = PlaceOfOutput(record, text); own != NoPlace) place = own;
    ordered.emplace_back(place, std::move(text));
  }
  std::stable_sort(ordered.begin(), ordered.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  for (size_t i = 0; i < ordered.size(); ++i) record.outputConnections[i] = std::move(ordered[i].second);
}

size_t LinkImport::PlaceOfOutput(const Record& record, const std::string& text) {
  size_t place = NoPlace;
  if (const Record* link = FindLink(text)) {
    for (auto entry = places.lower_bound({link, nullptr}); entry != places.end() && entry->first.first == link; ++entry)
      place = std::min(place, entry->second);
  } else if (const auto found = record.outputPlaces.find(text); found != record.outputPlaces.end()) {
    place = found->second;
  }
  return place;
}

void LinkImport::PutLinkConnectionsIn() {
  std::vector<PendingConnection>& pending = view.PendingConnections();
  std::multimap<size_t, PendingConnection> inserted;
  std::vector<PendingConnection> appended;
  for (const Record& record : records) {
    NodePinData* in = record.node->FirstInput();
    NodePinData* out = record.node->FirstOutput();
    if (!in || !out) continue;
    for (const std::string& text : record.outputConnections) {
      if (text.starts_with(LinkPrefix)) {
        const Record* link = FindLink(text);
        if (link && link->node->FirstInput())
          appended.push_back({link->node, link->node->FirstInput(), record.node, out});
      } else if (const Endpoint target = Resolve(text)) {
        appended.push_back({target.node, target.pin, record.node, out});
      }
    }
    for (const std::string& text : record.inputConnections) {
      if (text.starts_with(LinkPrefix)) continue;
      const Endpoint source = Resolve(text);
      if (!source) continue;
      const PendingConnection entry{record.node, in, source.node, source.pin};
      const auto place = places.find({&record, source.pin});
      if (place != places.end())
        inserted.emplace(place->second, entry);
      else
        appended.push_back(entry);
    }
  }

  std::vector<PendingConnection> result;
  result.reserve(pending.size() + inserted.size() + appended.size());
  auto next = inserted.begin();
  for (size_t i = 0; i < pending.size(); ++i) {
    for (; next != inserted.end() && next->first == i; ++next) result.push_back(std::move(next->second));
    if (!isRemoved[i]) result.push_back(std::move(pending[i]));
  }
  result.insert(result.end(), std::make_move_iterator(appended.begin()), std::make_move_iterator(appended.end()));
  pending = std::move(result);
}

} // namespace Tesselor
