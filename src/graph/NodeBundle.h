#pragma once

#include "graph/ChildOrder.h"
#include "graph/Connection.h"
#include "toolkit/base/Geometry.h"

#include <string>
#include <vector>

namespace Tesselor {

class Graph;

/// Some nodes that leave the graph and come back together, with all connections that they have then. What comes back
/// stands where it stood, in its place in every list. Keeps the nodes and connections alive meanwhile.
class NodeBundle {
public:
  /// The graph outlives the bundle. Each node once.
  NodeBundle(Graph& graph, std::vector<Toolkit::Ptr<BaseNode>> nodes);
  /// For a node that is not in the graph yet and will stand at `place`.
  NodeBundle(Graph& graph, BaseNode& node, Toolkit::Point place);

  // Once the graph holds another document these do nothing.
  void TakeOut();
  void PutBack();
  /// For the user.
  std::string Name() const;
  /// Of the nodes that are out.
  size_t HeldBytes() const { return heldBytes; }

private:
  Graph& graph;
  uint64_t document;
  std::vector<Toolkit::Ptr<BaseNode>> nodes;
  // Of the last time that the nodes were taken out.
  std::vector<Toolkit::Point> places;
  std::vector<Toolkit::Ptr<Connection>> connections;
  ChildOrder order;
  size_t heldBytes = 0;
};

/// Takes connections out of the graph and puts them back, with the order of the lists that they stood in.
class ConnectionBundle {
public:
  /// The graph outlives the bundle. Each connection once.
  ConnectionBundle(Graph& graph, std::vector<Toolkit::Ptr<Connection>> connections)
      : graph(graph), connections(std::move(connections)) {}
  void TakeOut();
  void PutBack();
  /// For the user.
  std::string Name() const;

private:
  Graph& graph;
  std::vector<Toolkit::Ptr<Connection>> connections;
  ChildOrder order;
};

} // namespace Tesselor
