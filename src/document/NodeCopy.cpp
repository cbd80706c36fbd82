#include "document/NodeCopy.h"

#include "document/CopyDetails.h"
#include "document/NodeWriter.h"
#include "graph/Graph.h"
#include "nodes/FrameNode.h"
#include "toolkit/controls/Canvas.h"

#include <algorithm>
#include <vector>

namespace Tesselor {

namespace {

using Toolkit::DynamicCast;

/// One copy under way.
class Copying {
public:
  explicit Copying(const Selection::Nodes& nodes)
      : selection(ContentNodesOf(nodes)), details(selection.size()), writer(selection, &details) {
    for (const auto& node : nodes) {
      auto* content = DynamicCast<ContentNode>(node.Get());
      if (!content)
        AddFrame(static_cast<FrameNode&>(*node));
      else if (!HangsOnCopiedNode(*content))
        AddTop(*content);
    }
    // What no top holds: the nodes of a ring, or those on a pin that the schema has no key for.
    std::vector<ContentNode*> links;
    for (const auto& node : nodes) {
      auto* content = DynamicCast<ContentNode>(node.Get());
      if (!content || details.HasObject(*content)) continue;
      if (content->IsPassthrough())
        links.push_back(content);
      else
        AddTop(*content);
    }
    if (!links.empty() && !details.HasRoomForLinks()) {
      AddTop(*links.front());
      links.erase(links.begin());
    }
    details.AddMembers(links, frameCount);
  }

  std::optional<NodeCopy> Print() const {
    NodeCopy copy{{}, corner};
    for (const JsonPtr& object : objects) {
      if (!copy.text.empty()) copy.text += '\n';
      const std::string printed = PrintJson(object.get());
      // Fields may hold JSON of their own, so that only the text tells how deep it is.
      if (writer.IsTooDeep() || JsonNesting(printed) > JsonNestingLimit) return std::nullopt;
      copy.text += printed;
    }
    return copy;
  }

private:
  static NodeSet ContentNodesOf(const Selection::Nodes& nodes) {
    NodeSet result;
    for (const auto& node : nodes)
      if (const auto* content = DynamicCast<ContentNode>(node.Get())) result.insert(content);
    return result;
  }
  bool HangsOnCopiedNode(const ContentNode& node) const {
    for (size_t i = 0; i < node.Input().Count(); ++i)
      for (const NodePinData* parent : node.Input().Get(i)->connections)
        if (selection.contains(parent->owner)) return true;
    return false;
  }
  void AddFrame(const FrameNode& frame) {
    ++frameCount;
    Add(frame, frame.ToJson());
  }
  void AddTop(ContentNode& node) { Add(node, writer.WriteTopOfCopy(node)); }
  void Add(const BaseNode& node, JsonPtr object) {
    const Toolkit::Rect bounds = node.Bounds();
    const bool isFirst = objects.empty();
    corner.x = isFirst ? bounds.x : std::min(corner.x, bounds.x);
    corner.y = isFirst ? bounds.y : std::min(corner.y, bounds.y);
    objects.push_back(std::move(object));
  }

  NodeSet selection;
  CopyDetails details;
  NodeWriter writer;
  std::vector<JsonPtr> objects;
  size_t frameCount = 0;
  Toolkit::Point corner;
};

} // namespace

std::optional<NodeCopy> CopySelection(const Graph& graph) { return Copying(graph.Selected().AllNodes()).Print(); }

} // namespace Tesselor
