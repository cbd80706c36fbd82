// The clipboard of the graph.

#include "editor/MainView.h"

#include "document/ClipboardText.h"
#include "editor/ClipboardCommands.h"
#include "platform/Clipboard.h"
#include "workspace/RootType.h"
#include "workspace/Workspace.h"

namespace Tesselor {

void MainView::Copy() { CopySelected(*graph); }

void MainView::Cut() {
  BeginEdit();
  CutSelected(*graph);
  pendingPin.Clear();
}

void MainView::Paste() {
  if (!HasWorkspace()) return;
  const std::vector<JsonPtr> objects = ReadClipboardText(Clipboard::GetText());
  if (objects.empty()) return;
  BeginEdit();
  NodePasting(*nodeEditorCanvas, *graph, *workspaces.currentRoot->workspace).Paste(objects);
}

void MainView::Duplicate() {
  if (!HasWorkspace()) return;
  BeginEdit();
  NodePasting(*nodeEditorCanvas, *graph, *workspaces.currentRoot->workspace).Duplicate();
}

} // namespace Tesselor
