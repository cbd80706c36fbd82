#include "document/PasteDetails.h"

#include "document/NodeEntry.h"
#include "document/NodeReader.h"
#include "graph/Graph.h"
#include "nodes/NodeIdentity.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePosition.h"
#include "platform/JsonFile.h"
#include "toolkit/controls/Canvas.h"
#include "workspace/NodeDictionary.h"

#include <cmath>

namespace Tesselor {

namespace {

/// Not snapped: what stood beside each other shall do so again.
void PlaceExactly(ContentNode& node, const cJSON* copied) {
  const cJSON* x = cJSON_GetObjectItem(copied, Keys::X);
  const cJSON* y = cJSON_GetObjectItem(copied, Keys::Y);
  if (!cJSON_IsNumber(x) || !cJSON_IsNumber(y)) return;
  const Toolkit::Point offset = CanvasOffset(node);
  const Toolkit::Point place{static_cast<float>(x->valuedouble) + offset.x,
                             static_cast<float>(y->valuedouble) + offset.y};
  if (!std::isfinite(place.x) || !std::isfinite(place.y)) return;
  Toolkit::Canvas::SetLeft(&node, place.x);
  Toolkit::Canvas::SetTop(&node, place.y);
}

void HidePins(const ContentNode& node, const cJSON* keys) {
  const cJSON* key = nullptr;
  cJSON_ArrayForEach(key, keys) {
    NodePinData* pin = node.FindPin(JsonText(key).value_or(std::string()));
    if (pin && !pin->IsInput()) pin->SetVisible(false);
  }
}

} // namespace

std::string PasteDetails::LabelOf(const NodeEntry& entry) {
  if (auto label = JsonText(cJSON_GetObjectItem(entry.copied, Keys::Label))) return *std::move(label);
  const auto id = JsonText(entry.nodeId);
  return id ? std::string(NodeIdentity::Of(*id).uuid) : std::string();
}

void PasteDetails::SetLabel(ContentNode& node, const std::string& label) {
  if (!label.empty()) labels.emplace(label, &node);
}

ContentNode* PasteDetails::Find(const std::string& label) const {
  const auto found = labels.find(label);
  return found == labels.end() ? nullptr : found->second;
}

void PasteDetails::Apply(ContentNode& node, const cJSON* copied) {
  if (!cJSON_IsObject(copied)) return;
  PlaceExactly(node, copied);
  if (const auto title = JsonText(cJSON_GetObjectItem(copied, Keys::Title))) node.SetTitle(*title);
  if (const auto key = JsonText(cJSON_GetObjectItem(copied, Keys::MapKey))) node.mapKey = *key;
  HidePins(node, cJSON_GetObjectItem(copied, Keys::HiddenPins));
  if (const cJSON* pins = cJSON_GetObjectItem(copied, Keys::Connections)) connections.emplace_back(&node, pins);
  if (const cJSON* array = cJSON_GetObjectItem(copied, Keys::CopiedLinks); cJSON_IsArray(array)) links.push_back(array);
}

void PasteDetails::MakeLinks(NodeReader& reader) {
  for (const cJSON* array : links) {
    const cJSON* json = nullptr;
    cJSON_ArrayForEach(json, array) {
      const Toolkit::Ptr<ContentNode> link = reader.Dictionary().CreateNode(BuiltIn::Link, true);
      if (!link) continue;
      reader.Add(*link);
      if (const auto comment = JsonText(cJSON_GetObjectItem(json, Keys::Comment))) link->SetComment(*comment);
      if (const auto label = JsonText(cJSON_GetObjectItem(json, Keys::Label))) SetLabel(*link, *label);
      Apply(*link, json);
    }
  }
}

void PasteDetails::ReplaceConnections(Graph& graph) {
  std::unordered_set<const NodePinData*> replaced;
  std::vector<PendingConnection> told;
  for (const auto& [node, pins] : connections) {
    const cJSON* array = nullptr;
    cJSON_ArrayForEach(array, pins) {
      NodePinData* pin = array->string ? node->FindPin(array->string) : nullptr;
      if (!pin || pin->IsInput() || !replaced.insert(pin).second) continue;
      replacedPins.push_back(pin);
      const cJSON* element = nullptr;
      cJSON_ArrayForEach(element, array) {
        const std::string text = JsonText(element).value_or(std::string());
        const size_t colon = text.find(':');
        ContentNode* child = colon == std::string::npos ? nullptr : Find(text.substr(0, colon));
        NodePinData* childPin = child ? child->FindPin(text.substr(colon + 1)) : nullptr;
        if (childPin && childPin->IsInput())
          told.push_back({Toolkit::Ptr<ContentNode>(child), childPin, Toolkit::Ptr<ContentNode>(node), pin});
      }
    }
  }
  std::vector<PendingConnection>& pending = graph.PendingConnections();
  std::erase_if(pending, [&replaced](const PendingConnection& entry) { return replaced.contains(entry.parentPin); });
  pending.insert(pending.end(), told.begin(), told.end());
}

void PasteDetails::KeepOrder(Graph& graph) const {
  ChildOrder order;
  for (NodePinData* pin : replacedPins) order.Note(*pin);
  graph.RestoreOrder(order);
}

} // namespace Tesselor
