// The clipboard of the graph.

#include "editor/MainView.h"

#include "document/ClipboardText.h"
#include "editor/ClipboardCommands.h"
#include "nodes/ContentNode.h"
#include "nodes/NodeNames.h"
#include "platform/Clipboard.h"
#include "platform/MessageBoxes.h"
#include "workspace/RootType.h"
#include "workspace/Workspace.h"

namespace Tesselor {

void MainView::Copy() {
  const std::vector<Toolkit::Ptr<BaseNode>> nodes = graph->Selected().AllNodes();
  if (CopySelected(*graph)) Tell(nodes.empty() ? "Nothing is selected to copy" : "Copied " + NameOf(nodes));
}

void MainView::Cut() {
  BeginEdit();
  const std::vector<Toolkit::Ptr<BaseNode>> nodes = graph->Selected().AllNodes();
  if (nodes.empty())
    Tell("Nothing is selected to cut");
  else if (CutSelected(*graph))
    Tell("Cut " + NameOf(nodes));
  pendingPin.Clear();
}

void MainView::Paste() {
  if (!HasWorkspace()) return;
  bool isAnyTooDeep = false;
  const std::vector<JsonPtr> objects = ReadClipboardText(Clipboard::GetText(), &isAnyTooDeep);
  if (isAnyTooDeep)
    ShowError("Not all of the clipboard's text can be pasted: it nests more than " + std::to_string(JsonNestingLimit) +
                  " levels deep.",
              "Cannot Paste");
  if (objects.empty()) return Tell("The clipboard holds no nodes");
  BeginEdit();
  NodePasting(*nodeEditorCanvas, *graph, *workspaces.currentRoot->workspace).Paste(objects);
}

void MainView::Duplicate() {
  if (!HasWorkspace()) return;
  BeginEdit();
  if (graph->Selected().IsEmpty()) return Tell("Nothing is selected to duplicate");
  NodePasting(*nodeEditorCanvas, *graph, *workspaces.currentRoot->workspace).Duplicate();
}

} // namespace Tesselor
