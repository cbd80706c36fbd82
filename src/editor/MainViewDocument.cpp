#include "editor/MainView.h"

#include "commands/BatchMoveActionCommand.h"
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

void MainView::OnNodePinMenu(Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
  if (auto* pin = Toolkit::DynamicCast<NodePinControl>(args.source))
    ShowPinMenu(*pin, pendingPin,
                [this](NodePinControl& target, NodePinControl& source) { TryCreateConnection(target, source); });
}

void MainView::TryCreateConnection(NodePinControl&, NodePinControl&) {}

void MainView::AutoPosition() {
  if (!workspaces.currentRoot || graph->ContentNodes().empty()) return;
  ActionHistory::Instance().Push(std::make_unique<BatchMoveActionCommand>(
      TreeLayout(TreeLayout::Order::ByHeight).Run(*graph->ContentNodes().front())));
}

void MainView::ClearDocument() {
  graph->Clear();
  nodeSearchPanel->Forget();
  pendingPin.Clear();
}

} // namespace Tesselor
