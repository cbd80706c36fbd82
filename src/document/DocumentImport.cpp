#include "document/DocumentImport.h"

#include "document/DocumentPrint.h"
#include "document/FrameReader.h"
#include "document/ImportTarget.h"
#include "document/KeptMetadata.h"
#include "document/NodeEntry.h"
#include "document/NodeReader.h"
#include "document/StandIn.h"
#include "document/UnnamedNodes.h"
#include "document/UnplacedNodes.h"
#include "graph/Graph.h"
#include "graph/TreeLayout.h"
#include "nodes/CommentNode.h"
#include "nodes/ContentNode.h"
#include "nodes/GroupNode.h"
#include "nodes/NodeIdentity.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePosition.h"
#include "platform/JsonFile.h"
#include "platform/LogFile.h"
#include "platform/MessageBoxes.h"
#include "toolkit/controls/Canvas.h"
#include "values/ActionHistory.h"
#include "workspace/Workspace.h"

#include <array>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace Tesselor {

namespace {

/// A node with more outputs than this shows only those that are used.
constexpr size_t ManyOutputs = 10;

constexpr char Caption[] = "Error Importing";

/// Whether a node object of the asset itself says where it stands. Metadata doesn't count.
bool HasInlinePosition(const cJSON* value) {
  static constexpr std::array<std::string_view, 7> metadataKeys = {
      Keys::Metadata,           Keys::Nodes, Keys::Groups, Keys::Comments, Keys::Links, Keys::FloatingNodes,
      Keys::FormerFloatingNodes};
  if (value->string)
    for (const std::string_view key : metadataKeys)
      if (key == value->string) return false;
  if (cJSON_GetObjectItem(value, Keys::Position) || cJSON_GetObjectItem(value, Keys::RootNodePosition)) return true;
  const cJSON* child = nullptr;
  cJSON_ArrayForEach(child, value) if (HasInlinePosition(child)) return true;
  return false;
}

} // namespace

DocumentImport::DocumentImport(const cJSON* document, const Workspace& workspace, ImportTarget& target)
    : document(document), metadata(cJSON_GetObjectItem(document, Keys::Metadata)), workspace(workspace), target(target),
      view(target.graph) {
  if (!metadata) metadata = document;
}

bool DocumentImport::Run(const std::string& rootNodeType) {
  // Undo steps don't reach across a load.
  ActionHistory::Instance().Clear();
  const std::optional<std::string> type = ResolveRootType(rootNodeType);
  if (!type) return false;
  const Toolkit::Ptr<ContentNode> root = workspace.nodeDictionary->CreateNode(*type, true);
  if (!root || !HasPinFields(root->Blueprint())) {
    ReportError("ImportNodeTree: Failed to create root node", "Cannot import node tree: Failed to create root node.",
                Caption);
    return false;
  }
  view.SetRootNode(root.Get());
  if (const auto id = JsonText(cJSON_GetObjectItem(document, Keys::NodeId)))
    root->SetNodeId(std::string(NodeIdentity::Of(*id).uuid));
  MarkStandIn(*workspace.nodeDictionary, *root, *type,
              JsonText(cJSON_GetObjectItem(document, Keys::NodeId)).value_or(std::string()));

  const NodeSet placed = ReadNodes(*root);
  KeepMetadataOfStandIns(metadata, view);
  ReadGroups();
  ReadComments();
  UnnamedNodes::Identify(cJSON_GetObjectItem(metadata, Keys::Links), view);
  LinkImport links(metadata, workspace, view);
  links.Read();
  links.SpliceIntoPendingConnections();
  // Heights order the children of pins, so nodes are laid out before they are joined.
  view.Panel().UpdateLayout();
  view.CompletePendingConnections();
  links.Finish();
  ApplyLayout(placed);
  HideUnusedPins();
  LogFile::Write("Successfully imported node tree");
  return true;
}

std::optional<std::string> DocumentImport::ResolveRootType(const std::string& rootNodeType) const {
  const NodeVariant* variant = workspace.nodeDictionary->FindVariant(rootNodeType);
  if (!variant) return rootNodeType;
  const auto value = JsonText(cJSON_GetObjectItem(document, variant->VariantFieldName.c_str()));
  if (!value) {
    ReportError("ImportNodeTree: Missing or invalid variant redirect field: " + variant->VariantFieldName,
                "Cannot import node tree: Missing variant field '" + variant->VariantFieldName + "' in file.", Caption);
    return std::nullopt;
  }
  const std::string* found = variant->Variants.Find(*value);
  if (!found) {
    ReportError("ImportNodeTree: Unknown variant value: " + *value,
                "Cannot import node tree: Unknown variant value '" + *value + "'.", Caption);
    return std::nullopt;
  }
  return *found;
}

NodeSet DocumentImport::ReadNodes(ContentNode& root) {
  DocumentPrint print(document);
  NodeReader reader(view, workspace, NewNodes::Unselected, &print);
  reader.Add(root);
  root.Deserialize(document, reader);
  const cJSON* floating = nullptr;
  for (const cJSON* place : {metadata, document})
    for (const char* key : {Keys::FloatingNodes, Keys::FormerFloatingNodes})
      if (!floating) floating = cJSON_GetObjectItem(place, key);
  const cJSON* item = nullptr;
  if (cJSON_IsArray(floating)) cJSON_ArrayForEach(item, floating) ReadFloatingNode(item, reader);
  return reader.PlacedNodes();
}

void DocumentImport::ReadFloatingNode(const cJSON* item, NodeReader& reader) {
  const NodeDictionary& dictionary = *workspace.nodeDictionary;
  Toolkit::Ptr<ContentNode> node;
  std::string uuid;
  if (const auto id = JsonText(cJSON_GetObjectItem(item, Keys::NodeId))) {
    const NodeIdentity identity = NodeIdentity::Of(*id);
    uuid = identity.uuid;
    node = MakeNodeOrStandIn(dictionary, std::string(identity.type), *id);
  } else if (cJSON_GetObjectItem(item, Keys::Generic)) {
    node = dictionary.CreateNode(BuiltIn::Generic, false);
  } else if (const auto type = JsonText(cJSON_GetObjectItem(item, "Type"))) {
    for (const auto& [blueprintId, blueprint] : dictionary.blueprints) {
      const std::string* entry = blueprint->schema.Find("Type");
      if (!entry || *entry != *type) continue;
      node = MakeNodeOrStandIn(dictionary, blueprintId, {});
      break;
    }
  }
  if (!node) {
    node = dictionary.CreateNode(BuiltIn::Generic, false);
    MarkStandIn(dictionary, *node, {}, {});
  }
  if (!uuid.empty()) node->SetNodeId(uuid);
  reader.Add(*node);
  node->Deserialize(item, reader);
  reader.NotePlace(*node, NodeEntry(item));
}

void DocumentImport::ReadGroups() {
  const cJSON* groups = cJSON_GetObjectItem(metadata, Keys::Groups);
  if (!cJSON_IsArray(groups)) return;
  const cJSON* group = nullptr;
  cJSON_ArrayForEach(group, groups) ReadFrame(view.AddGroupNode(0, 0), group);
}

void DocumentImport::ReadComments() {
  const cJSON* comments = cJSON_GetObjectItem(metadata, Keys::Comments);
  if (!cJSON_IsArray(comments)) return;
  const cJSON* json = nullptr;
  cJSON_ArrayForEach(json, comments) ReadComment(view.AddCommentNode(0, 0), json);
}

void DocumentImport::ApplyLayout(const NodeSet& inlinePlaced) {
  const cJSON* nodes = cJSON_GetObjectItem(metadata, Keys::Nodes);
  NodeSet placed = inlinePlaced;
  if (cJSON_IsObject(nodes)) ApplyPlaces(nodes, placed);
  const bool hasNodes = cJSON_IsObject(nodes) && nodes->child;
  if (!hasNodes && !HasInlinePosition(document)) {
    target.onLaidOut(TreeLayout(TreeLayout::Order::AsImported).Run(*view.ContentNodes().front()));
    return;
  }
  for (const auto& node : view.ContentNodes())
    if (node->IsPassthrough()) placed.insert(node.Get());
  PlaceUnplacedNodes(view, std::move(placed));
}

void DocumentImport::ApplyPlaces(const cJSON* places, NodeSet& placed) {
  std::unordered_map<std::string_view, std::vector<ContentNode*>> nodesById;
  for (const auto& node : view.ContentNodes())
    if (!node->NodeId().empty()) nodesById[node->NodeId()].push_back(node.Get());
  const auto uuidOf = [](const cJSON* member) { return NodeIdentity::Of(member->string ? member->string : "").uuid; };
  std::unordered_map<std::string_view, size_t> left;
  const cJSON* member = nullptr;
  cJSON_ArrayForEach(member, places)++ left[uuidOf(member)];
  cJSON_ArrayForEach(member, places) {
    const auto found = nodesById.find(uuidOf(member));
    if (found == nodesById.end()) continue;
    const std::vector<ContentNode*>& nodes = found->second;
    const auto apply = [&](ContentNode& node) {
      if (const cJSON* position = cJSON_GetObjectItem(member, Keys::Position); cJSON_IsObject(position)) {
        ApplyPosition(node, position, PositionPrecision::Fraction);
        placed.insert(&node);
      }
      if (const auto title = JsonText(cJSON_GetObjectItem(member, Keys::Title))) node.SetTitle(*title);
    };
    apply(*nodes.back());
    // One node behind several pins comes several times with one UUID, and then its key stands here as often: those
    // before the last have their own places.
    const size_t behind = --left[found->first];
    if (behind > 0 && behind < nodes.size()) apply(*nodes[nodes.size() - 1 - behind]);
  }
}

void DocumentImport::HideUnusedPins() {
  for (const auto& node : view.ContentNodes()) {
    const size_t declared = node->Blueprint().outputs.size();
    if (declared <= ManyOutputs) continue;
    size_t connected = 0;
    for (size_t i = 0; i < node->Output().Count(); ++i)
      if (!node->Output().Get(i)->connections.empty()) ++connected;
    if (connected < declared) node->ToggleUnusedOutputPins();
  }
}

} // namespace Tesselor
