#include "document/UnplacedNodes.h"

#include "graph/Graph.h"
#include "graph/TreeLayout.h"
#include "nodes/ContentNode.h"
#include "toolkit/controls/Canvas.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace Tesselor {

namespace {

using Toolkit::Canvas;

constexpr float ColumnGap = TreeLayout::ColumnGap, RowGap = TreeLayout::RowGap;

/// Where the next child of a node goes: below those that stand to its right, else at its own height.
Toolkit::Point FirstPlace(const ContentNode& parent, const std::unordered_set<const ContentNode*>& placed) {
  Toolkit::Point place{Canvas::GetLeft(&parent) + parent.ActualWidth() + ColumnGap, Canvas::GetTop(&parent)};
  const ContentNode::Pins& output = parent.Output();
  for (size_t i = 0; i < output.Count(); ++i) {
    for (const NodePinData* pin : output.Get(i)->connections) {
      const ContentNode* child = pin->owner;
      if (!placed.contains(child) || Canvas::GetLeft(child) < Canvas::GetLeft(&parent)) continue;
      place.y = std::max(place.y, Canvas::GetTop(child) + child->ActualHeight() + RowGap);
    }
  }
  return place;
}

} // namespace

void PlaceUnplacedNodes(const Graph& view, std::unordered_set<const ContentNode*> placed) {
  // What is placed hands its place on to its children, and these to theirs.
  std::vector<ContentNode*> parents;
  for (const auto& node : view.ContentNodes())
    if (placed.contains(node.Get())) parents.push_back(node.Get());
  for (size_t next = 0; next < parents.size(); ++next) {
    ContentNode& parent = *parents[next];
    std::optional<Toolkit::Point> place;
    const ContentNode::Pins& output = parent.Output();
    for (size_t i = 0; i < output.Count(); ++i) {
      for (const NodePinData* pin : output.Get(i)->connections) {
        ContentNode* child = pin->owner;
        if (placed.contains(child)) continue;
        if (!place) place = FirstPlace(parent, placed);
        Canvas::SetLeft(child, place->x);
        Canvas::SetTop(child, place->y);
        place->y += child->ActualHeight() + RowGap;
        placed.insert(child);
        parents.push_back(child);
      }
    }
  }
}

} // namespace Tesselor
