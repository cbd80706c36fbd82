#include "document/LinkImport.h"

#include "document/StandIn.h"
#include "nodes/ContentNode.h"
#include "nodes/NodeIdentity.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePosition.h"
#include "platform/JsonFile.h"
#include "toolkit/controls/Canvas.h"
#include "workspace/Workspace.h"

#include <algorithm>
#include <map>
#include <unordered_set>

namespace Tesselor {

namespace {

constexpr std::string_view LinkPrefix = "link:";

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
                       {},
                       {},
                       {}});
  }
}

void LinkImport::SpliceIntoPendingConnections() {
  if (records.empty()) return;
  ResolveUpstream();
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

LinkImport::Endpoint LinkImport::ResolveTarget(std::string_view text) const {
  Endpoint target = Resolve(text);
  if (target.node && !target.pin && IsStandIn(*target.node)) target.pin = target.node->FindPin(BuiltIn::Generic);
  return target;
}

LinkImport::Record* LinkImport::FindLink(std::string_view text) {
  if (!text.starts_with(LinkPrefix)) return nullptr;
  const auto found = recordsById.find(std::string(text.substr(LinkPrefix.size())));
  return found == recordsById.end() ? nullptr : &records[found->second];
}

void LinkImport::ResolveUpstream() {
  for (Record& record : records) {
    if (const Endpoint source = Resolve(record.sourceEndpoint)) record.ownSources.push_back(source);
    for (const std::string& text : record.inputConnections)
      if (Record* link = FindLink(text))
        record.upstream.push_back(link);
      else if (const Endpoint source = Resolve(text)) {
        record.ownSources.push_back(source);
        sourcePins[source.pin].links.push_back(&record);
      }
  }
}

std::vector<LinkImport::Record*> LinkImport::InOrderOfFlow() {
  std::vector<Record*> ordered;
  std::unordered_set<const Record*> visited;
  std::vector<std::pair<Record*, size_t>> stack;
  for (Record& start : records) {
    if (!visited.insert(&start).second) continue;
    stack.emplace_back(&start, 0);
    while (!stack.empty()) {
      auto& [record, next] = stack.back();
      if (next == record->upstream.size()) {
        ordered.push_back(record);
        stack.pop_back();
      } else if (Record* link = record->upstream[next++]; visited.insert(link).second) {
        stack.emplace_back(link, 0);
      }
    }
  }
  return ordered;
}

/// Looks no further than to links whose sources are known.
LinkImport::Sources LinkImport::SourcesOf(Record& record,
                                          const std::unordered_map<const Record*, Sources>& known) const {
  std::vector<Sources> reached;
  std::vector<Endpoint> own;
  std::vector<const Record*> waiting{&record};
  std::unordered_set<const Record*> visited{&record};
  for (size_t next = 0; next < waiting.size(); ++next) {
    own.insert(own.end(), waiting[next]->ownSources.begin(), waiting[next]->ownSources.end());
    for (const Record* link : waiting[next]->upstream) {
      if (!visited.insert(link).second) continue;
      if (const auto found = known.find(link); found != known.end())
        reached.push_back(found->second);
      else
        waiting.push_back(link);
    }
  }
  auto sources = std::make_shared<std::vector<Endpoint>>();
  std::unordered_set<const NodePinData*> seen;
  const auto add = [&](const std::vector<Endpoint>& more) {
    for (const Endpoint& source : more)
      if (seen.insert(source.pin).second) sources->push_back(source);
  };
  add(own);
  for (const Sources& more : reached) add(*more);
  // A link that adds nothing to what leads to it shares that.
  if (reached.size() == 1 && sources->size() == reached.front()->size()) return reached.front();
  return sources;
}

void LinkImport::TakeDirectConnectionsOut() {
  const std::vector<PendingConnection>& pending = view.PendingConnections();
  PendingIndex index;
  for (size_t i = 0; i < pending.size(); ++i)
    index.emplace(std::make_pair(pending[i].childPin, pending[i].parentPin), i);
  isRemoved.assign(pending.size(), false);

  std::unordered_map<const Record*, Sources> known;
  PlacedLinks placed;
  for (Record* record : InOrderOfFlow()) {
    const auto isReal = [](const std::string& text) { return !text.starts_with(LinkPrefix); };
    if (std::none_of(record->outputConnections.begin(), record->outputConnections.end(), isReal)) continue;
    const Sources sources = SourcesOf(*record, known);
    known.emplace(record, sources);
    for (const std::string& text : record->outputConnections) {
      const Endpoint target = isReal(text) ? ResolveTarget(text) : Endpoint();
      if (!target) continue;
      for (const Endpoint& source : *sources) {
        size_t first = NoPlace;
        const auto [begin, end] = index.equal_range({target.pin, source.pin});
        for (auto entry = begin; entry != end; ++entry) {
          isRemoved[entry->second] = true;
          first = std::min(first, entry->second);
        }
        if (first == NoPlace) continue;
        placed.emplace_back(record, first);
        sourcePins[source.pin].placed.emplace_back(record, first);
        size_t& place = record->outputPlaces.emplace(text, NoPlace).first->second;
        place = std::min(place, first);
      }
    }
  }
  PlaceLinks(std::move(placed));
  PlaceLinksAtSources();
  // Until it has its own place, a link is as high as the child for which it stands among the others of its parent.
  for (const Record& record : records)
    if (record.place != NoPlace)
      Toolkit::Canvas::SetTop(record.node.Get(), Toolkit::Canvas::GetTop(pending[record.place].childPin->owner));
}

/// A link, and every link that leads to it, stands where the first child behind it stood.
void LinkImport::PlaceLinks(PlacedLinks placed) {
  std::sort(placed.begin(), placed.end(), [](const auto& a, const auto& b) { return a.second < b.second; });
  std::vector<Record*> waiting;
  for (const auto& [record, place] : placed) {
    waiting.assign(1, record);
    while (!waiting.empty()) {
      Record* link = waiting.back();
      waiting.pop_back();
      // One that has a place has a nearer one, and so have those that lead to it.
      if (link->place != NoPlace) continue;
      link->place = place;
      waiting.insert(waiting.end(), link->upstream.begin(), link->upstream.end());
    }
  }
}

/// A link stands on a pin where the first child stood that hangs on the pin behind the link.
void LinkImport::PlaceLinksAtSources() {
  for (auto& [pin, source] : sourcePins) {
    std::sort(source.placed.begin(), source.placed.end(),
              [](const auto& a, const auto& b) { return a.second < b.second; });
    if (source.placed.empty()) continue;
    if (source.links.size() == 1) {
      // All hangs on the pin through the one link, however long the chain behind it is.
      source.places.emplace(source.links.front(), source.placed.front().second);
      continue;
    }
    std::vector<const Record*> waiting;
    for (const auto& [target, place] : source.placed) {
      waiting.assign(1, target);
      while (!waiting.empty()) {
        const Record* link = waiting.back();
        waiting.pop_back();
        if (source.places.emplace(link, place).second)
          waiting.insert(waiting.end(), link->upstream.begin(), link->upstream.end());
      }
    }
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
  if (const Record* link = FindLink(text)) return link->place;
  const auto found = record.outputPlaces.find(text);
  return found == record.outputPlaces.end() ? NoPlace : found->second;
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
      } else if (const Endpoint target = ResolveTarget(text)) {
        appended.push_back({target.node, target.pin, record.node, out});
      }
    }
    for (const std::string& text : record.inputConnections) {
      if (text.starts_with(LinkPrefix)) continue;
      const Endpoint source = Resolve(text);
      if (!source) continue;
      const PendingConnection entry{record.node, in, source.node, source.pin};
      const auto& places = sourcePins.at(source.pin).places;
      if (const auto place = places.find(&record); place != places.end())
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
