#include "editor/SelectionCommands.h"

#include "commands/BatchDeleteConnectionActionCommand.h"
#include "commands/BatchDeleteNodeActionCommand.h"
#include "commands/BatchMoveActionCommand.h"
#include "commands/ResizeGroupNodeActionCommand.h"
#include "graph/Graph.h"
#include "nodes/CommentNode.h"
#include "nodes/GroupNode.h"
#include "values/ActionHistory.h"

#include <algorithm>

namespace Tesselor {

void SelectAllNodes(Graph& graph) {
  const auto add = [&](const auto& nodes) {
    for (const auto& node : nodes) graph.Selected().Add(*node);
  };
  add(graph.ContentNodes());
  add(graph.GroupNodes());
  add(graph.CommentNodes());
}

bool DeleteSelected(Graph& graph) {
  ActionHistory& history = ActionHistory::Instance();
  const auto& connections = graph.Connections().Selected();
  const Selection::Nodes& nodes = graph.Selected().GetNodes();
  if (!connections.empty())
    history.Run(std::make_unique<BatchDeleteConnectionActionCommand>(graph, connections));
  else if (!nodes.empty())
    history.Run(std::make_unique<BatchDeleteNodeActionCommand>(graph, nodes));
  else
    return false;
  return true;
}

bool Nudges::GoesOn() const {
  if (!run || ActionHistory::Instance().Revision() != revision) return false;
  const auto isSame = [](const MoveRecord& a, const MoveRecord& b) { return a.node == b.node; };
  const std::vector<MoveRecord> now = graph.Selected().MoveRecords();
  return std::equal(now.begin(), now.end(), run->Records().begin(), run->Records().end(), isSame);
}

void Nudges::Move(Toolkit::Point distance) {
  if (graph.Selected().IsEmpty()) return;
  ActionHistory& history = ActionHistory::Instance();
  std::unique_ptr<BatchMoveActionCommand> begun;
  if (!GoesOn()) {
    begun = std::make_unique<BatchMoveActionCommand>(graph, graph.Selected().MoveRecords(),
                                                     BatchMoveActionCommand::Siblings::Reordered);
    run = begun.get();
    moved = {};
  }
  moved = moved + distance;
  run->MoveBy(moved);
  run->Settle();
  if (begun)
    history.Push(std::move(begun));
  else
    history.NoteExtension();
  revision = history.Revision();
}

void FrameResizes::Resize(FrameNode& frame, Toolkit::Point moved) {
  ActionHistory& history = ActionHistory::Instance();
  const Toolkit::Rect before = frame.Bounds();
  frame.SetBounds({before.x, before.y, before.width + moved.x, before.height + moved.y});
  if (frame.Bounds() == before) return;
  if (run && history.Revision() == revision && &run->Frame() == &frame) {
    run->Settle();
    history.NoteExtension();
  } else {
    auto step = std::make_unique<ResizeGroupNodeActionCommand>(frame, before, frame.Bounds());
    run = step.get();
    history.Push(std::move(step));
  }
  revision = history.Revision();
}

} // namespace Tesselor
