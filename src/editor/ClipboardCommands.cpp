#include "editor/ClipboardCommands.h"

#include "commands/BatchDeleteNodeActionCommand.h"
#include "commands/BatchPasteNodeActionCommand.h"
#include "document/ClipboardText.h"
#include "document/NodeCopy.h"
#include "document/NodePaste.h"
#include "editor/NodeEditorCanvas.h"
#include "graph/Graph.h"
#include "nodes/FrameNode.h"
#include "platform/Clipboard.h"
#include "platform/MessageBoxes.h"
#include "values/ActionHistory.h"

#include <optional>
#include <utility>
#include <vector>

namespace Tesselor {

using Toolkit::Point;
using Toolkit::Ptr;

namespace {

/// From what was duplicated to its duplicate, in canvas units.
constexpr Point DuplicateOffset{20, 20};

std::optional<NodeCopy> CopyOrTellUser(const Graph& graph) {
  std::optional<NodeCopy> copy = CopySelection(graph);
  if (!copy)
    ReportError("Unable to copy: the selected nodes are nested too deeply",
                "The selected nodes can't be copied: too many of them hang below each other. A copy may be nested " +
                    std::to_string(JsonNestingLimit) +
                    " levels deep, and a node in a list takes two of them. Please copy them in parts.",
                "Cannot Copy");
  return copy;
}

} // namespace

bool CopySelected(const Graph& graph) {
  const std::optional<NodeCopy> copy = CopyOrTellUser(graph);
  return copy && Clipboard::SetText(copy->text);
}

bool CutSelected(Graph& graph) {
  std::vector<Ptr<BaseNode>> nodes = graph.Selected().AllNodes();
  if (nodes.empty() || !CopySelected(graph)) return false;
  ActionHistory::Instance().Run(std::make_unique<BatchDeleteNodeActionCommand>(graph, std::move(nodes)));
  return true;
}

void NodePasting::Paste(const std::vector<JsonPtr>& objects) { PasteAt(objects, PastePlace()); }

void NodePasting::Duplicate() {
  if (graph.Selected().IsEmpty()) return;
  if (const std::optional<NodeCopy> copy = CopyOrTellUser(graph))
    PasteAt(ReadClipboardText(copy->text), copy->corner + DuplicateOffset);
}

Point NodePasting::PastePlace() const {
  const bool isMouseThere = canvas.Get<bool>(Toolkit::UIElement::IsMouseOverProperty);
  return isMouseThere ? canvas.MousePosition() : canvas.MiddleOfView();
}

void NodePasting::PasteAt(const std::vector<JsonPtr>& objects, Point place) {
  // What is being edited becomes a step of its own before, and keys go to what was pasted.
  canvas.GetPanel()->Focus();
  const Selection::Nodes selectedBefore = graph.Selected().GetNodes();
  std::vector<Ptr<BaseNode>> nodes = NodePaste(graph, workspace).Run(objects, place);
  if (nodes.empty()) return;
  for (const Ptr<BaseNode>& node : nodes)
    if (auto* frame = Toolkit::DynamicCast<FrameNode>(node.Get())) frame->SetZoom(canvas.GetZoom());
  ActionHistory::Instance().Push(
      std::make_unique<BatchPasteNodeActionCommand>(graph, std::move(nodes), selectedBefore));
  canvas.GetPanel()->UpdateLayout();
}

} // namespace Tesselor
