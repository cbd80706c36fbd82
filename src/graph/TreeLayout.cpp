#include "graph/TreeLayout.h"

#include "nodes/ContentNode.h"
#include "toolkit/controls/Canvas.h"

#include <algorithm>

namespace Tesselor {

TreeLayout::Children TreeLayout::ChildrenOf(const ContentNode& node) const {
  Children children;
  const ContentNode::Pins& output = node.Output();
  for (size_t i = 0; i < output.Count(); ++i) {
    std::vector<NodePinData*> pins = output.Get(i)->connections;
    if (childOrder == Order::ByHeight) {
      std::stable_sort(pins.begin(), pins.end(), [](const NodePinData* a, const NodePinData* b) {
        return Toolkit::Canvas::GetTop(a->owner) < Toolkit::Canvas::GetTop(b->owner);
      });
    } else {
      // Nodes that come from no array stand behind the others.
      auto key = [](const NodePinData* pin) { return static_cast<uint32_t>(pin->owner->importIndex); };
      std::stable_sort(pins.begin(), pins.end(),
                       [key](const NodePinData* a, const NodePinData* b) { return key(a) < key(b); });
    }
    for (const NodePinData* pin : pins) children.push_back(pin->owner);
  }
  return children;
}

void TreeLayout::Collect(ContentNode& start, size_t startDepth) {
  // With a stack of its own: the tree may be as deep as a document's nesting, and a chain of links deeper.
  std::vector<std::pair<ContentNode*, size_t>> stack{{&start, startDepth}};
  entries[&start];
  while (!stack.empty()) {
    auto [node, depth] = stack.back();
    stack.pop_back();
    Entry& entry = entries[node];
    entry.depth = depth;
    order.push_back(node);
    for (ContentNode* child : ChildrenOf(*node))
      if (entries.try_emplace(child).second) entries[node].children.push_back(child);
    const Children& children = entries[node].children;
    for (size_t i = children.size(); i-- > 0;) stack.emplace_back(children[i], depth + 1);
  }
}

void TreeLayout::MeasureSubtrees() {
  // Parents stand before their children in `order`, so backwards every child is known before its parent.
  for (size_t i = order.size(); i-- > 0;) {
    Entry& entry = entries[order[i]];
    float height = 0;
    for (const ContentNode* child : entry.children) height += std::max(SubtreeHeight(*child), child->ActualHeight());
    if (!entry.children.empty()) height += static_cast<float>(entry.children.size() - 1) * RowGap;
    entry.subtreeHeight = height;
  }
}

float TreeLayout::SubtreeHeight(const ContentNode& node) const { return entries.at(&node).subtreeHeight; }

void TreeLayout::Place(ContentNode& start, float startX, float startY) {
  struct Step {
    ContentNode* node;
    float x, y;
  };
  std::vector<Step> stack{{&start, startX, startY}};
  while (!stack.empty()) {
    const Step step = stack.back();
    stack.pop_back();
    ContentNode& node = *step.node;
    const Entry& entry = entries.at(&node);
    if (nextFreeY.size() <= entry.depth) nextFreeY.resize(entry.depth + 1, 0);
    const float top = std::max(nextFreeY[entry.depth], step.y);
    records.push_back(
        {Toolkit::Ptr<BaseNode>(&node), Toolkit::Canvas::GetLeft(&node), Toolkit::Canvas::GetTop(&node), step.x, top});
    Toolkit::Canvas::SetTop(&node, top);
    Toolkit::Canvas::SetLeft(&node, step.x);
    nextFreeY[entry.depth] = top + node.ActualHeight() + RowGap;
    const float width = std::max(columnWidths[entry.depth], node.ActualWidth());
    const float childX = step.x + width + ColumnGap;
    float childY = top + node.ActualHeight() * 0.5f - entry.subtreeHeight * 0.5f;
    std::vector<Step> children;
    for (ContentNode* child : entry.children) {
      children.push_back({child, childX, childY});
      childY += std::max(SubtreeHeight(*child), child->ActualHeight()) + RowGap;
    }
    // The first child and all that hangs on it come before the second.
    for (size_t i = children.size(); i-- > 0;) stack.push_back(children[i]);
  }
}

std::vector<MoveRecord> TreeLayout::Run(ContentNode& start) {
  Collect(start, 0);
  start.UpdateLayout();
  for (const ContentNode* node : order) {
    const size_t depth = entries.at(node).depth;
    if (columnWidths.size() <= depth) columnWidths.resize(depth + 1, 0);
    columnWidths[depth] = std::max(columnWidths[depth], node->ActualWidth());
  }
  MeasureSubtrees();
  Place(start, Toolkit::Canvas::GetLeft(&start), Toolkit::Canvas::GetTop(&start));
  return std::move(records);
}

} // namespace Tesselor
