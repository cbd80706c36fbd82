#include "graph/Selection.h"

#include "graph/Graph.h"
#include "nodes/ContentNode.h"
#include "nodes/GroupNode.h"

#include <algorithm>
#include <utility>

namespace Tesselor {

using Toolkit::Ptr;
using Toolkit::Rect;

namespace {

/// Edges that touch don't count.
bool LiesInside(const Rect& inner, const Rect& outer) {
  return inner.y > outer.y && outer.Bottom() > inner.Bottom() && inner.x > outer.x && outer.Right() > inner.Right();
}

} // namespace

void Selection::Add(BaseNode& node) {
  if (!members.insert(&node).second) return;
  nodes.emplace_back(&node);
  node.SetSelected(true);
  NoteChange();
}

void Selection::Remove(BaseNode& node) {
  if (members.erase(&node) == 0) return;
  const auto found = std::find(nodes.begin(), nodes.end(), &node);
  const Ptr<BaseNode> alive = *found;
  nodes.erase(found);
  node.SetSelected(false);
  NoteChange();
}

void Selection::Clear() {
  groupContents.clear();
  members.clear();
  const Nodes former = std::exchange(nodes, {});
  for (const Ptr<BaseNode>& node : former) node->SetSelected(false);
  if (!former.empty()) NoteChange();
}

Selection::Nodes Selection::AllNodes() const {
  Nodes all = nodes;
  all.insert(all.end(), groupContents.begin(), groupContents.end());
  std::sort(all.begin(), all.end(),
            [](const Ptr<BaseNode>& a, const Ptr<BaseNode>& b) { return a->DocumentOrder() < b->DocumentOrder(); });
  all.erase(std::unique(all.begin(), all.end()), all.end());
  return all;
}

void Selection::AddContentsOf(const GroupNode& group, const Graph& graph) {
  const Rect frame = group.Bounds();
  for (const Ptr<ContentNode>& node : graph.ContentNodes())
    if (LiesInside(node->Bounds(), frame)) groupContents.emplace_back(node);
  for (const Ptr<GroupNode>& node : graph.GroupNodes())
    if (LiesInside(node->Bounds(), frame)) groupContents.emplace_back(node);
}

std::vector<MoveRecord> Selection::MoveRecords() const {
  std::vector<MoveRecord> records;
  std::unordered_set<const BaseNode*> seen;
  const auto add = [&](const Nodes& moving) {
    for (const Ptr<BaseNode>& node : moving) {
      if (!seen.insert(node.Get()).second) continue;
      const Rect bounds = node->Bounds();
      records.push_back({node, bounds.x, bounds.y, bounds.x, bounds.y});
    }
  };
  add(nodes);
  if (!nodes.empty() && Toolkit::DynamicCast<GroupNode>(nodes.front().Get())) add(groupContents);
  return records;
}

void Selection::Forget(const std::unordered_set<const BaseNode*>& leaving) {
  const auto leaves = [&leaving](const Ptr<BaseNode>& node) { return leaving.contains(node.Get()); };
  for (const Ptr<BaseNode>& node : nodes) {
    if (!leaves(node)) continue;
    members.erase(node.Get());
    node->SetSelected(false);
  }
  const size_t gone = std::erase_if(nodes, leaves);
  std::erase_if(groupContents, leaves);
  if (gone > 0) NoteChange();
}

} // namespace Tesselor
