#pragma once

#include "graph/Connection.h"

#include <string>

namespace Tesselor {

class FrameNode;
class GroupNode;
class Graph;
class NodeDictionary;
class NodeEditorCanvas;

/// Puts what the nodes menu offers onto the canvas, where the menu was called, as undo steps. A connection that was
/// dropped beside a pin stays on the canvas as long as the menu is open, and ends at the node that is chosen.
class NewNodes {
public:
  /// Both outlive this; the graph stands on the canvas's panel.
  NewNodes(NodeEditorCanvas& canvas, Graph& graph) : canvas(canvas), graph(graph) {}

  /// Opens the menu at a point of the panel.
  void OpenMenu(Toolkit::Point at);
  /// The same, for what fits the one pin of the connection.
  void OpenMenuFor(Toolkit::Ptr<Connection> connection, Toolkit::Point at);
  /// The same two, called by a key: what is chosen is selected then, since keys go on with it.
  void OpenMenuByKey(Toolkit::Point at);
  void OpenMenuByKeyFor(NodePinData& pin, Toolkit::Point at);
  bool IsOpenedByKey() const { return isOpenedByKey; }
  /// Closes the menu and takes the dropped connection off.
  void CloseMenu();

  // What was chosen in the menu, which closes.
  /// False if the dictionary can't make the type.
  bool Create(const NodeDictionary& dictionary, const std::string& typeId);
  void CreateLink(const NodeDictionary& dictionary);
  void CreateGroup();
  void CreateComment();

  // Without the menu, at points of the panel.
  void CreateGroupAt(Toolkit::Point place);
  void CreateGroupAround(const Toolkit::Rect& area);
  void CreateCommentAt(Toolkit::Point place);

private:
  void BeginGroup(GroupNode& group);
  void PutDown(BaseNode& node);
  void PutDownFrame(FrameNode& frame);
  /// Joins the dropped connection's pin to the first pin of the node that fits.
  void Connect(ContentNode& node);
  /// Whoever makes a node goes on to fill it in.
  void FocusFirstField(ContentNode& node);

  NodeEditorCanvas& canvas;
  Graph& graph;
  Toolkit::Point spawnPosition;
  Toolkit::Ptr<Connection> dropped;
  bool isOpenedByKey = false;
};

} // namespace Tesselor
