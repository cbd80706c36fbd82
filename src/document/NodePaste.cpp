#include "document/NodePaste.h"

#include "document/DocumentPrint.h"
#include "document/FrameReader.h"
#include "document/NodeEntry.h"
#include "document/NodeReader.h"
#include "document/StandIn.h"
#include "graph/Graph.h"
#include "graph/StructureChange.h"
#include "nodes/CommentNode.h"
#include "nodes/GroupNode.h"
#include "nodes/NodeIdentity.h"
#include "nodes/NodeKeys.h"
#include "platform/LogFile.h"
#include "platform/MessageBoxes.h"
#include "toolkit/controls/Canvas.h"
#include "workspace/Workspace.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Tesselor {

using Toolkit::Canvas;
using Toolkit::Ptr;

namespace {

bool HasNumber(const cJSON* object, const char* key) {
  const cJSON* item = cJSON_GetObjectItem(object, key);
  return cJSON_IsNumber(item) && std::isfinite(static_cast<float>(item->valuedouble));
}

bool HasPlace(const cJSON* object) {
  const cJSON* position = cJSON_GetObjectItem(object, Keys::Position);
  return HasNumber(position, Keys::X) && HasNumber(position, Keys::Y);
}

bool IsGroup(const cJSON* object) {
  return HasPlace(object) && HasNumber(object, Keys::Width) && HasNumber(object, Keys::Height) &&
         cJSON_IsString(cJSON_GetObjectItem(object, Keys::FrameName));
}

} // namespace

std::vector<Ptr<BaseNode>> NodePaste::Run(const std::vector<JsonPtr>& objects, Toolkit::Point place) {
  constexpr float Far = std::numeric_limits<float>::max();
  corner = {Far, Far};
  graph.Selected().Clear();
  const StructureChange change(graph);
  for (const JsonPtr& object : objects) Read(object.get());
  TellUnknown();
  NodeReader reader(graph, workspace, NewNodes::Selected, nullptr, &details);
  details.MakeLinks(reader);

  // A copy of the root is no root.
  for (const Ptr<ContentNode>& node : details.Nodes())
    if (node->Title() == Graph::RootTitleOf(*node)) node->SetTitle(node->Blueprint().title);
  std::vector<Ptr<BaseNode>> nodes(details.Nodes().begin(), details.Nodes().end());
  nodes.insert(nodes.end(), frames.begin(), frames.end());
  const Toolkit::Point offset = place - corner;
  for (const Ptr<BaseNode>& node : nodes) {
    Canvas::SetLeft(node.Get(), Canvas::GetLeft(node.Get()) + offset.x);
    Canvas::SetTop(node.Get(), Canvas::GetTop(node.Get()) + offset.y);
  }
  for (const Ptr<BaseNode>& frame : frames) graph.Selected().Add(*frame);
  details.ReplaceConnections(graph);
  graph.CompletePendingConnections();
  details.KeepOrder(graph);
  return nodes;
}

void NodePaste::Read(const cJSON* object) {
  if (cJSON_GetObjectItem(object, Keys::Text)) {
    if (!HasPlace(object)) return LogFile::Write("Pasted comment has no position, ignoring...");
    CommentNode& comment = graph.AddCommentNode(0, 0);
    ReadComment(comment, object);
    AddFrame(comment);
  } else if (const cJSON* id = cJSON_GetObjectItem(object, Keys::NodeId)) {
    const auto text = JsonText(id);
    if (!text) return LogFile::Write("Pasted node has no type, ignoring...");
    ReadNode(object, std::string(NodeIdentity::Of(*text).type));
  } else if (cJSON_GetObjectItem(object, Keys::Generic)) {
    ReadNode(object, BuiltIn::Generic);
  } else {
    if (!IsGroup(object)) return LogFile::Write("Pasted object is no node, group or comment, ignoring...");
    GroupNode& group = graph.AddGroupNode(0, 0);
    ReadFrame(group, object);
    AddFrame(group);
  }
}

void NodePaste::ReadNode(const cJSON* object, const std::string& type) {
  const bool isKnown = type == BuiltIn::Generic || workspace.nodeDictionary->FindBlueprint(type);
  if (!isKnown) NoteUnknown(type);
  const Ptr<ContentNode> node = MakeNodeOrStandIn(*workspace.nodeDictionary, isKnown ? type : BuiltIn::Generic, type);
  MarkStandIn(*workspace.nodeDictionary, *node, type, type);
  DocumentPrint print(object);
  NodeReader reader(graph, workspace, NewNodes::Selected, &print, &details);
  const NodeEntry entry(object);
  reader.SetIdentity(*node, reader.IdentityOf(entry, {}));
  reader.Add(*node);
  node->Deserialize(object, reader);
  details.Apply(*node, entry.copied);
  NotePlace(*node);
}

void NodePaste::NoteUnknown(const std::string& type) {
  LogFile::Write("Could not find node id: " + type + ". A generic node will be created");
  if (std::find(unknownTypes.begin(), unknownTypes.end(), type) == unknownTypes.end()) unknownTypes.push_back(type);
}

void NodePaste::TellUnknown() const {
  if (unknownTypes.empty()) return;
  std::string list;
  for (const std::string& type : unknownTypes) list += (list.empty() ? "" : ", ") + type;
  ShowError(unknownTypes.size() == 1 ? "Could not find node id: " + list + ". A generic node will be created"
                                     : "Could not find node ids: " + list + ". Generic nodes will be created",
            AttentionCaption);
}

void NodePaste::AddFrame(FrameNode& frame) {
  frames.emplace_back(&frame);
  NotePlace(frame);
}

void NodePaste::NotePlace(const BaseNode& node) {
  corner.x = std::min(corner.x, Canvas::GetLeft(&node));
  corner.y = std::min(corner.y, Canvas::GetTop(&node));
}

} // namespace Tesselor
