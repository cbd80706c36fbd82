#include "document/CopyDetails.h"

#include "document/NodeWriter.h"
#include "nodes/GenericContentNode.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePosition.h"

#include <algorithm>
#include <iterator>

namespace Tesselor {

namespace {

bool IsGeneric(const ContentNode& node) { return Toolkit::DynamicCast<GenericContentNode>(&node) != nullptr; }

/// Whether a pin was made for an object that the schema doesn't know. Its node tells of it by that object alone.
bool IsDynamic(const NodePinData& pin) {
  return !pin.owner->IsPassthrough() && pin.owner->KeyOf(pin).starts_with(BuiltIn::Generic);
}

/// The key under which what hangs on the pin stands in the text; null if nothing of it does.
const std::string* SchemaKeyOf(const NodePinData& pin) {
  for (const auto& [key, target] : pin.owner->Blueprint().pinSchema)
    if (pin.owner->FindPin(target.pin) == &pin) return &key;
  return nullptr;
}

/// Where the text alone puts a node that stands behind the key of `pin`.
const NodePinData* PinByText(const ContentNode& node, const NodePinData& pin) {
  if (IsGeneric(node)) return node.FindPin(BuiltIn::Generic);
  return pin.owner->IsPassthrough() ? node.FirstInputByKey() : node.FindInputPinOfType(pin.blueprint->Type);
}

bool HasPlace(const cJSON* json, const Toolkit::Point place) {
  const cJSON* x = cJSON_GetObjectItem(json, Keys::X);
  const cJSON* y = cJSON_GetObjectItem(json, Keys::Y);
  return x && y && static_cast<float>(x->valuedouble) == place.x && static_cast<float>(y->valuedouble) == place.y;
}

} // namespace

bool CopyDetails::Begin(ContentNode& node, cJSON& object) {
  const auto [found, isNew] = indices.emplace(&node, entries.size());
  if (isNew) entries.push_back({&node, {}, nullptr, {}});
  entries[found->second].objects.push_back(&object);
  if (isNew) return true;
  if (repeats == 0) return false;
  --repeats;
  return true;
}

bool CopyDetails::HasRoomForLinks() const {
  return std::any_of(entries.begin(), entries.end(), [](const Entry& entry) { return !IsGeneric(*entry.node); });
}

void CopyDetails::AddMembers(const std::vector<ContentNode*>& links, size_t others) {
  if (!links.empty()) AddLinks(links);
  for (Entry& entry : entries) {
    AddConnections(entry);
    AddHiddenPins(entry);
    if (entries.size() + others > 1) AddPlace(entry);
    AddMapKey(entry);
    if (IsGeneric(*entry.node) && entry.node->Title() != entry.node->Blueprint().title)
      cJSON_AddStringToObject(MemberOf(entry), Keys::Title, std::string(entry.node->Title()).c_str());
  }
  for (Entry& entry : entries) AddLabels(entry);
}

CopyDetails::Entry* CopyDetails::Find(const ContentNode& node) {
  const auto found = indices.find(&node);
  return found == indices.end() ? nullptr : &entries[found->second];
}

cJSON* CopyDetails::MemberOf(Entry& entry) {
  if (!entry.copied) entry.copied = cJSON_AddObjectToObject(entry.objects.front(), Keys::Copied);
  return entry.copied;
}

const std::string& CopyDetails::LabelOf(Entry& entry) {
  if (entry.label.empty()) entry.label = std::to_string(++labels);
  return entry.label;
}

void CopyDetails::AddLinks(const std::vector<ContentNode*>& links) {
  const auto home =
      std::find_if(entries.begin(), entries.end(), [](const Entry& entry) { return !IsGeneric(*entry.node); });
  cJSON* array = cJSON_AddArrayToObject(MemberOf(*home), Keys::CopiedLinks);
  for (ContentNode* link : links) {
    cJSON* json = cJSON_CreateObject();
    cJSON_AddItemToArray(array, json);
    NodeWriter::WriteTitle(json, *link);
    NodeWriter::WriteComment(json, *link);
    indices.emplace(link, entries.size());
    entries.push_back({link, {}, json, {}});
  }
}

void CopyDetails::AddPlace(Entry& entry) {
  const Toolkit::Rect bounds = entry.node->Bounds();
  const Toolkit::Point offset = CanvasOffset(*entry.node);
  const Toolkit::Point place{bounds.x - offset.x, bounds.y - offset.y};
  if (!entry.objects.empty() && HasPlace(cJSON_GetObjectItem(entry.objects.front(), Keys::Position), place)) return;
  cJSON_AddNumberToObject(MemberOf(entry), Keys::X, place.x);
  cJSON_AddNumberToObject(MemberOf(entry), Keys::Y, place.y);
}

void CopyDetails::AddMapKey(Entry& entry) {
  const ContentNode& node = *entry.node;
  if (node.mapKey.empty() || entry.objects.empty()) return;
  const auto isMap = [this](const NodePinData* parent) { return parent->IsMap() && HasObject(*parent->owner); };
  for (size_t i = 0; i < node.Input().Count(); ++i) {
    const std::vector<NodePinData*>& parents = node.Input().Get(i)->connections;
    if (std::none_of(parents.begin(), parents.end(), isMap)) continue;
    if (JsonText(cJSON_GetObjectItem(entry.objects.front(), Keys::Key)) == node.mapKey) continue;
    cJSON_AddStringToObject(MemberOf(entry), Keys::MapKey, node.mapKey.c_str());
    return;
  }
}

void CopyDetails::AddHiddenPins(Entry& entry) {
  const ContentNode::Pins& output = entry.node->Output();
  cJSON* array = nullptr;
  for (size_t i = 0; i < output.Count(); ++i) {
    const NodePinData& pin = *output.Get(i);
    if (pin.IsVisible()) continue;
    if (!array) array = cJSON_AddArrayToObject(MemberOf(entry), Keys::HiddenPins);
    cJSON_AddItemToArray(array, cJSON_CreateString(entry.node->KeyOf(pin).c_str()));
  }
}

void CopyDetails::AddConnections(Entry& entry) {
  const ContentNode::Pins& output = entry.node->Output();
  std::vector<NodePinData*> targets;
  for (size_t i = 0; i < output.Count(); ++i) {
    const std::vector<NodePinData*>& connections = output.Get(i)->connections;
    std::copy_if(connections.begin(), connections.end(), std::back_inserter(targets),
                 [this](const NodePinData* target) { return HasObject(*target->owner); });
    // Whatever a link leads to hangs on its one pin that a new link has.
    if (entry.node->IsPassthrough() && i + 1 < output.Count()) continue;
    const NodePinData& pin = entry.node->IsPassthrough() ? *output.Get(0) : *output.Get(i);
    if (!targets.empty() && (entry.objects.empty() || !FollowFromText(targets, pin))) AddList(entry, pin, targets);
    targets.clear();
  }
}

void CopyDetails::AddList(Entry& entry, const NodePinData& pin, const std::vector<NodePinData*>& targets) {
  cJSON* member = MemberOf(entry);
  cJSON* pins = cJSON_GetObjectItem(member, Keys::Connections);
  if (!pins) pins = cJSON_AddObjectToObject(member, Keys::Connections);
  cJSON* array = cJSON_AddArrayToObject(pins, entry.node->KeyOf(pin).c_str());
  for (const NodePinData* target : targets) {
    const std::string text = LabelOf(*Find(*target->owner)) + ":" + target->owner->KeyOf(*target);
    cJSON_AddItemToArray(array, cJSON_CreateString(text.c_str()));
  }
}

bool CopyDetails::FollowFromText(const std::vector<NodePinData*>& targets, const NodePinData& pin) const {
  if (IsDynamic(pin)) return true;
  if (!pin.owner->IsPassthrough()) {
    const std::string* key = SchemaKeyOf(pin);
    if (!key) return false;
    // The children of these two don't survive a copy.
    if (*key == Keys::AdditionalProperties || *key == Keys::AdditionalParameters) return true;
  }
  const auto isElsewhere = [&](const NodePinData* target) {
    const ContentNode& node = *target->owner;
    return node.IsPassthrough() || target != PinByText(node, pin) ||
           // All elements of an array hang on the pin that the first of their kind was given.
           (!IsGeneric(node) && node.KeyOf(*target) != targets.front()->owner->KeyOf(*targets.front()));
  };
  const auto isHigher = [](const NodePinData* a, const NodePinData* b) {
    return a->owner->Bounds().y < b->owner->Bounds().y;
  };
  return std::none_of(targets.begin(), targets.end(), isElsewhere) &&
         std::is_sorted(targets.begin(), targets.end(), isHigher);
}

void CopyDetails::AddLabels(Entry& entry) {
  if (entry.objects.size() < 2 && entry.label.empty()) return;
  const std::string label = LabelOf(entry);
  cJSON_AddStringToObject(MemberOf(entry), Keys::Label, label.c_str());
  for (size_t i = 1; i < entry.objects.size(); ++i)
    cJSON_AddStringToObject(cJSON_AddObjectToObject(entry.objects[i], Keys::Copied), Keys::Label, label.c_str());
}

} // namespace Tesselor
