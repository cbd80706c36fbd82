#pragma once

#include "toolkit/base/Object.h"

#include <memory>
#include <string_view>
#include <vector>

namespace Tesselor {

class CommentNode;
class ContentNode;
class GroupNode;
class NodePinControl;
class NodePinData;
struct RootType;

/// A connection that is to be made once the pins' controls exist.
struct PendingConnection {
  Toolkit::Ptr<ContentNode> childNode;
  /// The input end.
  NodePinData* childPin;
  Toolkit::Ptr<ContentNode> parentNode;
  /// The output end.
  NodePinData* parentPin;
};

/// The document and its view, as nodes, import and export see them. The window implements it, and owns the nodes.
class DocumentView {
public:
  virtual ~DocumentView() = default;

  virtual const std::vector<Toolkit::Ptr<ContentNode>>& ContentNodes() const = 0;
  virtual const std::vector<Toolkit::Ptr<GroupNode>>& GroupNodes() const = 0;
  virtual const std::vector<Toolkit::Ptr<CommentNode>>& CommentNodes() const = 0;

  /// Adds the node to the list and the canvas at file coordinates, whose 0 is the canvas's middle.
  virtual void AddNode(ContentNode& node, float x, float y, bool select) = 0;
  /// Makes a frame at canvas coordinates. The view owns it.
  virtual GroupNode& AddGroupNode(float x, float y) = 0;
  virtual CommentNode& AddCommentNode(float x, float y) = 0;
  virtual void SetRootNode(ContentNode& node) = 0;

  /// Of several nodes with this UUID the first in the list; null if there is none. Found by hash or by tree, never by
  /// walking the list: a load asks it for every entry that has an identity.
  virtual ContentNode* FindNodeById(std::string_view nodeId) const = 0;

  virtual std::vector<PendingConnection>& PendingConnections() = 0;
  /// Runs layout, makes every pending connection that the pins allow, and empties the list.
  virtual void CompletePendingConnections() = 0;
  /// Lays the tree out from the first content node on.
  virtual void AutoPosition(bool sortByPosition) = 0;

  /// The node has moved: its connections follow.
  virtual void RefreshConnectionsOf(const ContentNode& node) = 0;

  /// Forgets all undo steps: they don't reach across a load.
  virtual void ClearHistory() = 0;

  /// What kind of document stands in the view; null before one was chosen.
  virtual std::shared_ptr<RootType> CurrentRoot() const = 0;

  /// The pin from which a connection was begun by menu; null if there is none.
  virtual NodePinControl* PendingPin() const { return nullptr; }
  /// Marks the pin and unmarks the former one; null unmarks only.
  virtual void SetPendingPin(NodePinControl*) {}
  /// Connects two pins as an undoable step if that is allowed.
  virtual void TryCreateConnection(NodePinControl&, NodePinControl&) {}
};

} // namespace Tesselor
