#include "editor/MainView.h"

#include "commands/SetRootNodeActionCommand.h"
#include "editor/NodeEditorCanvas.h"
#include "editor/NodePanel.h"
#include "editor/NodeSearchPanel.h"
#include "editor/PanelBaseField.h"
#include "fields/BaseField.h"
#include "nodes/CommentNode.h"
#include "nodes/ContentNode.h"
#include "nodes/GroupNode.h"
#include "nodes/NodePinControl.h"
#include "toolkit/application/MessageBox.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/CheckBox.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/visual/Input.h"
#include "values/ActionHistory.h"
#include "workspace/AssetFileIndex.h"
#include "workspace/RootType.h"

namespace Tesselor {

using Toolkit::Key;
using Toolkit::Keyboard;
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
}

void MainView::OpenMenuItem_Click(Toolkit::Object*, const RoutedEventArgs&) { Open(); }
void MainView::SaveMenuItem_Click(Toolkit::Object*, const RoutedEventArgs&) { Save(); }
void MainView::SaveAsMenuItem_Click(Toolkit::Object*, const RoutedEventArgs&) { SaveAs(); }

void MainView::OnRootSelected(Toolkit::Object* sender, const RoutedEventArgs&) {
  CheckRootItem(workspaces.currentRoot ? workspaces.currentRoot->MenuName : std::string());
  const auto* item = Toolkit::DynamicCast<Toolkit::MenuItem>(sender);
  if (!item) return;
  const std::string name(item->GetName());
  Ptr<MainView> view(this);
  MessageBox::Show("All unsaved changes will be lost. Do you want to continue?", "Attention!",
                   MessageBoxButton::OKCancel, MessageBoxImage::None, [view, name](MessageBoxResult result) {
                     if (result != MessageBoxResult::OK) return;
                     view->ChangeRootType(name);
                     view->CreateDefaultRoot();
                   });
}

void MainView::OnAutoPositionNodes(Toolkit::Object*, const RoutedEventArgs&) {
  Ptr<MainView> view(this);
  MessageBox::Show("This action will change all Node's position", "Attention!", MessageBoxButton::OKCancel,
                   MessageBoxImage::None, [view](MessageBoxResult result) {
                     if (result == MessageBoxResult::OK) view->AutoPosition();
                   });
}

void MainView::OnMirrorNodesPosition(Toolkit::Object*, const RoutedEventArgs&) {
  Ptr<MainView> view(this);
  MessageBox::Show("This action will change all Node's position", "Attention!", MessageBoxButton::OKCancel,
                   MessageBoxImage::None, [view](MessageBoxResult result) {
                     if (result == MessageBoxResult::OK) view->MirrorNodes();
                   });
}

void MainView::MirrorNodes() {
  auto mirror = [](BaseNode& node) {
    const auto* canvas = Toolkit::DynamicCast<Toolkit::Canvas>(static_cast<Toolkit::Object*>(node.VisualParent()));
    if (!canvas) return;
    const float middle = canvas->ActualWidth() * 0.5f;
    Toolkit::Canvas::SetLeft(&node, middle - (Toolkit::Canvas::GetLeft(&node) - middle));
  };
  for (const Ptr<ContentNode>& node : graph->ContentNodes()) mirror(*node);
  for (const Ptr<GroupNode>& node : graph->GroupNodes()) mirror(*node);
}

void MainView::OnClickSetSelectedNodeAsRoot(Toolkit::Object*, const RoutedEventArgs&) {
  const Selection::Nodes& selected = graph->Selected().GetNodes();
  if (selected.size() != 1) return;
  auto* node = Toolkit::DynamicCast<ContentNode>(static_cast<Toolkit::Object*>(selected.front().Get()));
  if (!node) return;
  auto command = std::make_unique<SetRootNodeActionCommand>(*graph, *node);
  command->Do();
  ActionHistory::Instance().Push(std::move(command));
}

void MainView::OnClickGoToRoot(Toolkit::Object*, const RoutedEventArgs&) { ResetViewToRoot(); }

void MainView::OnClickToggleCompactMode(Toolkit::Object*, const RoutedEventArgs&) {
  for (const Ptr<ContentNode>& node : graph->ContentNodes()) node->ShowInFull(!compactModeFlag);
  Toolkit::StackPanel& rows = *nodePanel->GetFieldsStack();
  for (size_t i = 0; i < rows.ChildCount(); ++i)
    if (auto* row = Toolkit::DynamicCast<PanelBaseField>(static_cast<Toolkit::Object*>(rows.Child(i))))
      row->GetCheckBox()->SetIsChecked(!compactModeFlag);
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
  BaseNode* node = static_cast<const SearchResultSelectedEventArgs&>(args).node.Get();
  if (!node) return;
  graph->Selected().Clear();
  graph->Selected().Add(*node);
  nodeEditorCanvas->ResetViewTo(node->Middle());
}

void MainView::OnClickShowHotkeys(Toolkit::Object*, const RoutedEventArgs&) {
  SetValue(HotkeysModalVisibilityProperty, Visibility::Visible);
}

void MainView::OnClickCloseHotkeys(Toolkit::Object*, const RoutedEventArgs&) {
  SetValue(HotkeysModalVisibilityProperty, Visibility::Collapsed);
}

void MainView::Window_KeyDown(Toolkit::Object*, const Toolkit::KeyEventArgs& args) {
  const bool shift = Keyboard::IsKeyDown(Key::LeftShift);
  if (Keyboard::IsKeyDown(Key::LeftCtrl)) {
    // Each chord that matches runs; only the two of Z exclude each other.
    if (shift && Keyboard::IsKeyDown(Key::S)) SaveAs();
    if (Keyboard::IsKeyDown(Key::S)) Save();
    if (Keyboard::IsKeyDown(Key::O)) Open();
    if (Keyboard::IsKeyDown(Key::F)) ToggleSearchPanel();
    if (Keyboard::IsKeyDown(Key::Z)) {
      if (shift)
        ActionHistory::Instance().RedoLast();
      else
        ActionHistory::Instance().UndoLast();
      nodeSearchPanel->Reset();
    }
  }
  const bool inTextBox = Toolkit::DynamicCast<Toolkit::TextBox>(args.source) != nullptr;
  if (args.key == Key::Escape) {
    pendingPin.Clear();
  } else if (args.key == Key::H && !inTextBox) {
    const bool shown = Get<Visibility>(HotkeysModalVisibilityProperty) == Visibility::Visible;
    SetValue(HotkeysModalVisibilityProperty, shown ? Visibility::Collapsed : Visibility::Visible);
  }
}

} // namespace Tesselor
