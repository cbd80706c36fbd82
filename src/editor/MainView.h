#pragma once

#include "document/AssetFile.h"
#include "editor/CommandStates.h"
#include "editor/KeyMenu.h"
#include "editor/NewNodes.h"
#include "editor/Overlay.h"
#include "editor/PendingPin.h"
#include "editor/SelectionCommands.h"
#include "editor/ViewGlide.h"
#include "editor/WorkspaceItemData.h"
#include "editor/gestures/CanvasGestures.h"
#include "graph/Graph.h"
#include "toolkit/application/Window.h"
#include "toolkit/base/ObservableCollection.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/MenuItem.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/visual/InputEvents.h"
#include "workspace/Workspaces.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Tesselor {

class ActionHistory;
class EditInProgress;
class EndSignals;
class FileGuard;
class FileHistory;
class LossNotice;
class LossPanel;
class NodeEditorCanvas;
class NodePanel;
class NodeSearchPanel;
class NoticeBar;
class VersionLine;
class VersionsPanel;
class NodeDictionary;
class StatusLine;
struct CreateNodeEventArgs;
struct CutLineUpEventArgs;
struct DocumentLoss;
struct ImportTarget;
struct RescuedDocument;
class WorkKeeper;
struct SelectionUpEventArgs;
struct ShowNodesMenuEventArgs;
enum class WalkTo;

/// The application's window. It owns the document's graph and the path of its file, and forwards what the user does to
/// whoever does it. Its sources are parted by concept: MainView.cpp (start and events), MainViewDocument.cpp (the
/// graph and what gestures do to it), MainViewFiles.cpp (opening and saving), MainViewCommands.cpp (menu bar),
/// MainViewKeys.cpp (the table of keys), MainViewCanvasKeys.cpp (what they do on the canvas), MainViewUnsaved.cpp (what
/// is not saved, and the questions before a save).
class MainView : public Toolkit::Window {
  TOOLKIT_TYPE(MainView)
public:
  static inline const Toolkit::DependencyProperty* LoadExternalAssetModalVisibilityProperty = nullptr;
  static inline const Toolkit::DependencyProperty* HotkeysModalVisibilityProperty = nullptr;
  static inline const Toolkit::DependencyProperty* VersionsModalVisibilityProperty = nullptr;

  MainView();
  ~MainView() override;

  Graph& GetGraph() { return *graph; }
  const Graph& GetGraph() const { return *graph; }
  NodeEditorCanvas& GetCanvas() const { return *nodeEditorCanvas; }
  /// Where the user is told what nothing waits for.
  NoticeBar& Notices() const { return *noticeBar; }
  const Graph::List<ContentNode>& ContentNodes() const { return graph->ContentNodes(); }
  const Graph::List<GroupNode>& GroupNodes() const { return graph->GroupNodes(); }
  const Graph::List<CommentNode>& CommentNodes() const { return graph->CommentNodes(); }
  ContentNode* RootNode() const { return graph->Root(); }
  /// For an import of the document as one of the current root's kind. The graph is empty.
  ImportTarget MakeImportTarget();
  const std::string& FilePath() const { return filePath; }
  const std::shared_ptr<RootType>& CurrentRoot() const { return workspaces.currentRoot; }

  /// Lays the tree out from the first content node on, as one undo step.
  void AutoPosition();
  /// Empties the graph. Root, path and history stay as they are.
  void ClearDocument();

  // Documents and files.
  /// A new document with the current root's node; nothing for a root whose type depends on a value.
  void CreateDefaultRoot();
  /// Selects a root by its menu name and loads its workspace; empties the document. On failure the user is told and
  /// the former root stays, but no document: what it would become is not known.
  bool ChangeRootType(const std::string& name);
  void Open();
  /// True if the file was written. Without a path it asks for one.
  bool Save();
  bool SaveAs();
  /// Reads `filePath` into the view; what fails is told to the user.
  void LoadFileAndWorkspace();
  /// False while the document holds what its file does not, an edit that is still under way included.
  bool IsSaved() const;
  /// Closes at once if everything is saved; else the user is asked what becomes of the changes.
  void RequestClose() override;
  /// From now on unsaved work and what saves replace is kept below a directory, what other runs have kept there is
  /// offered, and what other programs do to the file is told.
  void KeepWork(const std::filesystem::path& directory);
  /// Null unless work is kept.
  WorkKeeper* Keeper() const { return keeper.get(); }

protected:
  void OnPresented() override;

private:
  void BuildRootMenu();
  void CheckRootItem(std::string_view name);
  /// In the menu bar.
  void ShowRootName(const std::string& name);
  void FinishLoad(AssetFile file);
  void SaveUnattended(const std::vector<DocumentLoss>& losses);
  bool Export();
  /// How many nodes a save writes; one with several parents counts below each.
  double MeasureNodes() const;
  /// In the order in which they are asked.
  enum class SaveQuestion { RootType, Size, ChangedFile, None };
  static SaveQuestion Next(SaveQuestion question);
  /// Asks what has to be answered before a save, from the one question on, then saves, then runs `done`. True if the
  /// file was written by the time the call returns.
  bool SaveThen(const std::function<void()>& done, SaveQuestion question = SaveQuestion::RootType);
  /// The same under a name that the user chooses.
  bool SaveAsThen(const std::function<void()>& done);
  bool SaveUnder(const std::string& path, const std::function<void()>& done);
  /// Asks one question of a save, which waits for the answer, and all other saves with it.
  void AskBeforeSave(std::string text, std::vector<std::string> choices, size_t defaultChoice,
                     std::function<void(std::optional<size_t>)> chosen);
  /// Asks unless there is nothing to ask; what is answered goes on with the question behind this one.
  bool IsAsked(SaveQuestion question, const std::function<void()>& done);
  /// About a save that makes much more of the document than its file held.
  bool AskAboutSize(const std::function<void()>& goOn);
  /// Reads the file again; what can't be read changes nothing.
  void Reload();
  /// What the next load would make of the root; empty if it reads it as it is.
  std::string DescribeRootMismatch() const;
  /// What the save commands refuse without: a root with a workspace.
  bool HasWorkspace() const { return workspaces.currentRoot && workspaces.currentRoot->workspace; }
  void ShowTitleOfFile();
  /// The document is what its file holds, or nothing that could be lost.
  void NoteSaved();
  /// Of the file, without directories.
  std::string DocumentName() const;
  /// At the menu bar's right end, with a dot while there are changes.
  void ShowDocumentName();
  void OnDocumentChanged();
  /// What is unsaved is set aside before the document goes.
  bool KeepUnsaved();
  /// A new document keeps the path of the one before.
  void TellOfFileBehindNewDocument();
  /// Closes the document, and keeps what is unsaved of it. False if it stays open, which the user was told.
  bool LeaveDocument();
  RescuedDocument DescribeForRescue() const;
  /// The text that a save would write, also of a document that lacks a root; empty if it could not be read again.
  std::string PrintDocument();
  /// Shows what is no file's content as the unsaved document of that file; false, with a box, if it can't be read.
  bool ShowAsUnsaved(const RescuedDocument& document, const std::string& text);
  void OfferRoots(const std::string& unknownId);
  void ResetViewToRoot();
  Toolkit::ObservableCollectionBase* ReflectedWorkspaceList() const { return workspaceList.Get(); }

  // Events of the document, in its order.
  void Window_PreviewKeyDown(Toolkit::Object* sender, const Toolkit::KeyEventArgs& args);
  void Window_KeyDown(Toolkit::Object* sender, const Toolkit::KeyEventArgs& args);
  void OnCanvasLoaded(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OpenMenuItem_Click(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void SaveMenuItem_Click(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void SaveAsMenuItem_Click(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void CloseMenuItem_Click(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnRootSelected(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnAutoPositionNodes(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnMirrorNodesPosition(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnClickSetSelectedNodeAsRoot(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnClickGoToRoot(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnClickToggleCompactMode(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnClickFindNode(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnSearchResultSelected(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnLossChosen(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void ShowNode(BaseNode& node);
  void OnClickEarlierVersions(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OpenVersion(const VersionLine& line);
  /// Shows what a file held as its unsaved document.
  bool ShowFormerText(const std::string& path, const std::filesystem::path& kept);
  /// Tells of copies of the file that is to be loaded which a save that was cut off has left.
  void OfferCutOffSaves();
  void OnClickShowHotkeys(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnClickCloseHotkeys(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  static void OnOverlayChanged(Toolkit::DependencyObject& object, const Toolkit::PropertyChange& change);
  void ShowOrHideOverlays();
  void CancelLoadWorkspace();
  void OnClickLoadWorkspace(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnClickCancelLoadWorkspace(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnConnectionClicked(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);

  // The keys.
  struct KeyBinding;
  void RunKeyBindings(const Toolkit::KeyEventArgs& args);
  void SaveByKey();
  void SaveAsByKey();
  void ToggleHotkeys();
  /// Takes back what is under way.
  void GiveUp();
  /// The same, and gives the keys back from a field to the canvas.
  void GiveUpByKey();
  void Undo();
  void Redo();
  void StepInHistory(bool (ActionHistory::*step)(), const char* otherwise);
  /// What is being typed comes to its end as a step of its own, for as long as `run` takes.
  void WithFinishedTyping(const std::function<void()>& run);

  // What changes the selected nodes.
  void SelectAll();
  void DeleteSelection();
  /// Of the one selected node.
  void EditTitle();
  void NudgeLeft() { Nudge({-1, 0}); }
  void NudgeRight() { Nudge({1, 0}); }
  void NudgeUp() { Nudge({0, -1}); }
  void NudgeDown() { Nudge({0, 1}); }
  void Nudge(Toolkit::Point direction);
  void MirrorNodes();

  // What keys do on the canvas.
  /// True if the keys are the graph's.
  bool IsCanvasFocused() const;
  void Walk(WalkTo way);
  void WalkToRoot();
  void WalkToParent();
  void WalkToChild();
  void WalkToPrevious();
  void WalkToNext();
  void EditFirstField();
  /// Hands the keys from a node's field, or the inspector's, to the canvas, with its node selected. False if they are
  /// in none.
  bool LeaveField();
  void ToggleInspector();
  /// For a child of the selected node, if there is one.
  void OpenNodesMenuByKey();
  void OpenPinList();
  void OpenNodeMenu();
  void GroupSelection();
  void AddComment();
  void ResizeFrame(Toolkit::Point direction);
  void NarrowFrame() { ResizeFrame({-1, 0}); }
  void WidenFrame() { ResizeFrame({1, 0}); }
  void LowerFrame() { ResizeFrame({0, -1}); }
  void HeightenFrame() { ResizeFrame({0, 1}); }
  void SetSelectedAsRoot();
  void AskToLayOut();
  void AskToMirror();
  void ToggleCompactMode();
  void ZoomBy(int steps);
  void ZoomIn() { ZoomBy(1); }
  void ZoomOut() { ZoomBy(-1); }
  void ZoomToActualSize();
  void ZoomToFit();
  void TellZoom();
  void GoToRoot();
  void ShowNewNode();
  void SelectAlone(BaseNode& node);
  void ForgetPendingPinOfGoneNode();

  // The clipboard.
  void Copy();
  void Cut();
  void Paste();
  void Duplicate();

  void ToggleSearchPanel();
  // The canvas.
  void OnSelectionUp(Toolkit::Object* sender, const SelectionUpEventArgs& args);
  void OnCutLineUp(Toolkit::Object* sender, const CutLineUpEventArgs& args);
  void OnNodePinMenu(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnShowNodesMenu(Toolkit::Object* sender, const ShowNodesMenuEventArgs& args);
  void OnNodesMenuClosed(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnCreateNode(Toolkit::Object* sender, const CreateNodeEventArgs& args);
  void OnCreateGroup(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnCreateLink(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnCreateComment(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void ContainerBorder_MouseUp(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);
  /// Joins two pins as an undo step, if they may be joined.
  void TryCreateConnection(NodePinData& target, NodePinData& source);
  CanvasGestures::Callbacks GestureCallbacks();
  const NodeDictionary* Dictionary() const;
  /// What is under way on the canvas ends before something else changes the document, and what was found in it is
  /// closed.
  void BeginEdit();
  /// The inspector shows no node that has left.
  void CloseInspectorOfGoneNode();
  /// Says in the status line what a command did, or why it did nothing. Steps of the history tell of themselves.
  void Tell(std::string_view text);
  void TellForAWhile(std::string_view text);
  void AddCommandStates();
  /// Null unless it is the one selected node.
  ContentNode* SelectedContentNode() const;
  BaseNode* SelectedNode() const;

  // The document.
  std::unique_ptr<Graph> graph;
  std::unique_ptr<CanvasGestures> gestures;
  std::unique_ptr<NewNodes> newNodes;
  std::unique_ptr<Nudges> nudges;
  std::unique_ptr<FrameResizes> frameResizes;
  std::unique_ptr<ViewGlide> glide;
  std::string filePath;
  /// Of the history, when the document was last loaded or saved.
  uint64_t savedState = 0;
  /// Of the root as it was loaded.
  std::string loadedRootType;
  /// How many nodes the file held when it was loaded, or when the user agreed to a larger one.
  double nodesOfFile = 0;
  /// Nobody is there to answer.
  bool isUnattended = false;
  std::unique_ptr<EditInProgress> editInProgress;
  bool isAskedToClose = false, isAskedBeforeSave = false;
  std::unique_ptr<WorkKeeper> keeper;
  std::unique_ptr<EndSignals> endSignals;
  std::unique_ptr<FileGuard> fileGuard;
  std::unique_ptr<FileHistory> fileHistory;
  /// Of the file when it was last read.
  std::string readState;
  /// The file at `filePath` while the user chooses a workspace for it; else without JSON.
  AssetFile waitingFile;

  // The window.
  Toolkit::Ptr<Toolkit::ObservableCollection<WorkspaceItemData>> workspaceList;
  Workspaces workspaces;
  // Parts of the document, which the window owns as its content.
  Toolkit::Border* containerBorder = nullptr;
  NodeEditorCanvas* nodeEditorCanvas = nullptr;
  NodePanel* nodePanel = nullptr;
  NodeSearchPanel* nodeSearchPanel = nullptr;
  NoticeBar* noticeBar = nullptr;
  StatusLine* statusLine = nullptr;
  VersionsPanel* versionsPanel = nullptr;
  Toolkit::TextBlock* documentName = nullptr;
  Toolkit::MenuItem* workspaceMenu = nullptr;
  LossPanel* lossPanel = nullptr;
  std::unique_ptr<LossNotice> lossNotice;
  std::unique_ptr<CommandStates> commandStates;
  std::unique_ptr<Overlay> workspaceOverlay, hotkeysOverlay, versionsOverlay;
  PendingPin pendingPin;
  KeyMenu keyMenu;
  /// The next toggle of the compact mode collapses the fields.
  bool compactModeFlag = true;
};

} // namespace Tesselor
