#include "graph/ConnectionManager.h"

#include "editor/NodeEditorCanvas.h"
#include "graph/CutLineGeometry.h"

#include <algorithm>

namespace Tesselor {

using Toolkit::Point;
using Toolkit::Ptr;

bool ConnectionManager::Add(Connection* connection) {
  if (Contains(connection)) return false;
  places.emplace(connection, connections.insert(connections.end(), Ptr<Connection>(connection)));
  byNode[connection->GetInputNode()].push_back(connection);
  if (connection->GetOutputNode() != connection->GetInputNode())
    byNode[connection->GetOutputNode()].push_back(connection);
  connection->SetOwnsLink(true);
  return true;
}

bool ConnectionManager::Remove(const Connection* connection) {
  const Ptr<Connection> removed = TakeOut(connection);
  if (!removed) return false;
  removed->SetOwnsLink(false);
  return true;
}

Ptr<Connection> ConnectionManager::TakeOut(const Connection* connection) {
  const auto place = places.find(connection);
  if (place == places.end()) return nullptr;
  Ptr<Connection> taken = *place->second;
  connections.erase(place->second);
  places.erase(place);
  for (const ContentNode* node : {taken->GetInputNode(), taken->GetOutputNode()}) {
    const auto entry = byNode.find(node);
    if (entry == byNode.end()) continue;
    std::vector<Connection*>& ofNode = entry->second;
    if (const auto found = std::find(ofNode.begin(), ofNode.end(), taken.Get()); found != ofNode.end())
      ofNode.erase(found);
    if (ofNode.empty()) byNode.erase(entry);
  }
  return taken;
}

std::vector<Ptr<Connection>> ConnectionManager::ConnectionsOf(const ContentNode* node) const {
  std::vector<Ptr<Connection>> result;
  if (const auto found = byNode.find(node); found != byNode.end())
    result.assign(found->second.begin(), found->second.end());
  return result;
}

void ConnectionManager::RemoveAllOf(const ContentNode* node) {
  for (const Ptr<Connection>& connection : ConnectionsOf(node)) {
    TakeOut(connection.Get());
    // The document goes as a whole, so nothing of it may stay selected.
    if (!selectedConnections.empty()) std::erase(selectedConnections, connection);
  }
}

void ConnectionManager::RefreshAll(Toolkit::Canvas* panel) {
  for (const Ptr<Connection>& connection : connections) connection->Refresh(panel);
}

void ConnectionManager::RefreshAll() { RefreshAll(canvas->GetPanel()); }

void ConnectionManager::RefreshFor(const ContentNode* node, Toolkit::Canvas* panel) {
  const auto found = byNode.find(node);
  if (found == byNode.end()) return;
  for (Connection* connection : found->second) connection->Refresh(panel);
}

void ConnectionManager::RefreshFor(const ContentNode* node) { RefreshFor(node, canvas->GetPanel()); }

void ConnectionManager::Select(Connection* connection) {
  selectedConnections.emplace_back(connection);
  connection->ShowSelected();
}

void ConnectionManager::SelectOne(Connection* connection) {
  const bool wasTheOnlyOne = selectedConnections.size() == 1 && selectedConnections.front() == connection;
  DeselectAll();
  if (!wasTheOnlyOne) Select(connection);
}

void ConnectionManager::DeselectAll() {
  for (const Ptr<Connection>& connection : selectedConnections) connection->ShowNormal();
  selectedConnections.clear();
}

std::vector<Ptr<Connection>> ConnectionManager::FindByCutLine(Point a, Point b) const {
  std::vector<Ptr<Connection>> found;
  for (const Ptr<Connection>& connection : connections)
    if (CutLineMeetsCurve(a, b, connection->Curve())) found.push_back(connection);
  return found;
}

} // namespace Tesselor
