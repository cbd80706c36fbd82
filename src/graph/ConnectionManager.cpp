#include "graph/ConnectionManager.h"

#include "graph/CutLineGeometry.h"

#include <algorithm>

namespace Tesselor {

using Toolkit::LayoutQueue;
using Toolkit::Point;
using Toolkit::Ptr;

ConnectionManager::~ConnectionManager() {
  LayoutQueue::Current().Remove(*this);
  Clear();
}

bool ConnectionManager::Add(Connection& connection) {
  if (connection.isListed) return false;
  connection.isListed = true;
  connection.order = nextOrder++;
  connection.place = connections.insert(connections.end(), Ptr<Connection>(&connection));
  std::vector<Connection*>& atInput = byNode[connection.GetInputNode()];
  connection.indexAtInput = atInput.size();
  atInput.push_back(&connection);
  if (connection.GetOutputNode() != connection.GetInputNode()) {
    std::vector<Connection*>& atOutput = byNode[connection.GetOutputNode()];
    connection.indexAtOutput = atOutput.size();
    atOutput.push_back(&connection);
  }
  BendLater(connection);
  return true;
}

bool ConnectionManager::Remove(Connection& connection) {
  if (!connection.isListed) return false;
  const Ptr<Connection> alive(&connection);
  connection.isListed = false;
  connections.erase(connection.place);
  TakeFromNode(connection.GetInputNode(), connection.indexAtInput);
  if (connection.GetOutputNode() != connection.GetInputNode())
    TakeFromNode(connection.GetOutputNode(), connection.indexAtOutput);
  if (connection.IsShownSelected()) {
    std::erase(selected, alive);
    connection.ShowNormal();
  }
  return true;
}

/// The last connection of the node takes the place of the one that leaves.
void ConnectionManager::TakeFromNode(const ContentNode* node, size_t index) {
  const auto entry = byNode.find(node);
  std::vector<Connection*>& ofNode = entry->second;
  Connection* last = ofNode.back();
  ofNode[index] = last;
  (last->GetInputNode() == node ? last->indexAtInput : last->indexAtOutput) = index;
  ofNode.pop_back();
  if (ofNode.empty()) byNode.erase(entry);
}

void ConnectionManager::Clear() {
  DeselectAll();
  due.clear();
  byNode.clear();
  // The last references may go here, and what they held may look at the lists.
  List gone = std::move(connections);
  connections.clear();
  for (const Ptr<Connection>& connection : gone) connection->isListed = connection->isBendDue = false;
}

std::vector<Ptr<Connection>> ConnectionManager::ConnectionsOf(const ContentNode& node) const {
  std::vector<Ptr<Connection>> result;
  if (const auto found = byNode.find(&node); found != byNode.end())
    result.assign(found->second.begin(), found->second.end());
  std::sort(result.begin(), result.end(), [](const auto& a, const auto& b) { return a->order < b->order; });
  return result;
}

std::vector<Ptr<Connection>> ConnectionManager::ConnectionsOf(const NodePinData& pin) const {
  std::vector<Ptr<Connection>> result = ConnectionsOf(*pin.owner);
  std::erase_if(result, [&](const Ptr<Connection>& connection) {
    return connection->GetInputPin() != &pin && connection->GetOutputPin() != &pin;
  });
  return result;
}

void ConnectionManager::FollowNode(const ContentNode& node) {
  const auto found = byNode.find(&node);
  if (found == byNode.end()) return;
  for (Connection* connection : found->second) BendLater(*connection);
}

void ConnectionManager::BendLater(Connection& connection) {
  if (connection.isBendDue) return;
  connection.isBendDue = true;
  due.emplace_back(&connection);
  LayoutQueue::Current().Add(*this);
}

void ConnectionManager::BendDueCurves() {
  for (const Ptr<Connection>& connection : std::exchange(due, {})) {
    connection->isBendDue = false;
    if (connection->isListed) connection->Bend();
  }
}

void ConnectionManager::Select(Connection& connection) {
  if (connection.IsShownSelected()) return;
  selected.emplace_back(&connection);
  connection.ShowSelected();
}

void ConnectionManager::SelectOne(Connection& connection) {
  const bool wasTheOnlyOne = selected.size() == 1 && selected.front() == &connection;
  DeselectAll();
  if (!wasTheOnlyOne) Select(connection);
}

void ConnectionManager::DeselectAll() {
  for (const Ptr<Connection>& connection : std::exchange(selected, {})) connection->ShowNormal();
}

std::vector<Ptr<Connection>> ConnectionManager::FindByCutLine(Point a, Point b) const {
  std::vector<Ptr<Connection>> found;
  for (const Ptr<Connection>& connection : connections)
    if (CutLineMeetsCurve(a, b, connection->GetCurve())) found.push_back(connection);
  return found;
}

} // namespace Tesselor
