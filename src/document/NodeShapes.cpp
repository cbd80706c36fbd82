#include "document/NodeShapes.h"

#include "document/AdditionalMembers.h"
#include "document/ChildWalk.h"
#include "document/ExportedNodes.h"
#include "document/LossText.h"
#include "document/SchemaKey.h"
#include "nodes/GenericContentNode.h"
#include "nodes/NodeIdentity.h"
#include "nodes/NodeKeys.h"
#include "workspace/NodeDictionary.h"

namespace Tesselor {

namespace {

const NodePinBlueprint* FindOutput(const NodeBlueprint& blueprint, const std::string& id) {
  for (const auto& pin : blueprint.outputs)
    if (pin->id == id) return pin.get();
  return nullptr;
}

void AppendStep(std::string& path, const ContentNode& node, bool isBehindLink) {
  if (node.importIndex >= 0) {
    if (isBehindLink) AppendKey(path, Keys::Children);
    AppendIndex(path, static_cast<size_t>(node.importIndex));
  } else if (const auto* generic = Toolkit::DynamicCast<GenericContentNode>(&node); generic && isBehindLink) {
    // A member that a pass-through node has no place for.
    AppendKey(path, generic->TargetKey());
  }
}

} // namespace

NodeShapes::NodeShapes(const NodeDictionary& dictionary, const std::vector<Toolkit::Ptr<ContentNode>>& nodes)
    : dictionary(dictionary) {
  for (const auto& node : nodes) {
    if (node->NodeId().empty()) continue;
    const auto [entry, isNew] = byUuid.emplace(node->NodeId(), node.Get());
    if (!isNew) entry->second = nullptr;
  }
}

const NodeBlueprint* NodeShapes::BlueprintOf(const cJSON* written) const {
  const cJSON* id = cJSON_IsObject(written) ? cJSON_GetObjectItem(written, Keys::NodeId) : nullptr;
  if (!cJSON_IsString(id)) return nullptr;
  return dictionary.FindBlueprint(NodeIdentity::Of(id->valuestring).type);
}

NodeShapes::Content NodeShapes::ContentOf(const NodeBlueprint* blueprint, const cJSON* member) {
  if (!blueprint || !member->string || IsEditorKey(member->string)) return Content::Data;
  const std::string key = ResolveSchemaKey(*blueprint, member->string, member);
  if (blueprint->schema.Contains(key)) return Content::Data;
  if (const NodePinTarget* target = blueprint->pinSchema.Find(key)) {
    if (const NodePinBlueprint* pin = FindOutput(*blueprint, target->pin)) {
      if (cJSON_IsArray(member)) return Content::Nodes;
      return pin->IsMap ? Content::Map : Content::Node;
    }
  }
  return Content::Data;
}

std::vector<std::string> NodeShapes::OriginsOf(const cJSON* written, const cJSON* member) const {
  const auto found = byUuid.find(UuidOf(written));
  if (found == byUuid.end() || !found->second) return {};
  const ContentNode& node = *found->second;
  const NodePinTarget* target =
      node.Blueprint().pinSchema.Find(ResolveSchemaKey(node.Blueprint(), member->string, member));
  const NodePinData* pin = target ? node.FindPin(target->pin) : nullptr;
  if (!pin || !pin->blueprint->Multiple || pin->IsMap()) return {};
  static const NodeSet all;
  std::vector<std::string> origins;
  NodeSet open;
  ChildWalk walk(*pin, all, open);
  while (const ContentNode* child = walk.Next()) {
    std::string& path = origins.emplace_back();
    bool isBehindLink = false;
    for (const ContentNode* link : walk.Links()) {
      // One of the metadata leaves no trace in the array.
      if (link->importIndex < 0) continue;
      AppendStep(path, *link, isBehindLink);
      isBehindLink = true;
    }
    AppendStep(path, *child, isBehindLink);
  }
  return origins;
}

} // namespace Tesselor
