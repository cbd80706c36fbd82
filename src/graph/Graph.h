#pragma once

#include "graph/ChildOrder.h"
#include "graph/ConnectionManager.h"
#include "graph/NodeIdIndex.h"
#include "graph/PendingConnection.h"
#include "graph/Selection.h"
#include "nodes/NodeObserver.h"

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace Toolkit {
class Canvas;
}

namespace Tesselor {

class CommentNode;
class GroupNode;

/// The document: its nodes, which of them is the root, how they are connected, what is selected, and the panel on which
/// all of it stands. Every change of the structure goes through here, and leaves every list, index, number, link type,
/// curve and stacking order right at its end; what leaves, leaves everywhere. Knows nothing of windows, files or undo.
///
/// A change of many nodes or connections stands inside a `StructureChange`, whose end does once what each step of it
/// would otherwise do again.
class Graph : private NodeObserver {
public:
  template <class T> using List = std::vector<Toolkit::Ptr<T>>;

  /// The panel outlives the graph, which puts nodes and curves on it and never touches its other children.
  explicit Graph(Toolkit::Canvas& panel);
  ~Graph();
  Graph(const Graph&) = delete;
  Graph& operator=(const Graph&) = delete;

  Toolkit::Canvas& Panel() const { return panel; }
  const List<ContentNode>& ContentNodes() const { return contentNodes; }
  const List<GroupNode>& GroupNodes() const { return groupNodes; }
  const List<CommentNode>& CommentNodes() const { return commentNodes; }
  bool Contains(const BaseNode& node) const { return members.contains(&node); }
  /// Of several nodes with this UUID the first in the list; null if there is none. Costs the logarithm of the nodes.
  ContentNode* FindNodeById(std::string_view nodeId) const { return idIndex.Find(nodeId); }
  /// The node last made the root; it may have left the graph. Null if there is none.
  ContentNode* Root() const { return root.Get(); }
  ConnectionManager& Connections() { return connections; }
  const ConnectionManager& Connections() const { return connections; }
  Selection& Selected() { return selection; }
  const Selection& Selected() const { return selection; }

  // Nodes.
  /// Puts the node on the panel, at panel coordinates. One that was here before takes its former place in its list.
  void Add(BaseNode& node, Toolkit::Point place);
  /// Takes the node with its connections out; nothing if it isn't here. Whoever holds it may add it again.
  void Remove(BaseNode& node);
  /// The same at file coordinates, whose 0 is the panel's middle.
  void AddNode(ContentNode& node, float x, float y, bool select);
  /// Makes a frame at panel coordinates.
  GroupNode& AddGroupNode(float x, float y);
  CommentNode& AddCommentNode(float x, float y);
  /// Marks the root by its title; the former root gets its type's title back. Null means none.
  void SetRootNode(ContentNode* node);
  /// The title that marks a node as the root.
  static std::string RootTitleOf(const ContentNode& node);

  // Connections.
  /// Joins the two pins and puts the curve on the panel. Not a check: `NodePinData::CanConnect` is. Nothing if the pins
  /// are joined already, or if a node of theirs isn't here.
  void Attach(Connection& connection);
  /// Ends the link of the pins and takes the curve off; nothing if the connection isn't attached.
  void Detach(Connection& connection);
  /// Connections that a load or a paste makes once its nodes are all there.
  std::vector<PendingConnection>& PendingConnections() { return pendingConnections; }
  /// Makes those of them that the pins allow, in their order, and forgets the others.
  void CompletePendingConnections();
  /// The nodes were moved: brings the children of the pins that they hang on into the order of their heights, and
  /// renumbers them.
  void RefreshOrderAround(const std::vector<ContentNode*>& moved);
  /// Brings the noted lists of pins back into their noted order, at the end of the open change.
  void RestoreOrder(const ChildOrder& order);

  /// Takes out everything but the root's mark. What was in the graph until now never comes back.
  void Clear();
  /// Tells one document from the next: changes whenever the graph is cleared.
  uint64_t DocumentNumber() const { return documentNumber; }

private:
  friend class StructureChange;
  void BeginChange() { ++openChanges; }
  void EndChange();
  void UnlinkDue();
  void TakeOutLeaving();
  void OrderChildren();
  void NoteParent(NodePinData& pin);
  void NoteEnds(const Connection& connection);
  template <class T> void PutIn(List<T>& list, T& node);

  void OnNodeIdChanging(ContentNode& node) override { idIndex.Remove(node); }
  void OnNodeIdChanged(ContentNode& node) override { idIndex.Add(node); }
  void OnNodeLayoutChanged(ContentNode& node) override { connections.FollowNode(node); }

  Toolkit::Canvas& panel;
  List<ContentNode> contentNodes;
  List<GroupNode> groupNodes;
  List<CommentNode> commentNodes;
  NodeIdIndex idIndex;
  Toolkit::Ptr<ContentNode> root;
  std::vector<PendingConnection> pendingConnections;
  Selection selection;
  ConnectionManager connections;

  std::unordered_set<const BaseNode*> members;
  uint64_t nextOrder = 1;
  uint64_t documentNumber = 0;

  // What an open change has left to do.
  int openChanges = 0;
  std::unordered_set<const BaseNode*> leaving;
  std::vector<Toolkit::Ptr<Toolkit::UIElement>> leavingElements;
  std::unordered_map<NodePinData*, std::unordered_set<const NodePinData*>> unlinked;
  std::vector<NodePinData*> parentsToOrder;
  std::vector<ChildOrder> ordersToRestore;
  std::unordered_set<const NodePinData*> parentsSeen;
  std::vector<ContentNode*> childrenToNumber;
  std::vector<ContentNode*> linksChanged;
  /// What the change took out lives until its end.
  std::vector<Toolkit::Ptr<Toolkit::Object>> kept;
  bool areListsUnsorted = false;
};

} // namespace Tesselor
