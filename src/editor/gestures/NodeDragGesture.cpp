#include "editor/gestures/NodeDragGesture.h"

#include "commands/BatchMoveActionCommand.h"
#include "graph/Graph.h"
#include "nodes/GroupNode.h"
#include "toolkit/controls/Canvas.h"
#include "values/ActionHistory.h"

#include <unordered_set>

namespace Tesselor {

using Toolkit::Canvas;
using Toolkit::DynamicCast;
using Toolkit::Point;

namespace {

void Place(const MoveRecord& record, float left, float top) {
  Canvas::SetLeft(record.node.Get(), left);
  Canvas::SetTop(record.node.Get(), top);
}

} // namespace

void NodeDragGesture::Begin() {
  hasMoved = true;
  std::unordered_set<const BaseNode*> seen;
  const auto add = [&](const Selection::Nodes& nodes) {
    for (const auto& node : nodes) {
      if (!seen.insert(node.Get()).second) continue;
      const Toolkit::Rect bounds = node->Bounds();
      records.push_back({node, bounds.x, bounds.y, bounds.x, bounds.y});
    }
  };
  const Selection& selected = graph.Selected();
  add(selected.GetNodes());
  const bool isOfGroups = !selected.IsEmpty() && DynamicCast<GroupNode>(selected.GetNodes().front().Get());
  if (isOfGroups) add(selected.GroupContents());
}

void NodeDragGesture::Move(Point mouse) {
  if (!hasMoved) Begin();
  const Point moved = mouse - start;
  for (MoveRecord& record : records) {
    record.newLeft = record.oldLeft + moved.x;
    record.newTop = record.oldTop + moved.y;
    Place(record, record.newLeft, record.newTop);
  }
}

void NodeDragGesture::End(Point) {
  if (!hasMoved) {
    onClick();
    return;
  }
  if (records.empty()) return;
  std::vector<ContentNode*> moved;
  ChildOrder before, after;
  for (const MoveRecord& record : records)
    if (auto* node = DynamicCast<ContentNode>(record.node.Get())) {
      moved.push_back(node);
      before.NoteParentsOf(*node);
    }
  graph.RefreshOrderAround(moved);
  for (const ContentNode* node : moved) after.NoteParentsOf(*node);
  ActionHistory::Instance().Push(
      std::make_unique<BatchMoveActionCommand>(graph, std::move(records), std::move(before), std::move(after)));
}

void NodeDragGesture::Cancel() {
  for (const MoveRecord& record : records) Place(record, record.oldLeft, record.oldTop);
}

} // namespace Tesselor
