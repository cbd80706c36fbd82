#include "editor/MainView.h"

#include "commands/BatchMoveActionCommand.h"
#include "document/AssetFile.h"
#include "document/DocumentExport.h"
#include "document/FileHistory.h"
#include "document/ImportTarget.h"
#include "document/NodeImporterExporter.h"
#include "editor/FileGuard.h"
#include "editor/LossNotice.h"
#include "editor/NodeEditorCanvas.h"
#include "editor/NodePanel.h"
#include "editor/NodeSearchPanel.h"
#include "editor/NodesMenu.h"
#include "editor/NoticeBar.h"
#include "editor/UnattendedSave.h"
#include "nodes/CommentNode.h"
#include "nodes/ContentNode.h"
#include "nodes/GroupNode.h"
#include "platform/CommandLineOptions.h"
#include "platform/FileDialogs.h"
#include "platform/FileState.h"
#include "platform/LogFile.h"
#include "platform/MessageBoxes.h"
#include "toolkit/application/Application.h"
#include "toolkit/application/MessageBox.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/ComboBox.h"
#include "toolkit/controls/TextBlock.h"
#include "values/ActionHistory.h"
#include "workspace/AssetFileIndex.h"
#include "workspace/NodeDictionary.h"
#include "workspace/RootType.h"
#include "workspace/Workspace.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace Tesselor {

using Toolkit::Ptr;
using Toolkit::Visibility;

bool MainView::ChangeRootType(const std::string& name) {
  CheckRootItem("");
  bool known = false;
  for (size_t i = 0; i < workspaceMenu->ItemCount(); ++i)
    known = known || static_cast<Toolkit::MenuItem*>(workspaceMenu->ItemAt(i))->GetName() == name;
  if (!known) {
    ShowError("Root type not found: " + name, "Error");
    return false;
  }
  ShowRootName(name);
  std::shared_ptr<RootType> root = workspaces.FindRoot(name);
  if (!root) {
    ShowError("Failed to get root type: " + name, "Error");
    return false;
  }
  if (!root->workspace) {
    ShowError("No workspace associated with root type: " + name, "Error");
    return false;
  }
  if (!KeepUnsaved()) {
    ShowRootName(workspaces.currentRoot ? workspaces.currentRoot->MenuName : std::string());
    return false;
  }
  const bool isLoaded = root->workspace->LoadNodeDictionary();
  nodePanel->Close();
  ClearDocument();
  if (!isLoaded) {
    filePath.clear();
    return false;
  }
  workspaces.currentRoot = root;
  nodeEditorCanvas->GetNodesMenu()->SetWorkspace(root->workspace);
  return true;
}

void MainView::ShowRootName(const std::string& name) {
  CheckRootItem(name);
  workspaceMenu->SetHeader(Toolkit::Value("Root Node: " + name));
}

void MainView::CheckRootItem(std::string_view name) {
  for (size_t i = 0; i < workspaceMenu->ItemCount(); ++i) {
    auto* item = static_cast<Toolkit::MenuItem*>(workspaceMenu->ItemAt(i));
    item->SetIsChecked(!name.empty() && item->GetName() == name);
  }
}

void MainView::CreateDefaultRoot() {
  if (!HasWorkspace() || !workspaces.currentRoot->workspace->nodeDictionary) return;
  const NodeDictionary& dictionary = *workspaces.currentRoot->workspace->nodeDictionary;
  const std::string& id = workspaces.currentRoot->RootNodeType;
  // The type of such a root depends on a value, which a new document has not got.
  if (dictionary.FindVariant(id)) return;
  Ptr<ContentNode> node = dictionary.CreateNode(id, true);
  if (!node) return;
  graph->AddNode(*node, 250, 250, false);
  graph->SetRootNode(node.Get());
  ActionHistory::Instance().Clear();
  NoteSaved();
  nodesOfFile = 0;
  commandStates->Refresh();
}

void MainView::Open() {
  nodeEditorCanvas->GetNodesMenu()->Hide();
  if (!HasWorkspace()) {
    ShowWarning("No workspace selected. Please select a workspace first.", "Cannot Open File");
    return;
  }
  const std::optional<std::string> chosen = FileDialogs::Open(workspaces.currentRoot->workspace->FileFormat);
  if (!chosen || !LeaveDocument()) return;
  if (FindAssetRoot(*chosen) != FindAssetRoot(filePath)) {
    AssetFileIndex& index = AssetFileIndex::Instance();
    while (index.isBuilding) {
    }
    index.BuildAsync(*chosen);
  }
  filePath = *chosen;
  LoadFileAndWorkspace();
  ShowTitleOfFile();
}

void MainView::ShowTitleOfFile() {
  std::string name = filePath.substr(filePath.find_last_of("/\\") + 1);
  SetTitle(name.substr(0, name.find('.')));
  ShowDocumentName();
  commandStates->Refresh();
}

bool MainView::SaveAs() { return SaveAsThen({}); }

bool MainView::SaveAsThen(const std::function<void()>& done) {
  nodeEditorCanvas->GetNodesMenu()->Hide();
  if (!HasWorkspace()) {
    ShowError("No workspace selected. Cannot save file.", "Cannot Save");
    return false;
  }
  const std::string& format = workspaces.currentRoot->workspace->FileFormat;
  const std::optional<std::string> chosen = FileDialogs::Save(format);
  if (!chosen) return false;
  // A dot in a directory's name is no extension of the file.
  const size_t dot = chosen->find_last_of('.');
  const size_t slash = chosen->find_last_of("/\\");
  const bool hasExtension = dot != std::string::npos && (slash == std::string::npos || dot > slash);
  const std::string path = chosen->substr(0, hasExtension ? dot : std::string::npos) + "." + format;
  std::error_code error;
  if (path == *chosen || path == filePath || !std::filesystem::exists(path, error)) return SaveUnder(path, done);
  // The dialog has asked about the name that was chosen, and about no other.
  AskBeforeSave("\"" + path.substr(path.find_last_of("/\\") + 1) + "\" is there already. Do you want to replace it?",
                {"Replace", "Cancel"}, 1, [this, path, done](std::optional<size_t> choice) {
                  if (choice == 0u) SaveUnder(path, done);
                });
  return false;
}

bool MainView::SaveUnder(const std::string& path, const std::function<void()>& done) {
  filePath = path;
  ShowTitleOfFile();
  return SaveThen(done);
}

bool MainView::Export() {
  // A root that was deleted is no root any more.
  ContentNode* root = graph->Root() && graph->Contains(*graph->Root()) ? graph->Root() : nullptr;
  const RootType& type = *workspaces.currentRoot;
  // A save that can't keep what it replaces is still the save that the user wants.
  const bool isKept = !fileHistory || fileHistory->Keep(filePath);
  if (!isKept) LogFile::Write("The former version could not be kept: " + filePath);
  bool isWritten = false;
  WithFinishedTyping([&] {
    isWritten = NodeImporterExporter::ExportNodeTree(filePath, root, graph->ContentNodes(), graph->GroupNodes(),
                                                     graph->CommentNodes(), type.MenuName,
                                                     type.workspace && type.workspace->ExportDefaults);
  });
  if (isWritten) {
    if (fileGuard) fileGuard->Take(filePath);
    NoteSaved();
    lossNotice->End();
    if (!isKept)
      noticeBar->Show({"not kept", "What \"" + DocumentName() + "\" held before this save could not be kept.", {}});
  }
  const std::string file = filePath.substr(filePath.find_last_of("/\\") + 1);
  if (isWritten)
    Tell("Saved " + file);
  else if (!root)
    Tell("Not saved: there is no root. Select a node and choose Set Selected Node As Root");
  else
    Tell("Not saved: " + file);
  return isWritten;
}

void MainView::LoadFileAndWorkspace() {
  waitingFile = {};
  auto refuse = [this](std::string text, std::string caption) {
    ShowError(std::move(text), std::move(caption));
    filePath.clear();
  };
  if (filePath.empty()) {
    ShowError("No file path specified.", "Error");
    return;
  }
  OfferCutOffSaves();
  // Before it is read: what changes meanwhile is not in the document.
  readState = FileStateOf(filePath);
  AssetFile file = AssetFile::Read(filePath);
  if (!file) {
    refuse(std::move(file.error), std::move(file.caption));
    return;
  }
  std::string id = NodeImporterExporter::GetWorkspaceID(file.json.get());
  if (const std::string& override = CommandLineOptions::Instance().workspaceOverride; !override.empty()) {
    id = override;
    LogFile::Write("Using CLI workspace override: " + id);
  }
  if (!LeaveDocument()) return;
  if (workspaces.FindRoot(id)) {
    if (!ChangeRootType(id)) {
      refuse("Failed to load workspace for: " + id, "Error Loading File");
      return;
    }
    FinishLoad(std::move(file));
    return;
  }
  if (id.empty())
    LogFile::Write("No workspace ID found in file, showing workspace selection modal");
  else
    LogFile::Write("Unknown workspace ID '" + id + "' in file, showing workspace selection modal");
  waitingFile = std::move(file);
  OfferRoots(id);
}

void MainView::OfferRoots(const std::string& unknownId) {
  const std::string file = filePath.substr(filePath.find_last_of("/\\") + 1);
  if (auto* text = FindName<Toolkit::TextBlock>("UnknownWorkspaceText"))
    text->SetText(unknownId.empty() ? file + " names no workspace."
                                    : file + " names the unknown workspace \"" + unknownId + "\".");
  SetValue(LoadExternalAssetModalVisibilityProperty, Visibility::Visible);
  for (const std::string& name : workspaces.GetRootNames())
    workspaceList->Add(Toolkit::MakePtr<WorkspaceItemData>(name));
}

void MainView::OnClickLoadWorkspace(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  auto* comboBox = FindName<Toolkit::ComboBox>("WorkspaceComboBox");
  if (!comboBox) {
    ShowError("Internal error: Workspace selection control not found.", "Error");
    return;
  }
  const auto* item = Toolkit::DynamicCast<WorkspaceItemData>(comboBox->GetSelectedItem());
  if (!item) {
    ShowWarning("Please select a workspace from the dropdown.", "No Workspace Selected");
    return;
  }
  if (filePath.empty()) {
    ShowWarning("No file path specified. Please open a file first.", "No File Path");
    return;
  }
  const std::string path = filePath;
  if (!ChangeRootType(std::string(item->GetValue()))) {
    filePath = path;
    ShowError("Failed to load workspace. Please try selecting a different workspace.", "Error Loading Workspace");
    return;
  }
  SetValue(LoadExternalAssetModalVisibilityProperty, Visibility::Collapsed);
  workspaceList->Clear();
  // Nothing waits if another file, which needed no choice, was opened meanwhile: then that is loaded again.
  FinishLoad(waitingFile ? std::move(waitingFile) : AssetFile::Read(filePath));
}

void MainView::OnClickCancelLoadWorkspace(Toolkit::Object*, const Toolkit::RoutedEventArgs&) { CancelLoadWorkspace(); }

void MainView::CancelLoadWorkspace() {
  SetValue(LoadExternalAssetModalVisibilityProperty, Visibility::Collapsed);
  filePath.clear();
  waitingFile = {};
  workspaceList->Clear();
  ShowDocumentName();
}

ImportTarget MainView::MakeImportTarget() {
  return {*graph, workspaces.currentRoot, [this](std::vector<MoveRecord> moves) {
            ActionHistory::Instance().Push(std::make_unique<BatchMoveActionCommand>(*graph, std::move(moves)));
          }};
}

void MainView::FinishLoad(AssetFile file) {
  ImportTarget target = MakeImportTarget();
  if (!NodeImporterExporter::ImportNodeTree(file.json.get(), workspaces.currentRoot->workspace, &target)) {
    filePath.clear();
    ClearDocument();
    return;
  }
  if (fileGuard) fileGuard->Take(filePath, readState);
  NoteSaved();
  nodesOfFile = MeasureNodes();
  loadedRootType = graph->Root() ? graph->Root()->TypeId() : std::string();
  Tell("Opened " + filePath.substr(filePath.find_last_of("/\\") + 1));
  commandStates->Refresh();
  UpdateLayout();
  ResetViewToRoot();
  nodeSearchPanel->Reset();
  if (CommandLineOptions::Instance().saveTo.empty()) {
    if (Toolkit::MessageBox::HasPresenter()) lossNotice->Begin(std::move(file), workspaces.currentRoot);
    return;
  }
  SaveUnattended(FindDocumentLosses(*file.json, file.longNumbers, *graph, *workspaces.currentRoot));
}

void MainView::SaveUnattended(const std::vector<DocumentLoss>& losses) {
  const CommandLineOptions& options = CommandLineOptions::Instance();
  isUnattended = true;
  const UnattendedSave::ExitCode exitCode = UnattendedSave(options).Run(losses, [&] {
    filePath = options.saveTo;
    return Save();
  });
  isUnattended = false;
  if (!options.exitAfterSave) return;
  // The window closes either way; whoever started the run learns from the exit code how it went.
  if (auto* application = Toolkit::Application::Current()) application->SetExitCode(exitCode);
  Close();
}

void MainView::ResetViewToRoot() {
  if (graph->Root()) nodeEditorCanvas->ResetViewTo(graph->Root()->Middle());
}

} // namespace Tesselor
