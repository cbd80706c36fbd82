#include "editor/ClickSelection.h"

#include "graph/Graph.h"
#include "nodes/GroupNode.h"

#include <utility>

namespace Tesselor {

using Toolkit::DynamicCast;

namespace {
bool IsContent(const BaseNode& node) { return DynamicCast<ContentNode>(&node); }
} // namespace

void ClickSelection::Press(BaseNode& node, bool adds) {
  Selection& selected = graph.Selected();
  justSelected.Reset();
  if (selected.Contains(node)) return;
  if (!adds) selected.Clear();
  if (!selected.IsEmpty() && IsContent(*selected.GetNodes().front()) != IsContent(node)) return;
  Add(node);
  justSelected = Toolkit::Ptr<BaseNode>(&node);
}

void ClickSelection::Click(BaseNode& node, bool adds) {
  const Toolkit::Ptr<BaseNode> selectedByPress = std::exchange(justSelected, nullptr);
  if (selectedByPress == &node || !IsContent(node)) return;
  if (adds)
    graph.Selected().Remove(node);
  else
    SelectAlone(node);
}

void ClickSelection::SelectAlone(BaseNode& node) {
  graph.Selected().Clear();
  Add(node);
}

void ClickSelection::Add(BaseNode& node) {
  graph.Selected().Add(node);
  if (const auto* group = DynamicCast<GroupNode>(&node)) graph.Selected().AddContentsOf(*group, graph);
}

} // namespace Tesselor
