// What is changed and not saved, and what becomes of it.

#include "editor/MainView.h"

#include "document/DocumentExport.h"
#include "document/FileHistory.h"
#include "document/NodeImporterExporter.h"
#include "document/RoundedCount.h"
#include "editor/EditInProgress.h"
#include "editor/FileGuard.h"
#include "editor/NoticeBar.h"
#include "editor/VersionsPanel.h"
#include "editor/WorkKeeper.h"
#include "nodes/CommentNode.h"
#include "nodes/ContentNode.h"
#include "nodes/GroupNode.h"
#include "platform/CommandLineOptions.h"
#include "platform/EndSignals.h"
#include "platform/FileState.h"
#include "platform/HugePages.h"
#include "platform/LogFile.h"
#include "platform/MessageBoxes.h"
#include "platform/SpareCopy.h"
#include "platform/StateDirectory.h"
#include "toolkit/application/Application.h"
#include "toolkit/application/MessageBox.h"
#include "toolkit/controls/TextBlock.h"
#include "values/ActionHistory.h"
#include "workspace/NodeDictionary.h"
#include "workspace/RootType.h"
#include "workspace/Workspace.h"

namespace Tesselor {

using Toolkit::MessageBox;
using Toolkit::Ptr;

namespace {
/// Of what a save will replace.
constexpr char replacedNotice[] = "replaced";
} // namespace

MainView::SaveQuestion MainView::Next(SaveQuestion question) {
  return static_cast<SaveQuestion>(static_cast<int>(question) + 1);
}

bool MainView::IsSaved() const {
  return ActionHistory::Instance().State() == savedState && !(editInProgress && editInProgress->Differs());
}

void MainView::NoteSaved() {
  noticeBar->Dismiss(replacedNotice);
  savedState = ActionHistory::Instance().State();
  OnDocumentChanged();
}

void MainView::OnDocumentChanged() {
  ShowDocumentName();
  if (keeper) keeper->Follow();
}

std::string MainView::DocumentName() const {
  return filePath.empty() ? "Untitled" : filePath.substr(filePath.find_last_of("/\\") + 1);
}

void MainView::ShowDocumentName() {
  if (documentName) documentName->SetText(IsSaved() ? DocumentName() : DocumentName() + " \u2022");
}

void MainView::RequestClose() {
  bool isSaved = false;
  WithFinishedTyping([&] { isSaved = IsSaved(); });
  if (isSaved) {
    Close();
    return;
  }
  // A box that waits asks already.
  if (isAskedToClose) return;
  isAskedToClose = true;
  MessageBox::Ask("\"" + DocumentName() + "\" has unsaved changes.", "Attention!", {"Save", "Don't save", "Cancel"},
                  [view = Ptr<MainView>(this)](std::optional<size_t> choice) {
                    view->isAskedToClose = false;
                    if (choice == 0u) view->SaveThen([view] { view->Close(); });
                    if (choice != 1u) return;
                    if (view->keeper) view->keeper->Discard();
                    view->Close();
                  });
}

bool MainView::Save() { return SaveThen({}); }

bool MainView::SaveThen(const std::function<void()>& done, SaveQuestion question) {
  // A box that waits goes on with its own save.
  if (isAskedBeforeSave) return false;
  if (filePath.empty()) return SaveAsThen(done);
  if (!workspaces.currentRoot) {
    ShowError("No workspace selected. Cannot save file.", "Cannot Save");
    return false;
  }
  for (; question != SaveQuestion::None && !isUnattended; question = Next(question))
    if (IsAsked(question, done)) return false;
  const bool isWritten = Export();
  if (isWritten && done) done();
  return isWritten;
}

void MainView::AskBeforeSave(std::string text, std::vector<std::string> choices, size_t defaultChoice,
                             std::function<void(std::optional<size_t>)> chosen) {
  isAskedBeforeSave = true;
  // By the time of the answer the window may be gone for everybody else.
  MessageBox::Ask(
      std::move(text), "Attention!", std::move(choices),
      [view = Ptr<MainView>(this), chosen = std::move(chosen)](std::optional<size_t> choice) {
        view->isAskedBeforeSave = false;
        chosen(choice);
      },
      defaultChoice);
}

bool MainView::IsAsked(SaveQuestion question, const std::function<void()>& done) {
  const auto goOn = [this, done, next = Next(question)] { SaveThen(done, next); };
  switch (question) {
  case SaveQuestion::RootType:
    if (const std::string mismatch = DescribeRootMismatch(); !mismatch.empty()) {
      AskBeforeSave(mismatch, {"Cancel", "Save anyway"}, 0, [goOn](std::optional<size_t> choice) {
        if (choice == 1u) goOn();
      });
      return true;
    }
    return false;
  case SaveQuestion::Size: return AskAboutSize(goOn);
  case SaveQuestion::ChangedFile:
    if (!fileGuard || !fileGuard->IsChanged(filePath)) return false;
    AskBeforeSave("\"" + DocumentName() + "\" was changed by another program since it was opened here.",
                  {"Overwrite", "Save as", "Reload", "Cancel"}, 3, [this, goOn, done](std::optional<size_t> choice) {
                    if (choice == 0u) goOn();
                    if (choice == 1u) SaveAsThen(done);
                    if (choice == 2u) Reload();
                  });
    return true;
  case SaveQuestion::None: break;
  }
  return false;
}

bool MainView::AskAboutSize(const std::function<void()>& goOn) {
  if (!graph->Root() || !graph->Contains(*graph->Root())) return false;
  const DocumentExport::Size size =
      DocumentExport(*graph->Root(), graph->ContentNodes(), FieldsToWrite::Changed).Measure();
  const size_t count = graph->ContentNodes().size();
  // What is too large is refused by the export.
  if (!size.IsMultiplied(count) || size.nodes <= nodesOfFile || size.IsTooLarge()) return false;
  AskBeforeSave("Nodes with several parents are written below each of them. The file will hold " +
                    RoundedCount(size.nodes) + " nodes, and the document has " + std::to_string(count) +
                    ". Do you want to save it?",
                {"Save", "Cancel"}, 0, [this, goOn, nodes = size.nodes](std::optional<size_t> choice) {
                  if (choice != 0u) return;
                  nodesOfFile = nodes;
                  goOn();
                });
  return true;
}

double MainView::MeasureNodes() const {
  if (!graph->Root() || !graph->Contains(*graph->Root())) return 0;
  return DocumentExport(*graph->Root(), graph->ContentNodes(), FieldsToWrite::Changed).Measure().nodes;
}

void MainView::Reload() {
  const std::string path = filePath;
  LoadFileAndWorkspace();
  if (!filePath.empty() || graph->ContentNodes().empty()) return;
  filePath = path;
}

std::string MainView::DescribeRootMismatch() const {
  const ContentNode* root = graph->Root();
  const NodeDictionary* dictionary = Dictionary();
  if (!root || !dictionary || !graph->Contains(*root)) return {};
  const std::string& wanted = workspaces.currentRoot->RootNodeType;
  // What a load has made of a file, it will make of it again.
  bool fits = root->TypeId() == wanted || root->TypeId() == loadedRootType;
  if (const NodeVariant* family = dictionary->FindVariant(wanted))
    for (const auto& [value, id] : family->Variants) fits = fits || root->TypeId() == id;
  if (fits) return {};
  return "The root is a node of the type \"" + root->TypeId() + "\". A file of the kind \"" +
         workspaces.currentRoot->MenuName + "\" begins with \"" + wanted +
         "\", and the next load would not read this one as it is.";
}

void MainView::OnClickEarlierVersions(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  if (!fileHistory || filePath.empty()) return;
  versionsPanel->List(fileHistory->VersionsOf(filePath));
  SetValue(VersionsModalVisibilityProperty, Toolkit::Visibility::Visible);
}

void MainView::OpenVersion(const VersionLine& line) {
  SetValue(VersionsModalVisibilityProperty, Toolkit::Visibility::Collapsed);
  if (!ShowFormerText(filePath, line.Version().file)) return;
  noticeBar->Show({replacedNotice,
                   "This is \"" + DocumentName() + "\" as it was until " + std::string(line.GetTime().View()) +
                       ". A save writes it over the present file.",
                   {}});
}

bool MainView::ShowFormerText(const std::string& path, const std::filesystem::path& kept) {
  const std::string text = ReadTextFile(kept.string()).value_or("");
  RescuedDocument document = DescribeForRescue();
  if (path != filePath) document = {path, document.root, FileStateOf(path)};
  const JsonParseResult parsed = ParseJson(text);
  if (const std::string root = NodeImporterExporter::GetWorkspaceID(parsed.json.get()); workspaces.FindRoot(root))
    document.root = root;
  return ShowAsUnsaved(document, text);
}

void MainView::OfferCutOffSaves() {
  for (const std::filesystem::path& kept : SpareCopy::LeftOf(filePath)) {
    const std::string told = "A save of \"" + DocumentName() + "\" was cut off. What the file held before is kept";
    LogFile::Write(told + ": " + kept.string());
    const std::string id = "cut off " + kept.string();
    noticeBar->Show({id,
                     told + ".",
                     {{"Open",
                       [this, id, path = filePath, kept] {
                         noticeBar->Dismiss(id);
                         ShowFormerText(path, kept);
                       }},
                      {"Delete",
                       [this, id, kept] {
                         noticeBar->Dismiss(id);
                         std::error_code error;
                         std::filesystem::remove(kept, error);
                       }}},
                     "Later"});
  }
}

void MainView::KeepWork(const std::filesystem::path& directory) {
  keeper = std::make_unique<WorkKeeper>(
      WorkKeeper::Document{[this] { return IsSaved(); }, [this] { return DescribeForRescue(); },
                           [this] { return PrintDocument(); },
                           [this](const RescuedDocument& document, const std::string& text) {
                             if (!ShowAsUnsaved(document, text)) return false;
                             Tell("Restored the unsaved changes of \"" + DocumentName() + "\"");
                             return true;
                           }},
      *noticeBar, directory / "rescue");
  keeper->OfferAbandoned();
  fileGuard = std::make_unique<FileGuard>(*noticeBar, [this] { Reload(); });
  if (!filePath.empty()) fileGuard->Take(filePath, readState);
  fileHistory = FileHistory::IsWanted() ? std::make_unique<FileHistory>(directory / "history") : nullptr;
  commandStates->Refresh();
}

void MainView::OnPresented() {
  // A build server's run leaves nothing behind and answers no offer.
  if (!CommandLineOptions::Instance().saveTo.empty()) return;
  UseSmallPages();
  if (const std::filesystem::path directory = FindStateDirectory(); !directory.empty()) KeepWork(directory);
  endSignals = std::make_unique<EndSignals>([this](int signal) {
    if (keeper) keeper->WriteNow();
    if (auto* application = Toolkit::Application::Current()) application->SetExitCode(128 + signal);
    Close();
  });
}

bool MainView::KeepUnsaved() {
  if (!keeper || keeper->SetAside()) return true;
  ShowError("The unsaved changes of \"" + DocumentName() +
                "\" cannot be kept, so the document stays open. Save it first.",
            "Error");
  return false;
}

bool MainView::LeaveDocument() {
  if (!KeepUnsaved()) return false;
  ClearDocument();
  return true;
}

void MainView::TellOfFileBehindNewDocument() {
  if (filePath.empty()) return;
  noticeBar->Show({replacedNotice,
                   "A save writes this new document over \"" + DocumentName() + "\".",
                   {{"Save as", [this] { SaveAs(); }}}});
}

RescuedDocument MainView::DescribeForRescue() const {
  std::error_code error;
  const std::string path = filePath.empty() ? std::string() : std::filesystem::absolute(filePath, error).string();
  return {path, workspaces.currentRoot ? workspaces.currentRoot->MenuName : std::string(),
          fileGuard && !path.empty() ? fileGuard->State() : std::string()};
}

std::string MainView::PrintDocument() {
  if (!HasWorkspace()) return {};
  const RootType& type = *workspaces.currentRoot;
  Ptr<ContentNode> root(graph->Root() && graph->Contains(*graph->Root()) ? graph->Root() : nullptr);
  // The rest of a document whose root was deleted floats beside a new one.
  if (!root && Dictionary()) root = Dictionary()->CreateNode(type.RootNodeType, true);
  if (!root) return {};
  const FieldsToWrite fields = type.workspace->ExportDefaults ? FieldsToWrite::All : FieldsToWrite::Changed;
  return DocumentExport(*root, graph->ContentNodes(), fields)
      .Print(graph->GroupNodes(), graph->CommentNodes(), type.MenuName);
}

bool MainView::ShowAsUnsaved(const RescuedDocument& document, const std::string& text) {
  JsonParseResult parsed = ParseJson(text);
  const bool isReadable = parsed && workspaces.FindRoot(document.root);
  if (isReadable && !LeaveDocument()) return false;
  if (!isReadable || !ChangeRootType(document.root)) {
    ShowError("The kept state of \"" + document.path + "\" cannot be read.", "Error");
    return false;
  }
  filePath = document.path;
  AssetFile file;
  file.json = std::move(parsed.json);
  file.longNumbers = FindLongNumbers(text);
  FinishLoad(std::move(file));
  if (graph->ContentNodes().empty()) return false;
  // No state of the history is that of the file.
  savedState = 0;
  if (fileGuard) fileGuard->Take(filePath, document.fileState);
  if (!filePath.empty()) ShowTitleOfFile();
  OnDocumentChanged();
  return true;
}

} // namespace Tesselor
