#include "graph/NodeBundle.h"

#include "graph/Graph.h"
#include "graph/StructureChange.h"
#include "nodes/FrameNode.h"
#include "nodes/NodeNames.h"

#include <unordered_set>

namespace Tesselor {

using Toolkit::DynamicCast;
using Toolkit::Ptr;

namespace {

ChildOrder OrderAround(const std::vector<Ptr<Connection>>& connections) {
  ChildOrder order;
  for (const Ptr<Connection>& connection : connections) {
    order.Note(*connection->GetOutputPin());
    order.Note(*connection->GetInputPin());
  }
  return order;
}

} // namespace

NodeBundle::NodeBundle(Graph& graph, std::vector<Ptr<BaseNode>> nodes)
    : graph(graph), document(graph.DocumentNumber()), nodes(std::move(nodes)) {}

NodeBundle::NodeBundle(Graph& graph, BaseNode& node, Toolkit::Point place)
    : graph(graph), document(graph.DocumentNumber()), nodes{Ptr<BaseNode>(&node)}, places{place} {}

void NodeBundle::TakeOut() {
  if (graph.DocumentNumber() != document) return;
  places.clear();
  connections.clear();
  std::unordered_set<const Connection*> seen;
  for (const Ptr<BaseNode>& node : nodes) {
    const Toolkit::Rect bounds = node->Bounds();
    places.push_back({bounds.x, bounds.y});
    if (const auto* content = DynamicCast<ContentNode>(node.Get()))
      for (const Ptr<Connection>& connection : graph.Connections().ConnectionsOf(*content))
        if (seen.insert(connection.Get()).second) connections.push_back(connection);
  }
  order = OrderAround(connections);
  const StructureChange change(graph);
  for (const Ptr<Connection>& connection : connections) graph.Detach(*connection);
  heldBytes = 0;
  for (const Ptr<BaseNode>& node : nodes) {
    heldBytes += node->EstimateBytes();
    graph.Remove(*node);
  }
}

void NodeBundle::PutBack() {
  if (graph.DocumentNumber() != document) return;
  heldBytes = 0;
  const StructureChange change(graph);
  for (size_t i = 0; i < nodes.size(); ++i) {
    graph.Add(*nodes[i], places[i]);
    if (auto* frame = DynamicCast<FrameNode>(nodes[i].Get())) frame->RefreshZIndex();
  }
  for (const Ptr<Connection>& connection : connections) graph.Attach(*connection);
  graph.RestoreOrder(order);
}

void ConnectionBundle::TakeOut() {
  order = OrderAround(connections);
  const StructureChange change(graph);
  for (const Ptr<Connection>& connection : connections) graph.Detach(*connection);
}

void ConnectionBundle::PutBack() {
  const StructureChange change(graph);
  for (const Ptr<Connection>& connection : connections) graph.Attach(*connection);
  graph.RestoreOrder(order);
}

std::string NodeBundle::Name() const { return NameOf(nodes); }

std::string ConnectionBundle::Name() const { return Counted(connections.size(), "connection", "connections"); }

} // namespace Tesselor
