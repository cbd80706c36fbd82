#pragma once

#include "graph/Connection.h"

#include <list>
#include <unordered_map>
#include <vector>

namespace Tesselor {

class NodeEditorCanvas;

/// All connections of the document and those selected among them. Finding, adding and removing one, and finding those
/// of a node, do not depend on how many there are.
class ConnectionManager {
public:
  /// In order of appending.
  using List = std::list<Toolkit::Ptr<Connection>>;

  /// The canvas outlives the manager.
  explicit ConnectionManager(NodeEditorCanvas* canvas) : canvas(canvas) {}
  ConnectionManager(const ConnectionManager&) = delete;
  ConnectionManager& operator=(const ConnectionManager&) = delete;

  NodeEditorCanvas* GetCanvas() const { return canvas; }
  const List& GetConnections() const { return connections; }
  bool Contains(const Connection* connection) const { return places.contains(connection); }
  /// Appends the connection, whose nodes are set; false if it is there already.
  bool Add(Connection* connection);
  /// Keeps the order of the others; false if it isn't there. The selection stays as it is.
  bool Remove(const Connection* connection);
  /// Those with the node at either end, in the order of the list.
  std::vector<Toolkit::Ptr<Connection>> ConnectionsOf(const ContentNode* node) const;
  /// Takes the connections of the node out of the list and the selection, when the whole document is cleared. Those
  /// that nobody else holds end their links on the way, unless that was done already: `ForgetConnections` on all nodes
  /// before keeps a large document from renumbering children for each of them.
  void RemoveAllOf(const ContentNode* node);

  /// Reads the pins' places anew and bends all curves to them. Layout is valid.
  void RefreshAll(Toolkit::Canvas* panel);
  void RefreshAll();
  void RefreshFor(const ContentNode* node, Toolkit::Canvas* panel);
  void RefreshFor(const ContentNode* node);

  /// In order of selecting. A connection may stand here twice.
  std::vector<Toolkit::Ptr<Connection>> selectedConnections;
  /// Appends to the selection, with the selected stroke.
  void Select(Connection* connection);
  /// The rule of a click: selects this one alone, or deselects it if it was the only one.
  void SelectOne(Connection* connection);
  void DeselectAll();

  /// The connections whose curves the line from `a` to `b` meets, in the order of the list. Panel coordinates.
  std::vector<Toolkit::Ptr<Connection>> FindByCutLine(Toolkit::Point a, Toolkit::Point b) const;

private:
  /// Takes the connection out of list and index; null if it isn't there.
  Toolkit::Ptr<Connection> TakeOut(const Connection* connection);

  NodeEditorCanvas* canvas;
  List connections;
  std::unordered_map<const Connection*, List::iterator> places;
  /// The connections of each node in the order of the list; one from a node to itself stands here once.
  std::unordered_map<const ContentNode*, std::vector<Connection*>> byNode;
};

} // namespace Tesselor
