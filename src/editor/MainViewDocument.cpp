#include "editor/MainView.h"

#include "commands/BatchDeleteConnectionActionCommand.h"
#include "commands/BatchMoveActionCommand.h"
#include "commands/CreateConnectionActionCommand.h"
#include "editor/ConnectionRefusal.h"
#include "editor/FileGuard.h"
#include "editor/LossNotice.h"
#include "editor/NodeEditorCanvas.h"
#include "editor/NodePanel.h"
#include "editor/NodeSearchPanel.h"
#include "graph/TreeLayout.h"
#include "nodes/CommentNode.h"
#include "nodes/GroupNode.h"
#include "nodes/NodePinControl.h"
#include "toolkit/controls/Canvas.h"
#include "values/ActionHistory.h"

namespace Tesselor {

void MainView::OnConnectionClicked(Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
  if (auto* connection = Toolkit::DynamicCast<Connection>(args.source)) graph->Connections().SelectOne(*connection);
}

void MainView::ForgetPendingPinOfGoneNode() {
  // A pin whose node has left can't be connected.
  if (const NodePinControl* begun = pendingPin.Get(); begun && !graph->Contains(*begun->PinData()->owner))
    pendingPin.Clear();
}

void MainView::OnNodePinMenu(Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
  ForgetPendingPinOfGoneNode();
  if (auto* pin = Toolkit::DynamicCast<NodePinControl>(args.source))
    ShowPinMenu(*pin, pendingPin,
                [this](NodePinData& target, NodePinData& source) { TryCreateConnection(target, source); });
}

CanvasGestures::Callbacks MainView::GestureCallbacks() {
  CanvasGestures::Callbacks callbacks;
  callbacks.openNode = [this](ContentNode& node) { nodePanel->OpenNode(&node); };
  callbacks.connection.connect = [this](NodePinData& target, NodePinData& source) {
    TryCreateConnection(target, source);
  };
  callbacks.connection.click = [this](NodePinData& pin) {
    for (const auto& connection : graph->Connections().ConnectionsOf(pin)) graph->Connections().Select(*connection);
  };
  callbacks.connection.drop = [this](Toolkit::Ptr<Connection> connection, Toolkit::Point at) {
    if (workspaces.currentRoot) newNodes->OpenMenuFor(std::move(connection), at);
  };
  return callbacks;
}

void MainView::TryCreateConnection(NodePinData& target, NodePinData& source) {
  if (const std::string reason = ConnectionRefusal(target, source); !reason.empty())
    return Tell("Not connected: " + reason);
  ActionHistory::Instance().Run(std::make_unique<CreateConnectionActionCommand>(*graph, target, source));
}

void MainView::OnSelectionUp(Toolkit::Object*, const SelectionUpEventArgs& args) {
  graph->Connections().DeselectAll();
  graph->Selected().Clear();
  nodePanel->Close();
  const Toolkit::Rect area{args.x, args.y, args.width, args.height};
  const auto selectWhatMeets = [&](const auto& nodes) {
    for (const auto& node : nodes)
      if (area.Intersects(node->Bounds())) graph->Selected().Add(*node);
  };
  selectWhatMeets(graph->ContentNodes());
  selectWhatMeets(graph->CommentNodes());
}

void MainView::OnCutLineUp(Toolkit::Object*, const CutLineUpEventArgs& args) {
  const auto found = graph->Connections().FindByCutLine({args.x1, args.y1}, {args.x2, args.y2});
  graph->Connections().DeselectAll();
  if (found.empty()) return;
  if (args.ctrl)
    ActionHistory::Instance().Run(std::make_unique<BatchDeleteConnectionActionCommand>(*graph, found));
  else
    for (const auto& connection : found) graph->Connections().Select(*connection);
}

void MainView::AutoPosition() {
  if (!workspaces.currentRoot || graph->ContentNodes().empty()) return;
  ActionHistory::Instance().Push(std::make_unique<BatchMoveActionCommand>(
      *graph, TreeLayout(TreeLayout::Order::ByHeight).Run(*graph->ContentNodes().front())));
}

void MainView::ClearDocument() {
  if (gestures) gestures->Cancel();
  graph->Clear();
  nodeSearchPanel->Forget();
  lossNotice->End();
  if (fileGuard) fileGuard->Take("");
  pendingPin.Clear();
  commandStates->Refresh();
  NoteSaved();
}

} // namespace Tesselor
