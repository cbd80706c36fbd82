#include "editor/MainView.h"

#include "editor/NodeEditorCanvas.h"
#include "editor/NodePanel.h"
#include "editor/NodeSearchPanel.h"
#include "nodes/CommentNode.h"
#include "nodes/ContentNode.h"
#include "nodes/GroupNode.h"
#include "nodes/NodePinControl.h"
#include "platform/LogFile.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/markup/GUI.h"
#include "values/ActionHistory.h"
#include "workspace/RootType.h"

#include <cstring>

namespace Tesselor {

using Toolkit::RoutedEventHandler;
using Toolkit::Visibility;

TOOLKIT_TYPE_IMPL(MainView, Toolkit::Window, "Tesselor.MainView")
void MainView::Describe(Toolkit::TypeBuilder<MainView>& type) {
  LoadExternalAssetModalVisibilityProperty =
      type.Property<Visibility>("LoadExternalAssetModalVisibility", Visibility::Collapsed);
  HotkeysModalVisibilityProperty = type.Property<Visibility>("HotkeysModalVisibility", Visibility::Collapsed);
  type.Member<&MainView::ReflectedWorkspaceList>("WorkspaceList");
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
  nodePanel = FindName<NodePanel>("NodePanel");
  nodeSearchPanel = FindName<NodeSearchPanel>("NodeSearchPanel");
  TOOLKIT_ASSERT(nodePanel && nodeSearchPanel);

  if (!workspaces.ImportWorkspaces(FindWorkspacesDirectory())) {
    LogFile::Write("Failed to load any workspaces - editor may have limited functionality");
    return;
  }
  BuildRootMenu();
  const std::vector<std::string> names = workspaces.GetRootNames();
  if (!names.empty()) {
    ChangeRootType(names.front());
    CreateDefaultRoot();
  }
}

MainView::~MainView() {
  // Steps refer to nodes and connections, which go with the view.
  ActionHistory::Instance().Clear();
  ClearDocument();
}

bool MainView::ConnectEvent(Toolkit::Object* source, const char* eventName, const char* handlerName) {
  struct Row {
    const char* event;
    const char* handler;
    const Toolkit::RoutedEvent& routed;
    RoutedEventHandler (*make)(MainView*);
  };
#define TESSELOR_ROW(event, handler, routed)                                                                           \
  {                                                                                                                    \
    event, #handler, routed, [](MainView* view) { return RoutedEventHandler::From<&MainView::handler>(view); }         \
  }
  static const Row rows[] = {
      TESSELOR_ROW("KeyDown", Window_KeyDown, UIElement::KeyDownEvent),
      TESSELOR_ROW("Loaded", OnCanvasLoaded, FrameworkElement::LoadedEvent),
      TESSELOR_ROW("Click", OpenMenuItem_Click, Toolkit::MenuItem::ClickEvent),
      TESSELOR_ROW("Click", SaveMenuItem_Click, Toolkit::MenuItem::ClickEvent),
      TESSELOR_ROW("Click", SaveAsMenuItem_Click, Toolkit::MenuItem::ClickEvent),
      TESSELOR_ROW("Click", OnAutoPositionNodes, Toolkit::MenuItem::ClickEvent),
      TESSELOR_ROW("Click", OnMirrorNodesPosition, Toolkit::MenuItem::ClickEvent),
      TESSELOR_ROW("Click", OnClickSetSelectedNodeAsRoot, Toolkit::MenuItem::ClickEvent),
      TESSELOR_ROW("Click", OnClickGoToRoot, Toolkit::MenuItem::ClickEvent),
      TESSELOR_ROW("Click", OnClickToggleCompactMode, Toolkit::MenuItem::ClickEvent),
      TESSELOR_ROW("Click", OnClickFindNode, Toolkit::MenuItem::ClickEvent),
      TESSELOR_ROW("Click", OnClickShowHotkeys, Toolkit::MenuItem::ClickEvent),
      TESSELOR_ROW("Click", OnClickCloseHotkeys, Toolkit::ButtonBase::ClickEvent),
      TESSELOR_ROW("Click", OnClickLoadWorkspace, Toolkit::ButtonBase::ClickEvent),
      TESSELOR_ROW("Click", OnClickCancelLoadWorkspace, Toolkit::ButtonBase::ClickEvent),
      TESSELOR_ROW("ConnectionClicked", OnConnectionClicked, Connection::ConnectionClickedEvent),
      TESSELOR_ROW("NodePinMenu", OnNodePinMenu, NodePinControl::NodePinMenuEvent),
      TESSELOR_ROW("SearchResultSelected", OnSearchResultSelected, NodeSearchPanel::SearchResultSelectedEvent),
  };
#undef TESSELOR_ROW
  for (const Row& row : rows) {
    if (std::strcmp(eventName, row.event) != 0 || std::strcmp(handlerName, row.handler) != 0) continue;
    static_cast<UIElement*>(source)->AddHandler(row.routed, row.make(this));
    return true;
  }
  return false;
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
