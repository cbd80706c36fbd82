#pragma once

#include "editor/WorkspaceItemData.h"
#include "graph/ConnectionManager.h"
#include "nodes/DocumentView.h"
#include "nodes/NodeIdIndex.h"
#include "toolkit/application/Window.h"
#include "toolkit/base/ObservableCollection.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/MenuItem.h"
#include "toolkit/visual/InputEvents.h"
#include "workspace/Workspaces.h"

#include <memory>
#include <string>
#include <vector>

namespace Tesselor {

class NodeEditorCanvas;
class NodePanel;
class NodeSearchPanel;

/// The application's window, which is the document as well: it owns the lists of nodes, the root, the file path and
/// the connections. Its sources are parted by concept: MainView.cpp (start and events), MainViewDocument.cpp (the
/// lists), MainViewFiles.cpp (opening and saving), MainViewCommands.cpp (menu bar and keys).
class MainView : public Toolkit::Window, public DocumentView {
  TOOLKIT_TYPE(MainView)
public:
  static inline const Toolkit::DependencyProperty* LoadExternalAssetModalVisibilityProperty = nullptr;
  static inline const Toolkit::DependencyProperty* HotkeysModalVisibilityProperty = nullptr;

  MainView();
  ~MainView() override;

  // The document, as nodes, import and export see it.
  const std::vector<Toolkit::Ptr<ContentNode>>& ContentNodes() const override { return contentNodes; }
  const std::vector<Toolkit::Ptr<GroupNode>>& GroupNodes() const override { return groupNodes; }
  const std::vector<Toolkit::Ptr<CommentNode>>& CommentNodes() const override { return commentNodes; }
  void AddNode(ContentNode& node, float x, float y, bool select) override;
  GroupNode& AddGroupNode(float x, float y) override;
  CommentNode& AddCommentNode(float x, float y) override;
  void SetRootNode(ContentNode& node) override;
  ContentNode* FindNodeById(std::string_view nodeId) const override { return nodesById.Find(nodeId); }
  std::vector<PendingConnection>& PendingConnections() override { return pendingConnections; }
  void CompletePendingConnections() override;
  void AutoPosition(bool sortByPosition) override;
  std::shared_ptr<RootType> CurrentRoot() const override { return workspaces.currentRoot; }
  NodePinControl* PendingPin() const override { return pendingPin.Get(); }
  void SetPendingPin(NodePinControl* pin) override;
  void RefreshConnectionsOf(const ContentNode& node) override;
  void ClearHistory() override;

  ContentNode* RootNode() const { return rootNode.Get(); }
  const std::string& FilePath() const { return filePath; }
  ConnectionManager& Connections() { return *connectionManager; }
  NodeEditorCanvas& GetCanvas() const { return *nodeEditorCanvas; }

  /// Empties the lists and the canvas. Root, path and history stay as they are.
  void ClearDocument();

  // Documents and files.
  /// A new document with the current root's node; nothing for a root whose type depends on a value.
  void CreateDefaultRoot();
  /// Selects a root by its menu name and loads its workspace; empties the document. On failure the user is told and
  /// the former root stays.
  void ChangeRootType(const std::string& name);
  void Open();
  /// True if the file was written. Without a path it asks for one.
  bool Save();
  bool SaveAs();
  /// Reads `filePath` into the view; what fails is told to the user.
  void LoadFileAndWorkspace();

private:
  void BuildRootMenu();
  void CheckRootItem(std::string_view name);
  void FinishLoad();
  bool Export();
  /// What the save commands refuse without: a root with a workspace.
  bool HasWorkspace() const { return workspaces.currentRoot && workspaces.currentRoot->workspace; }
  void ShowTitleOfFile();
  void OfferRoots();
  void ResetViewToRoot();
  Toolkit::Canvas& Panel() const;
  Toolkit::ObservableCollectionBase* ReflectedWorkspaceList() const { return workspaceList.Get(); }

  // Events of the document, in its order.
  void Window_KeyDown(Toolkit::Object* sender, const Toolkit::KeyEventArgs& args);
  void OnCanvasLoaded(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OpenMenuItem_Click(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void SaveMenuItem_Click(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void SaveAsMenuItem_Click(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnRootSelected(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnAutoPositionNodes(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnMirrorNodesPosition(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnClickSetSelectedNodeAsRoot(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnClickGoToRoot(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnClickToggleCompactMode(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnClickFindNode(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnSearchResultSelected(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnClickShowHotkeys(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnClickCloseHotkeys(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnClickLoadWorkspace(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnClickCancelLoadWorkspace(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnConnectionClicked(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);

  void ToggleSearchPanel();
  void MirrorNodes();
  void DeselectAll();

  // The document.
  std::vector<Toolkit::Ptr<BaseNode>> selectedNodes;
  std::vector<Toolkit::Ptr<ContentNode>> contentNodes;
  std::vector<Toolkit::Ptr<GroupNode>> groupNodes;
  std::vector<Toolkit::Ptr<CommentNode>> commentNodes;
  std::vector<PendingConnection> pendingConnections;
  Toolkit::Ptr<ContentNode> rootNode;
  std::unique_ptr<ConnectionManager> connectionManager;
  std::string filePath;
  NodeIdIndex nodesById;

  // The window.
  Toolkit::Ptr<Toolkit::ObservableCollection<WorkspaceItemData>> workspaceList;
  Workspaces workspaces;
  // Parts of the document, which the window owns as its content.
  Toolkit::Border* containerBorder = nullptr;
  NodeEditorCanvas* nodeEditorCanvas = nullptr;
  NodePanel* nodePanel = nullptr;
  NodeSearchPanel* nodeSearchPanel = nullptr;
  Toolkit::MenuItem* workspaceMenu = nullptr;
  Toolkit::Ptr<NodePinControl> pendingPin;
  /// The next toggle of the compact mode collapses the fields.
  bool compactModeFlag = true;
};

} // namespace Tesselor
