#pragma once

#include "document/PasteDetails.h"
#include "platform/JsonFile.h"
#include "toolkit/base/Geometry.h"

#include <string>
#include <vector>

namespace Tesselor {

class CommentNode;
class FrameNode;
class Graph;
class Workspace;

/// Makes nodes of the clipboard's objects.
class NodePaste {
public:
  /// Both outlive the paste; the workspace's schemas are loaded.
  NodePaste(Graph& graph, const Workspace& workspace) : graph(graph), workspace(workspace) {}

  /// Everything that came, also what stands inside of other objects: content nodes, groups, comments. It is selected,
  /// and nothing else is. The upper left corner of the objects' places comes to `place`, in panel coordinates. An
  /// object from which no node can be made is left out, with a line in the log.
  std::vector<Toolkit::Ptr<BaseNode>> Run(const std::vector<JsonPtr>& objects, Toolkit::Point place);

private:
  void Read(const cJSON* object);
  void ReadNode(const cJSON* object, const std::string& type);
  void NoteUnknown(const std::string& type);
  /// One box for all types that no schema knows.
  void TellUnknown() const;
  void AddFrame(FrameNode& frame);
  void NotePlace(const BaseNode& node);

  Graph& graph;
  const Workspace& workspace;
  PasteDetails details;
  std::vector<Toolkit::Ptr<BaseNode>> frames;
  /// In the order in which they came, each once.
  std::vector<std::string> unknownTypes;
  /// Of all objects so far.
  Toolkit::Point corner;
};

} // namespace Tesselor
