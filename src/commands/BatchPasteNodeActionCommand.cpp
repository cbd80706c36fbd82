#include "commands/BatchPasteNodeActionCommand.h"

#include "graph/Graph.h"
#include "nodes/GroupNode.h"

namespace Tesselor {

using Toolkit::Ptr;

BatchPasteNodeActionCommand::BatchPasteNodeActionCommand(Graph& graph, std::vector<Ptr<BaseNode>> nodes,
                                                         const Selection::Nodes& selectedBefore)
    : graph(graph), bundle(graph, std::move(nodes)), selectedBefore(selectedBefore.begin(), selectedBefore.end()) {
  const Selection::Nodes& selected = graph.Selected().GetNodes();
  selectedAfter.assign(selected.begin(), selected.end());
}

void BatchPasteNodeActionCommand::Do() {
  bundle.PutBack();
  if (graph.Selected().GetNodes() == Present(selectedBefore)) Select(selectedAfter);
}

void BatchPasteNodeActionCommand::Undo() {
  bundle.TakeOut();
  if (graph.Selected().IsEmpty()) Select(selectedBefore);
}

Selection::Nodes BatchPasteNodeActionCommand::Present(const WeakNodes& nodes) const {
  Selection::Nodes present;
  for (const Toolkit::WeakPtr<BaseNode>& weak : nodes)
    if (const Ptr<BaseNode> node = weak.Get(); node && graph.Contains(*node)) present.push_back(node);
  return present;
}

void BatchPasteNodeActionCommand::Select(const WeakNodes& nodes) {
  graph.Selected().Clear();
  for (const Ptr<BaseNode>& node : Present(nodes)) {
    graph.Selected().Add(*node);
    if (const auto* group = Toolkit::DynamicCast<GroupNode>(node.Get())) graph.Selected().AddContentsOf(*group, graph);
  }
}

} // namespace Tesselor
