#include "editor/MainView.h"

#include "editor/NodeEditorCanvas.h"
#include "editor/NodeSearchPanel.h"
#include "graph/Connection.h"
#include "graph/TreeLayout.h"
#include "nodes/CommentNode.h"
#include "nodes/ContentNode.h"
#include "nodes/GroupNode.h"
#include "nodes/NodePinControl.h"
#include "toolkit/controls/Canvas.h"
#include "values/ActionHistory.h"
#include "workspace/RootType.h"

#include <unordered_set>

namespace Tesselor {

using Toolkit::MakePtr;
using Toolkit::Ptr;

namespace {
constexpr int32_t ConnectionZIndex = -10;
constexpr std::string_view RootPrefix = "[ROOT] ";
} // namespace

Toolkit::Canvas& MainView::Panel() const { return *nodeEditorCanvas->GetPanel(); }

void MainView::AddNode(ContentNode& node, float x, float y, bool select) {
  node.SetDataContext(&node);
  contentNodes.emplace_back(&node);
  nodesById.Add(node);
  // The place is set before the node joins the panel, so that it is laid out there at once.
  Toolkit::Canvas::SetLeft(&node, x + Panel().GetWidth() * 0.5f);
  Toolkit::Canvas::SetTop(&node, y + Panel().GetHeight() * 0.5f);
  Panel().AddChild(&node);
  if (select) {
    node.SetSelected(true);
    selectedNodes.emplace_back(&node);
  }
}

GroupNode& MainView::AddGroupNode(float x, float y) {
  auto node = MakePtr<GroupNode>();
  node->SetDataContext(node.Get());
  Toolkit::Panel::SetZIndex(node.Get(), -1);
  Toolkit::Canvas::SetLeft(node.Get(), x);
  Toolkit::Canvas::SetTop(node.Get(), y);
  groupNodes.push_back(node);
  Panel().AddChild(node.Get());
  return *node;
}

CommentNode& MainView::AddCommentNode(float x, float y) {
  auto node = MakePtr<CommentNode>();
  node->SetDataContext(node.Get());
  Toolkit::Panel::SetZIndex(node.Get(), -2);
  Toolkit::Canvas::SetLeft(node.Get(), x);
  Toolkit::Canvas::SetTop(node.Get(), y);
  commentNodes.push_back(node);
  Panel().AddChild(node.Get());
  return *node;
}

void MainView::SetRootNode(ContentNode& node) {
  if (rootNode) rootNode->SetTitle(rootNode->Blueprint().title);
  rootNode = Ptr<ContentNode>(&node);
  node.SetTitle(std::string(RootPrefix) + node.Blueprint().title);
  UpdateLayout();
  connectionManager->RefreshAll();
}

void MainView::CompletePendingConnections() {
  UpdateLayout();
  // Order, numbers and link types follow from all connections of a pin together, so they are brought up to date once
  // per pin and node and not per connection.
  std::vector<NodePinData*> parents;
  std::vector<Ptr<ContentNode>> passthrough;
  std::unordered_set<const Toolkit::Object*> seen;
  auto notePassthrough = [&](const Ptr<ContentNode>& node) {
    if (node->IsPassthrough() && seen.insert(node.Get()).second) passthrough.push_back(node);
  };
  std::vector<PendingConnection> pending = std::move(pendingConnections);
  pendingConnections.clear();
  for (const PendingConnection& entry : pending) {
    NodePinControl* child = entry.childNode->FindPinControl(*entry.childPin);
    NodePinControl* parent = entry.parentNode->FindPinControl(*entry.parentPin);
    if (!child || !parent || !NodePinData::CanConnect(*entry.childPin, *entry.parentPin)) continue;
    if (!entry.childPin->Join(*entry.parentPin)) continue;
    NodePinData* output = entry.childPin->IsInput() ? entry.parentPin : entry.childPin;
    if (seen.insert(output).second) parents.push_back(output);
    auto connection = MakePtr<Connection>();
    connection->SetPin(child, &Panel());
    connection->SetPin(parent, &Panel());
    connection->UpdateCurve();
    connection->CreatePath();
    connectionManager->Add(connection.Get());
    Toolkit::Path* path = connection->GetPath();
    path->AddHandler(Connection::ConnectionClickedEvent,
                     Toolkit::RoutedEventHandler::From<&MainView::OnConnectionClicked>(this));
    Toolkit::Panel::SetZIndex(path, ConnectionZIndex);
    Panel().AddChild(path);
    notePassthrough(entry.childNode);
    notePassthrough(entry.parentNode);
  }
  for (NodePinData* pin : parents) pin->RefreshChildOrder();
  for (const Ptr<ContentNode>& node : passthrough) {
    node->SetValue(ContentNode::IsLinkValidProperty, node->ComputeLinkValidity());
    node->PropagateLinkType();
  }
}

void MainView::OnConnectionClicked(Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
  if (auto* connection = Toolkit::DynamicCast<Connection>(args.source)) connectionManager->SelectOne(connection);
}

void MainView::RefreshConnectionsOf(const ContentNode& node) { connectionManager->RefreshFor(&node); }

void MainView::ClearHistory() { ActionHistory::Instance().Clear(); }

void MainView::AutoPosition(bool sortByPosition) {
  if (!workspaces.currentRoot || contentNodes.empty()) return;
  TreeLayout(*this, sortByPosition).Run(*contentNodes.front());
  UpdateLayout();
  connectionManager->RefreshAll();
}

void MainView::SetPendingPin(NodePinControl* pin) {
  if (pendingPin) pendingPin->SetPendingConnection(false);
  pendingPin = Ptr<NodePinControl>(pin);
  if (pendingPin) pendingPin->SetPendingConnection(true);
}

void MainView::ClearDocument() {
  nodesById.Clear();
  pendingConnections.clear();
  connectionManager->DeselectAll();
  // Everything on the panel goes at once but for what the canvas itself has there.
  std::vector<Ptr<Toolkit::UIElement>> removed;
  for (const Ptr<Connection>& connection : connectionManager->GetConnections())
    if (connection->GetPath()) removed.emplace_back(connection->GetPath());
  for (const Ptr<ContentNode>& node : contentNodes) removed.emplace_back(node.Get());
  for (const Ptr<GroupNode>& node : groupNodes) removed.emplace_back(node.Get());
  for (const Ptr<CommentNode>& node : commentNodes) removed.emplace_back(node.Get());
  Panel().RemoveChildren(removed);
  for (const Ptr<ContentNode>& node : contentNodes) node->ForgetConnections();
  for (const Ptr<ContentNode>& node : contentNodes) connectionManager->RemoveAllOf(node.Get());
  selectedNodes.clear();
  groupNodes.clear();
  commentNodes.clear();
  contentNodes.clear();
  nodeSearchPanel->Forget();
  SetPendingPin(nullptr);
}

void MainView::DeselectAll() {
  for (const Ptr<BaseNode>& node : selectedNodes) node->SetSelected(false);
  selectedNodes.clear();
}

} // namespace Tesselor
