#include "editor/MainView.h"

#include "document/FileHistory.h"
#include "editor/CreateNodeButton.h"
#include "editor/EditInProgress.h"
#include "editor/FileGuard.h"
#include "editor/LossNotice.h"
#include "editor/LossPanel.h"
#include "editor/NodeEditorCanvas.h"
#include "editor/NodePanel.h"
#include "editor/NodeSearchPanel.h"
#include "editor/NoticeBar.h"
#include "editor/StatusLine.h"
#include "editor/VersionsPanel.h"
#include "editor/WorkKeeper.h"
#include "nodes/CommentNode.h"
#include "nodes/ContentNode.h"
#include "nodes/GroupNode.h"
#include "nodes/NodePinControl.h"
#include "platform/EndSignals.h"
#include "platform/FileDialogs.h"
#include "platform/LogFile.h"
#include "toolkit/application/MessageBox.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/markup/GUI.h"
#include "values/ActionHistory.h"
#include "workspace/RootType.h"

namespace Tesselor {

using Toolkit::RoutedEventHandler;
using Toolkit::Visibility;

TOOLKIT_TYPE_IMPL(MainView, Toolkit::Window, "Tesselor.MainView")
void MainView::Describe(Toolkit::TypeBuilder<MainView>& type) {
  LoadExternalAssetModalVisibilityProperty = type.Property<Visibility>(
      "LoadExternalAssetModalVisibility", Visibility::Collapsed, 0, &MainView::OnOverlayChanged);
  HotkeysModalVisibilityProperty =
      type.Property<Visibility>("HotkeysModalVisibility", Visibility::Collapsed, 0, &MainView::OnOverlayChanged);
  VersionsModalVisibilityProperty =
      type.Property<Visibility>("VersionsModalVisibility", Visibility::Collapsed, 0, &MainView::OnOverlayChanged);
  type.Member<&MainView::ReflectedWorkspaceList>("WorkspaceList");
  type.Handler<&MainView::Window_PreviewKeyDown>("Window_PreviewKeyDown", PreviewKeyDownEvent);
  type.Handler<&MainView::Window_KeyDown>("Window_KeyDown", KeyDownEvent);
  type.Handler<&MainView::OnCanvasLoaded>("OnCanvasLoaded", LoadedEvent);
  type.Handler<&MainView::OpenMenuItem_Click>("OpenMenuItem_Click", Toolkit::MenuItem::ClickEvent);
  type.Handler<&MainView::SaveMenuItem_Click>("SaveMenuItem_Click", Toolkit::MenuItem::ClickEvent);
  type.Handler<&MainView::SaveAsMenuItem_Click>("SaveAsMenuItem_Click", Toolkit::MenuItem::ClickEvent);
  type.Handler<&MainView::CloseMenuItem_Click>("CloseMenuItem_Click", Toolkit::MenuItem::ClickEvent);
  type.Handler<&MainView::OnAutoPositionNodes>("OnAutoPositionNodes", Toolkit::MenuItem::ClickEvent);
  type.Handler<&MainView::OnMirrorNodesPosition>("OnMirrorNodesPosition", Toolkit::MenuItem::ClickEvent);
  type.Handler<&MainView::OnClickSetSelectedNodeAsRoot>("OnClickSetSelectedNodeAsRoot", Toolkit::MenuItem::ClickEvent);
  type.Handler<&MainView::OnClickGoToRoot>("OnClickGoToRoot", Toolkit::MenuItem::ClickEvent);
  type.Handler<&MainView::OnClickToggleCompactMode>("OnClickToggleCompactMode", Toolkit::MenuItem::ClickEvent);
  type.Handler<&MainView::OnClickFindNode>("OnClickFindNode", Toolkit::MenuItem::ClickEvent);
  type.Handler<&MainView::OnClickEarlierVersions>("OnClickEarlierVersions", Toolkit::MenuItem::ClickEvent);
  type.Handler<&MainView::OnClickShowHotkeys>("OnClickShowHotkeys", Toolkit::MenuItem::ClickEvent);
  type.Handler<&MainView::OnClickCloseHotkeys>("OnClickCloseHotkeys", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&MainView::OnClickLoadWorkspace>("OnClickLoadWorkspace", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&MainView::OnClickCancelLoadWorkspace>("OnClickCancelLoadWorkspace", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&MainView::OnSelectionUp>("OnSelectionUp", NodeEditorCanvas::SelectionUpEvent);
  type.Handler<&MainView::OnShowNodesMenu>("OnShowNodesMenu", NodeEditorCanvas::ShowNodesMenuEvent);
  type.Handler<&MainView::OnNodesMenuClosed>("OnNodesMenuClosed", NodesMenu::ClosedEvent);
  type.Handler<&MainView::OnCreateNode>("OnCreateNode", CreateNodeButton::CreateNodeEvent);
  type.Handler<&MainView::OnCreateGroup>("OnCreateGroup", NodesMenu::CreateGroupEvent);
  type.Handler<&MainView::OnCreateLink>("OnCreateLink", NodesMenu::CreateLinkEvent);
  type.Handler<&MainView::OnCreateComment>("OnCreateComment", NodesMenu::CreateCommentEvent);
  type.Handler<&MainView::ContainerBorder_MouseUp>("ContainerBorder_MouseUp", PreviewMouseLeftButtonUpEvent);
  type.Handler<&MainView::OnCutLineUp>("OnCutLineUp", NodeEditorCanvas::CutLineUpEvent);
  type.Handler<&MainView::OnConnectionClicked>("OnConnectionClicked", Connection::ConnectionClickedEvent);
  type.Handler<&MainView::OnNodePinMenu>("OnNodePinMenu", NodePinControl::NodePinMenuEvent);
  type.Handler<&MainView::OnLossChosen>("OnLossChosen", LossPanel::LossChosenEvent);
  type.Handler<&MainView::OnSearchResultSelected>("OnSearchResultSelected", NodeSearchPanel::SearchResultSelectedEvent);
}

MainView::MainView() {
  // The list of the workspace selection is bound by the document, so it is there before the document is.
  workspaceList = Toolkit::MakePtr<Toolkit::ObservableCollection<WorkspaceItemData>>();
  Toolkit::GUI::LoadComponent(*this, "MainView.xaml");
  nodeEditorCanvas = FindName<NodeEditorCanvas>("NodeEditorCanvas");
  containerBorder = FindName<Toolkit::Border>("ContainerBorder");
  workspaceMenu = FindName<Toolkit::MenuItem>("WorkspaceMenu");
  TOOLKIT_ASSERT(nodeEditorCanvas && containerBorder && workspaceMenu);
  graph = std::make_unique<Graph>(*nodeEditorCanvas->GetPanel());
  newNodes = std::make_unique<NewNodes>(*nodeEditorCanvas, *graph);
  nudges = std::make_unique<Nudges>(*graph);
  frameResizes = std::make_unique<FrameResizes>();
  glide = std::make_unique<ViewGlide>(*nodeEditorCanvas);
  gestures = std::make_unique<CanvasGestures>(*nodeEditorCanvas, *graph, GestureCallbacks());
  nodePanel = FindName<NodePanel>("NodePanel");
  nodeSearchPanel = FindName<NodeSearchPanel>("NodeSearchPanel");
  noticeBar = FindName<NoticeBar>("NoticeBar");
  lossPanel = FindName<LossPanel>("LossPanel");
  statusLine = FindName<StatusLine>("StatusLine");
  versionsPanel = FindName<VersionsPanel>("VersionsPanel");
  TOOLKIT_ASSERT(nodePanel && nodeSearchPanel && noticeBar && lossPanel && statusLine && versionsPanel);
  documentName = FindName<Toolkit::TextBlock>("DocumentName");
  lossNotice = std::make_unique<LossNotice>(*noticeBar, *lossPanel, *graph);
  ActionHistory::Instance().onStep = [this](ActionHistory::StepEvent event, const IActionCommand& step) {
    const StepDescription description = step.Description();
    switch (event) {
    case ActionHistory::StepEvent::Made: return Tell(description.Done());
    case ActionHistory::StepEvent::Undone: return Tell("Undone: " + description.Name());
    case ActionHistory::StepEvent::Redone: return Tell("Redone: " + description.Name());
    }
  };
  AddCommandStates();
  editInProgress = std::make_unique<EditInProgress>(*this, [this] { OnDocumentChanged(); });
  ActionHistory::Instance().onChanged = [this] { OnDocumentChanged(); };
  NoteSaved();
  FileDialogs::SetCurrentFile([this] { return filePath; });
  workspaceOverlay =
      std::make_unique<Overlay>(*FindName<Toolkit::UIElement>("WorkspaceOverlay"), [this] { CancelLoadWorkspace(); });
  hotkeysOverlay = std::make_unique<Overlay>(*FindName<Toolkit::UIElement>("HotkeysOverlay"), Toolkit::Key::H, [this] {
    SetValue(HotkeysModalVisibilityProperty, Visibility::Collapsed);
  });
  const auto closeVersions = [this] { SetValue(VersionsModalVisibilityProperty, Visibility::Collapsed); };
  versionsOverlay = std::make_unique<Overlay>(*versionsPanel, closeVersions);
  versionsPanel->closed = closeVersions;
  versionsPanel->chosen = [this](const VersionLine& line) { OpenVersion(line); };

  if (!workspaces.ImportWorkspaces(FindWorkspacesDirectory())) {
    LogFile::Write("Failed to load any workspaces - editor may have limited functionality");
    return;
  }
  BuildRootMenu();
  const std::vector<std::string> names = workspaces.GetRootNames();
  if (!names.empty()) {
    if (ChangeRootType(names.front())) CreateDefaultRoot();
  }
}

MainView::~MainView() {
  endSignals.reset();
  fileGuard.reset();
  keeper.reset();
  ActionHistory::Instance().onChanged = nullptr;
  editInProgress.reset();
  // Steps refer to nodes and connections, which go with the view.
  ActionHistory::Instance().onStep = nullptr;
  ActionHistory::Instance().Clear();
  graph->Selected().onChanged = nullptr;
  FileDialogs::SetCurrentFile(nullptr);
  ClearDocument();
}

void MainView::AddCommandStates() {
  commandStates = std::make_unique<CommandStates>();
  const auto add = [this](const char* name, std::function<bool()> canRun) {
    if (auto* item = FindName<Toolkit::UIElement>(name)) commandStates->Add(*item, std::move(canRun));
  };
  for (const char* name : {"OpenItem", "SaveItem", "SaveAsItem"}) add(name, [this] { return HasWorkspace(); });
  add("EarlierVersionsItem", [this] { return fileHistory && !filePath.empty(); });
  add("SetRootItem", [this] { return SelectedContentNode() != nullptr; });
  add("GoToRootItem", [this] { return graph->Root() && graph->Contains(*graph->Root()); });
  graph->Selected().onChanged = [this] { commandStates->Refresh(); };
}

void MainView::Tell(std::string_view text) {
  // An unattended run would wait until the line fades.
  if (Toolkit::MessageBox::HasPresenter()) statusLine->Tell(text);
}

void MainView::TellForAWhile(std::string_view text) {
  if (Toolkit::MessageBox::HasPresenter()) statusLine->Tell(text, StatusLine::Stays::AShortWhile);
}

void MainView::BuildRootMenu() {
  for (const std::string& name : workspaces.GetRootNames()) {
    auto item = Toolkit::MakePtr<Toolkit::MenuItem>();
    item->SetValue(Toolkit::MenuItem::IsCheckableProperty, true);
    item->SetHeader(Toolkit::Value(name));
    item->SetName(name);
    item->AddHandler(Toolkit::MenuItem::ClickEvent, RoutedEventHandler::From<&MainView::OnRootSelected>(this));
    workspaceMenu->AddItem(item.Get());
  }
}

} // namespace Tesselor
