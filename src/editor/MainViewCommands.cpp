#include "editor/MainView.h"

#include "commands/BatchMoveActionCommand.h"
#include "commands/SetRootNodeActionCommand.h"
#include "editor/LossPanel.h"
#include "editor/NodeEditorCanvas.h"
#include "editor/NodePanel.h"
#include "editor/NodeSearchPanel.h"
#include "editor/PanelBaseField.h"
#include "fields/BaseField.h"
#include "nodes/CommentNode.h"
#include "nodes/ContentNode.h"
#include "nodes/GroupNode.h"
#include "nodes/NodeNames.h"
#include "nodes/NodePinControl.h"
#include "toolkit/application/MessageBox.h"
#include "toolkit/base/Dispatcher.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/CheckBox.h"
#include "toolkit/controls/StackPanel.h"
#include "values/ActionHistory.h"
#include "workspace/AssetFileIndex.h"
#include "workspace/RootType.h"

namespace Tesselor {

using Toolkit::MessageBox;
using Toolkit::MessageBoxButton;
using Toolkit::MessageBoxImage;
using Toolkit::MessageBoxResult;
using Toolkit::Ptr;
using Toolkit::RoutedEventArgs;
using Toolkit::Visibility;

void MainView::OnCanvasLoaded(Toolkit::Object*, const RoutedEventArgs&) {
  const std::string& asset = AssetFileIndex::Instance().assetToLoad;
  if (asset.empty()) return;
  filePath = asset;
  LoadFileAndWorkspace();
  ShowDocumentName();
}

void MainView::OpenMenuItem_Click(Toolkit::Object*, const RoutedEventArgs&) { Open(); }
void MainView::SaveMenuItem_Click(Toolkit::Object*, const RoutedEventArgs&) { Save(); }
void MainView::SaveAsMenuItem_Click(Toolkit::Object*, const RoutedEventArgs&) { SaveAs(); }

void MainView::CloseMenuItem_Click(Toolkit::Object*, const RoutedEventArgs&) { RequestClose(); }

void MainView::OnRootSelected(Toolkit::Object* sender, const RoutedEventArgs&) {
  CheckRootItem(workspaces.currentRoot ? workspaces.currentRoot->MenuName : std::string());
  const auto* item = Toolkit::DynamicCast<Toolkit::MenuItem>(sender);
  if (!item) return;
  const std::string name(item->GetName());
  Ptr<MainView> view(this);
  MessageBox::Show("All unsaved changes will be lost. Do you want to continue?", "Attention!",
                   MessageBoxButton::OKCancel, MessageBoxImage::None, [view, name](MessageBoxResult result) {
                     if (result != MessageBoxResult::OK) return;
                     if (!view->ChangeRootType(name)) return;
                     view->CreateDefaultRoot();
                     view->TellOfFileBehindNewDocument();
                   });
}

void MainView::OnAutoPositionNodes(Toolkit::Object*, const RoutedEventArgs&) { AskToLayOut(); }

void MainView::AskToLayOut() {
  Ptr<MainView> view(this);
  MessageBox::Show("This action will change all Node's position", "Attention!", MessageBoxButton::OKCancel,
                   MessageBoxImage::None, [view](MessageBoxResult result) {
                     if (result == MessageBoxResult::OK) view->AutoPosition();
                   });
}

void MainView::OnMirrorNodesPosition(Toolkit::Object*, const RoutedEventArgs&) { AskToMirror(); }

void MainView::AskToMirror() {
  Ptr<MainView> view(this);
  MessageBox::Show("This action will change all Node's position", "Attention!", MessageBoxButton::OKCancel,
                   MessageBoxImage::None, [view](MessageBoxResult result) {
                     if (result == MessageBoxResult::OK) view->MirrorNodes();
                   });
}

void MainView::MirrorNodes() {
  std::vector<MoveRecord> moves;
  const auto mirror = [&](const auto& nodes) {
    for (const auto& node : nodes) {
      const Toolkit::Rect bounds = node->Bounds();
      moves.push_back({node, bounds.x, bounds.y, graph->Panel().ActualWidth() - bounds.x, bounds.y});
    }
  };
  mirror(graph->ContentNodes());
  mirror(graph->GroupNodes());
  ActionHistory::Instance().Run(std::make_unique<BatchMoveActionCommand>(*graph, std::move(moves)));
}

ContentNode* MainView::SelectedContentNode() const {
  const Selection::Nodes& selected = graph->Selected().GetNodes();
  return selected.size() == 1 ? Toolkit::DynamicCast<ContentNode>(selected.front().Get()) : nullptr;
}

void MainView::OnClickSetSelectedNodeAsRoot(Toolkit::Object*, const RoutedEventArgs&) { SetSelectedAsRoot(); }

void MainView::SetSelectedAsRoot() {
  ContentNode* node = SelectedContentNode();
  if (!node) return Tell("Select one node to make it the root");
  ActionHistory::Instance().Run(std::make_unique<SetRootNodeActionCommand>(*graph, *node));
  commandStates->Refresh();
}

void MainView::OnClickGoToRoot(Toolkit::Object*, const RoutedEventArgs&) { GoToRoot(); }

void MainView::GoToRoot() {
  ResetViewToRoot();
  Tell(graph->Root() ? "The root is in the middle" : "There is no root");
}

void MainView::OnClickToggleCompactMode(Toolkit::Object*, const RoutedEventArgs&) { ToggleCompactMode(); }

void MainView::ToggleCompactMode() {
  for (const Ptr<ContentNode>& node : graph->ContentNodes()) node->ShowInFull(!compactModeFlag);
  Toolkit::StackPanel& rows = *nodePanel->GetFieldsStack();
  for (size_t i = 0; i < rows.ChildCount(); ++i)
    if (auto* row = Toolkit::DynamicCast<PanelBaseField>(rows.Child(i)))
      row->GetCheckBox()->SetIsChecked(!compactModeFlag);
  Tell(compactModeFlag ? "Fields are hidden" : "Fields are shown");
  compactModeFlag = !compactModeFlag;
}

void MainView::OnClickFindNode(Toolkit::Object*, const RoutedEventArgs&) { ToggleSearchPanel(); }

void MainView::ToggleSearchPanel() {
  if (nodeSearchPanel->IsOpen()) {
    nodeSearchPanel->Reset();
    return;
  }
  nodeSearchPanel->Open({graph->ContentNodes(), graph->GroupNodes(), graph->CommentNodes()});
}

void MainView::OnSearchResultSelected(Toolkit::Object*, const RoutedEventArgs& args) {
  if (BaseNode* node = static_cast<const SearchResultSelectedEventArgs&>(args).node.Get()) ShowNode(*node);
}

void MainView::OnLossChosen(Toolkit::Object*, const RoutedEventArgs& args) {
  ContentNode* node = static_cast<const LossChosenEventArgs&>(args).node.Get();
  if (node && graph->Contains(*node)) ShowNode(*node);
}

void MainView::ShowNode(BaseNode& node) {
  graph->Selected().Clear();
  graph->Selected().Add(node);
  nodeEditorCanvas->ResetViewTo(node.Middle());
  Tell("Selected " + NameOf(node));
}

void MainView::OnOverlayChanged(Toolkit::DependencyObject& object, const Toolkit::PropertyChange&) {
  // What has the focus can change only when the layers follow the properties.
  Toolkit::Dispatcher::Current().Post([weak = Toolkit::WeakPtr<MainView>(static_cast<MainView*>(&object))] {
    if (const Ptr<MainView> view = weak.Get()) view->ShowOrHideOverlays();
  });
}

void MainView::ShowOrHideOverlays() {
  const auto follow = [this](Overlay& overlay, const Toolkit::DependencyProperty* property) {
    if (Get<Visibility>(property) != Visibility::Visible) return overlay.Hide(graph->Panel());
    GiveUp();
    overlay.Show();
  };
  follow(*hotkeysOverlay, HotkeysModalVisibilityProperty);
  follow(*workspaceOverlay, LoadExternalAssetModalVisibilityProperty);
  follow(*versionsOverlay, VersionsModalVisibilityProperty);
}

void MainView::OnClickShowHotkeys(Toolkit::Object*, const RoutedEventArgs&) {
  SetValue(HotkeysModalVisibilityProperty, Visibility::Visible);
}

void MainView::OnClickCloseHotkeys(Toolkit::Object*, const RoutedEventArgs&) {
  SetValue(HotkeysModalVisibilityProperty, Visibility::Collapsed);
}

} // namespace Tesselor
