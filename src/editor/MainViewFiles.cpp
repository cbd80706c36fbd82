#include "editor/MainView.h"

#include "commands/BatchMoveActionCommand.h"
#include "document/AssetFile.h"
#include "document/FileHistory.h"
#include "document/ImportTarget.h"
#include "document/NodeImporterExporter.h"
#include "editor/FileGuard.h"
#include "editor/NodeEditorCanvas.h"
#include "editor/NodePanel.h"
#include "editor/NodeSearchPanel.h"
#include "editor/NodesMenu.h"
#include "nodes/CommentNode.h"
#include "nodes/ContentNode.h"
#include "nodes/GroupNode.h"
#include "platform/CommandLineOptions.h"
#include "platform/FileDialogs.h"
#include "platform/FileState.h"
#include "platform/LogFile.h"
#include "platform/MessageBoxes.h"
#include "toolkit/application/Application.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/ComboBox.h"
#include "toolkit/controls/TextBlock.h"
#include "values/ActionHistory.h"
#include "workspace/AssetFileIndex.h"
#include "workspace/NodeDictionary.h"
#include "workspace/RootType.h"
#include "workspace/Workspace.h"

#include <algorithm>
#include <utility>

namespace Tesselor {

using Toolkit::Ptr;
using Toolkit::Visibility;

void MainView::ChangeRootType(const std::string& name) {
  CheckRootItem("");
  bool known = false;
  for (size_t i = 0; i < workspaceMenu->ItemCount(); ++i)
    known = known || static_cast<Toolkit::MenuItem*>(workspaceMenu->ItemAt(i))->GetName() == name;
  if (!known) {
    ShowError("Root type not found: " + name, "Error");
    return;
  }
  CheckRootItem(name);
  workspaceMenu->SetHeader(Toolkit::Value("Root Node: " + name));
  std::shared_ptr<RootType> root = workspaces.FindRoot(name);
  if (!root) {
    ShowError("Failed to get root type: " + name, "Error");
    return;
  }
  if (!root->workspace) {
    ShowError("No workspace associated with root type: " + name, "Error");
    return;
  }
  if (!root->workspace->LoadNodeDictionary()) return;
  KeepUnsaved();
  workspaces.currentRoot = root;
  nodeEditorCanvas->GetNodesMenu()->SetWorkspace(root->workspace);
  nodePanel->Close();
  ClearDocument();
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
  commandStates->Refresh();
}

void MainView::Open() {
  nodeEditorCanvas->GetNodesMenu()->Hide();
  if (!HasWorkspace()) {
    ShowWarning("No workspace selected. Please select a workspace first.", "Cannot Open File");
    return;
  }
  const std::optional<std::string> chosen = FileDialogs::Open(workspaces.currentRoot->workspace->FileFormat);
  if (!chosen) return;
  KeepUnsaved();
  ClearDocument();
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

bool MainView::Save() { return SaveThen({}); }

bool MainView::SaveAs() {
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
  filePath = chosen->substr(0, hasExtension ? dot : std::string::npos) + "." + format;
  ShowTitleOfFile();
  return Export();
}

bool MainView::Export() {
  // A root that was deleted is no root any more.
  ContentNode* root = graph->Root() && graph->Contains(*graph->Root()) ? graph->Root() : nullptr;
  const RootType& type = *workspaces.currentRoot;
  // A save that can't keep what it replaces is still the save that the user wants.
  if (fileHistory && !fileHistory->Keep(filePath)) LogFile::Write("The former version could not be kept: " + filePath);
  bool isWritten = false;
  WithFinishedTyping([&] {
    isWritten = NodeImporterExporter::ExportNodeTree(filePath, root, graph->ContentNodes(), graph->GroupNodes(),
                                                     graph->CommentNodes(), type.MenuName,
                                                     type.workspace && type.workspace->ExportDefaults);
  });
  if (isWritten && fileGuard) fileGuard->Take(filePath);
  if (isWritten) NoteSaved();
  return isWritten;
}

void MainView::LoadFileAndWorkspace() {
  waitingDocument.reset();
  auto refuse = [this](std::string text, std::string caption) {
    ShowError(std::move(text), std::move(caption));
    filePath.clear();
  };
  if (filePath.empty()) {
    ShowError("No file path specified.", "Error");
    return;
  }
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
  if (workspaces.FindRoot(id)) {
    ChangeRootType(id);
    if (!HasWorkspace()) {
      refuse("Failed to load workspace for: " + id, "Error Loading File");
      return;
    }
    FinishLoad(std::move(file.json));
    return;
  }
  if (id.empty())
    LogFile::Write("No workspace ID found in file, showing workspace selection modal");
  else
    LogFile::Write("Unknown workspace ID '" + id + "' in file, showing workspace selection modal");
  KeepUnsaved();
  ClearDocument();
  waitingDocument = std::move(file.json);
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
  ClearDocument();
  ChangeRootType(std::string(item->GetValue()));
  if (!HasWorkspace()) {
    ShowError("Failed to load workspace. Please try selecting a different workspace.", "Error Loading Workspace");
    return;
  }
  SetValue(LoadExternalAssetModalVisibilityProperty, Visibility::Collapsed);
  workspaceList->Clear();
  // Nothing waits if another file, which needed no choice, was opened meanwhile: then that is loaded again.
  FinishLoad(waitingDocument ? std::move(waitingDocument) : AssetFile::Read(filePath).json);
}

void MainView::OnClickCancelLoadWorkspace(Toolkit::Object*, const Toolkit::RoutedEventArgs&) { CancelLoadWorkspace(); }

void MainView::CancelLoadWorkspace() {
  SetValue(LoadExternalAssetModalVisibilityProperty, Visibility::Collapsed);
  filePath.clear();
  waitingDocument.reset();
  workspaceList->Clear();
  ShowDocumentName();
}

ImportTarget MainView::MakeImportTarget() {
  return {*graph, workspaces.currentRoot, [this](std::vector<MoveRecord> moves) {
            ActionHistory::Instance().Push(std::make_unique<BatchMoveActionCommand>(*graph, std::move(moves)));
          }};
}

void MainView::FinishLoad(JsonPtr document) {
  ImportTarget target = MakeImportTarget();
  const bool isImported =
      NodeImporterExporter::ImportNodeTree(document.get(), workspaces.currentRoot->workspace, &target);
  // It is as large as the file several times over.
  document.reset();
  if (!isImported) {
    filePath.clear();
    ClearDocument();
    return;
  }
  if (fileGuard) fileGuard->Take(filePath, readState);
  NoteSaved();
  commandStates->Refresh();
  UpdateLayout();
  ResetViewToRoot();
  nodeSearchPanel->Reset();
  const CommandLineOptions& options = CommandLineOptions::Instance();
  if (options.saveTo.empty()) return;
  filePath = options.saveTo;
  const bool saved = Save();
  if (!options.exitAfterSave) return;
  // The window closes either way; whoever started the run learns from the exit code how it went.
  if (!saved)
    if (auto* application = Toolkit::Application::Current()) application->SetExitCode(1);
  Close();
}

void MainView::ResetViewToRoot() {
  if (graph->Root()) nodeEditorCanvas->ResetViewTo(graph->Root()->Middle());
}

} // namespace Tesselor
