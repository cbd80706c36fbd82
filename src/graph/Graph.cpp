#include "graph/Graph.h"

#include "graph/LinkTypes.h"
#include "graph/StructureChange.h"
#include "nodes/CommentNode.h"
#include "nodes/GroupNode.h"
#include "toolkit/controls/Canvas.h"

#include <algorithm>
#include <string>
#include <utility>

namespace Tesselor {

using Toolkit::DynamicCast;
using Toolkit::Point;
using Toolkit::Ptr;

namespace {

constexpr int32_t ConnectionZIndex = -10;

template <class T> bool StandsBefore(const Ptr<T>& a, const Ptr<T>& b) {
  return a->DocumentOrder() < b->DocumentOrder();
}

} // namespace

Graph::Graph(Toolkit::Canvas& panel) : panel(panel) {}

Graph::~Graph() { Clear(); }

void Graph::Add(BaseNode& node, Point place) {
  const StructureChange change(*this);
  if (leaving.contains(&node)) TakeOutLeaving();
  if (!members.insert(&node).second) return;
  if (node.DocumentOrder() == 0) node.SetDocumentOrder(nextOrder++);
  // The place is set before the node joins the panel, so that it is laid out there at once.
  Toolkit::Canvas::SetLeft(&node, place.x);
  Toolkit::Canvas::SetTop(&node, place.y);
  node.SetDataContext(&node);
  if (auto* content = DynamicCast<ContentNode>(&node)) {
    PutIn(contentNodes, *content);
    idIndex.Add(*content);
    content->SetObserver(this);
  } else if (auto* group = DynamicCast<GroupNode>(&node)) {
    PutIn(groupNodes, *group);
  } else if (auto* comment = DynamicCast<CommentNode>(&node)) {
    PutIn(commentNodes, *comment);
  }
  panel.AddChild(&node);
}

template <class T> void Graph::PutIn(List<T>& list, T& node) {
  areListsUnsorted |= !list.empty() && list.back()->DocumentOrder() > node.DocumentOrder();
  list.emplace_back(&node);
}

void Graph::Remove(BaseNode& node) {
  const StructureChange change(*this);
  if (members.erase(&node) == 0) return;
  if (auto* content = DynamicCast<ContentNode>(&node)) {
    for (const Ptr<Connection>& connection : connections.ConnectionsOf(*content)) Detach(*connection);
    idIndex.Remove(*content);
    content->SetObserver(nullptr);
  }
  leaving.insert(&node);
  leavingElements.emplace_back(&node);
  kept.emplace_back(&node);
}

void Graph::AddNode(ContentNode& node, float x, float y, bool select) {
  Add(node, {x + panel.GetWidth() * 0.5f, y + panel.GetHeight() * 0.5f});
  if (select) selection.Add(node);
}

GroupNode& Graph::AddGroupNode(float x, float y) {
  const auto node = Toolkit::MakePtr<GroupNode>();
  Add(*node, {x, y});
  node->RefreshZIndex();
  return *node;
}

CommentNode& Graph::AddCommentNode(float x, float y) {
  const auto node = Toolkit::MakePtr<CommentNode>();
  Add(*node, {x, y});
  node->RefreshZIndex();
  return *node;
}

void Graph::SetRootNode(ContentNode* node) {
  if (root) root->SetTitle(root->Blueprint().title);
  root = Ptr<ContentNode>(node);
  if (node) node->SetTitle(RootTitleOf(*node));
}

std::string Graph::RootTitleOf(const ContentNode& node) {
  return std::string(RootTitlePrefix) + node.Blueprint().title;
}

void Graph::Attach(Connection& connection) {
  const StructureChange change(*this);
  // What left a pin must not count as being there.
  UnlinkDue();
  if (!Contains(*connection.GetInputNode()) || !Contains(*connection.GetOutputNode())) return;
  if (!connection.GetOutputPin()->Join(*connection.GetInputPin())) return;
  connections.Add(connection);
  NoteEnds(connection);
  ConnectionPath& path = connection.GetPath();
  if (path.VisualParent()) TakeOutLeaving();
  Toolkit::Panel::SetZIndex(&path, ConnectionZIndex);
  panel.AddChild(&path);
}

void Graph::Detach(Connection& connection) {
  const StructureChange change(*this);
  if (!connections.Contains(connection)) return;
  kept.emplace_back(&connection);
  connections.Remove(connection);
  unlinked[connection.GetOutputPin()].insert(connection.GetInputPin());
  unlinked[connection.GetInputPin()].insert(connection.GetOutputPin());
  NoteEnds(connection);
  leavingElements.emplace_back(&connection.GetPath());
}

void Graph::NoteEnds(const Connection& connection) {
  NoteParent(*connection.GetOutputPin());
  childrenToNumber.push_back(connection.GetInputNode());
  for (ContentNode* node : {connection.GetInputNode(), connection.GetOutputNode()})
    if (node->IsPassthrough()) linksChanged.push_back(node);
}

void Graph::NoteParent(NodePinData& pin) {
  if (parentsSeen.insert(&pin).second) parentsToOrder.push_back(&pin);
}

void Graph::CompletePendingConnections() {
  const StructureChange change(*this);
  for (const PendingConnection& entry : std::exchange(pendingConnections, {})) {
    if (!NodePinData::CanConnect(*entry.childPin, *entry.parentPin)) continue;
    if (entry.childPin->IsConnectedTo(*entry.parentPin)) continue;
    Attach(*Toolkit::MakePtr<Connection>(*entry.childPin, *entry.parentPin));
  }
}

void Graph::RefreshOrderAround(const std::vector<ContentNode*>& moved) {
  const StructureChange change(*this);
  for (const ContentNode* node : moved)
    for (size_t i = 0; i < node->Input().Count(); ++i)
      for (NodePinData* parent : node->Input().Get(i)->connections) {
        if (parent->IsInput()) continue;
        NoteParent(*parent);
        if (parent->owner->IsPassthrough()) linksChanged.push_back(parent->owner);
      }
}

void Graph::RestoreOrder(const ChildOrder& order) {
  const StructureChange change(*this);
  if (!order.IsEmpty()) ordersToRestore.push_back(order);
}

void Graph::EndChange() {
  if (--openChanges > 0) return;
  UnlinkDue();
  TakeOutLeaving();
  if (std::exchange(areListsUnsorted, false)) {
    std::sort(contentNodes.begin(), contentNodes.end(), &StandsBefore<ContentNode>);
    std::sort(groupNodes.begin(), groupNodes.end(), &StandsBefore<GroupNode>);
    std::sort(commentNodes.begin(), commentNodes.end(), &StandsBefore<CommentNode>);
  }
  OrderChildren();
  if (!linksChanged.empty()) RefreshLinkTypes(std::exchange(linksChanged, {}));
  std::exchange(kept, {});
}

void Graph::UnlinkDue() {
  for (const auto& entry : std::exchange(unlinked, {})) {
    const auto& partners = entry.second;
    std::erase_if(entry.first->connections, [&partners](const NodePinData* other) { return partners.contains(other); });
  }
}

void Graph::TakeOutLeaving() {
  if (leavingElements.empty()) return;
  const std::unordered_set<const BaseNode*> gone = std::exchange(leaving, {});
  const auto isGone = [&gone](const auto& node) { return gone.contains(node.Get()); };
  if (!gone.empty()) {
    selection.Forget(gone);
    std::erase_if(contentNodes, isGone);
    std::erase_if(groupNodes, isGone);
    std::erase_if(commentNodes, isGone);
  }
  // What holds the focus gives it up as it leaves the panel, which may make an undo step of what was typed.
  panel.RemoveChildren(std::exchange(leavingElements, {}));
}

void Graph::OrderChildren() {
  for (NodePinData* pin : parentsToOrder) pin->RefreshChildOrder();
  for (const ChildOrder& order : std::exchange(ordersToRestore, {}))
    order.Restore([this](NodePinData& pin) {
      if (pin.owner->IsPassthrough()) linksChanged.push_back(pin.owner);
      if (pin.IsInput())
        childrenToNumber.push_back(pin.owner);
      else
        NoteParent(pin);
    });
  std::unordered_set<const ContentNode*> seen;
  for (ContentNode* child : std::exchange(childrenToNumber, {})) {
    if (!seen.insert(child).second) continue;
    // A child that has left one parent may be numbered by another from now on.
    if (NodePinData* pin = child->NumberingPin())
      NoteParent(*pin);
    else
      child->SetArrayIndex(-1);
  }
  parentsSeen.clear();
  for (NodePinData* pin : std::exchange(parentsToOrder, {})) pin->RenumberChildren();
}

void Graph::Clear() {
  ++documentNumber;
  idIndex.Clear();
  pendingConnections.clear();
  // Everything of the graph goes from the panel at once.
  std::vector<Ptr<Toolkit::UIElement>> removed;
  for (const Ptr<Connection>& connection : connections.GetConnections()) removed.emplace_back(&connection->GetPath());
  for (const Ptr<ContentNode>& node : contentNodes) {
    node->SetObserver(nullptr);
    removed.emplace_back(node.Get());
  }
  for (const Ptr<GroupNode>& node : groupNodes) removed.emplace_back(node.Get());
  for (const Ptr<CommentNode>& node : commentNodes) removed.emplace_back(node.Get());
  panel.RemoveChildren(removed);
  for (const Ptr<ContentNode>& node : contentNodes) node->ForgetConnections();
  connections.Clear();
  selection.Clear();
  members.clear();
  contentNodes.clear();
  groupNodes.clear();
  commentNodes.clear();
}

} // namespace Tesselor
