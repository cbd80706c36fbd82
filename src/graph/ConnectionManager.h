#pragma once

#include "graph/Connection.h"
#include "toolkit/visual/LayoutQueue.h"

#include <unordered_map>
#include <vector>

namespace Tesselor {

/// All connections of the document and those selected among them. Finding, adding and removing one, and finding those
/// of a node, do not depend on how many there are. Bends the curves once layout has moved their ends.
class ConnectionManager : private Toolkit::LayoutTask {
public:
  /// In order of appending.
  using List = Connection::List;

  ConnectionManager() = default;
  ~ConnectionManager();
  ConnectionManager(const ConnectionManager&) = delete;
  ConnectionManager& operator=(const ConnectionManager&) = delete;

  const List& GetConnections() const { return connections; }
  bool Contains(const Connection& connection) const { return connection.isListed; }
  /// Appends the connection, which has both ends; false if it is there already. Its curve is bent by the next layout.
  bool Add(Connection& connection);
  /// Keeps the order of the others and takes it out of the selection; false if it isn't there.
  bool Remove(Connection& connection);
  void Clear();
  /// Those with the node at either end, in the order of the list.
  std::vector<Toolkit::Ptr<Connection>> ConnectionsOf(const ContentNode& node) const;
  /// Those that end at the pin, in the order of the list.
  std::vector<Toolkit::Ptr<Connection>> ConnectionsOf(const NodePinData& pin) const;

  /// The node's pins stand elsewhere: the next layout bends its curves.
  void FollowNode(const ContentNode& node);
  /// Bends what is due now. Layout is valid.
  void BendDueCurves();

  /// In order of selecting, each once.
  const std::vector<Toolkit::Ptr<Connection>>& Selected() const { return selected; }
  /// Appends to the selection, with the selected stroke.
  void Select(Connection& connection);
  /// The rule of a click: selects this one alone, or deselects it if it was the only one.
  void SelectOne(Connection& connection);
  void DeselectAll();

  /// The connections whose curves the line from `a` to `b` meets, in the order of the list. Panel coordinates.
  std::vector<Toolkit::Ptr<Connection>> FindByCutLine(Toolkit::Point a, Toolkit::Point b) const;

private:
  void AfterLayout() override { BendDueCurves(); }
  void BendLater(Connection& connection);
  void TakeFromNode(const ContentNode* node, size_t index);

  List connections;
  uint64_t nextOrder = 1;
  /// In no order; one from a node to itself stands here once.
  std::unordered_map<const ContentNode*, std::vector<Connection*>> byNode;
  std::vector<Toolkit::Ptr<Connection>> selected;
  std::vector<Toolkit::Ptr<Connection>> due;
};

} // namespace Tesselor
