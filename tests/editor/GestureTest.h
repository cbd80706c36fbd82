#pragma once

#include "WindowStage.h"
#include "nodes/NodePinControl.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/Canvas.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace TestSupport {

/// The window with the sample of a quest, and the places on its nodes that a mouse aims at.
class GestureTest : public testing::Test {
protected:
  explicit GestureTest(const WindowSetup& setup = {.document = "quest"})
      : window(setup), graph(window.View().GetGraph()) {}

  /// A node of the tree with siblings, in the middle of the window.
  Tesselor::ContentNode& NodeInSight(const char* title = "The nest", float zoom = 1) {
    Tesselor::ContentNode& node = window.Node(title);
    window.LookAt(node, zoom);
    return node;
  }
  /// The middle of a group's or a comment's header, with the group or comment in sight.
  Toolkit::Point HeaderOf(Tesselor::FrameNode& frame, float zoom) {
    window.LookAt(BorderOf(frame), zoom);
    // The frame's border keeps its width on the screen; its padding and the header are parts of the canvas.
    const float inside = Toolkit::DynamicCast<Tesselor::CommentNode>(&frame) ? 8 : 4;
    const Toolkit::Rect box = WindowStage::BoxOf(BorderOf(frame));
    return {box.x + box.width / 2, box.y + 7.5f + (inside + 14) * window.Canvas().GetZoom()};
  }
  /// Inside of a group as it is in sight, where it holds nothing.
  Toolkit::Point InsideOf(Tesselor::GroupNode& group) const {
    const Toolkit::Rect box = WindowStage::BoxOf(BorderOf(group));
    return {box.Right() - 8 - 60 * window.Canvas().GetZoom(), box.y + box.height * 0.6f};
  }
  /// The shape of a node's first input pin.
  Toolkit::Point InputOf(const Tesselor::ContentNode& node) const {
    return WindowStage::MiddleOf(window.Pin(node, node.FirstInput()->blueprint->id));
  }
  Tesselor::GroupNode& Group() const { return *graph.GroupNodes()[0]; }
  Tesselor::CommentNode& Comment() const { return *graph.CommentNodes()[0]; }

  /// On the frame of a node's body, where nothing else takes a press.
  static Toolkit::Point BodyOf(const Tesselor::BaseNode& node) {
    const Toolkit::Rect box = WindowStage::BoxOf(node);
    return {box.x + box.width / 2, box.Bottom() - 5};
  }
  static Toolkit::TextBox& TitleOf(Tesselor::ContentNode& node) {
    return Named<Toolkit::TextBox>(node, "TitleTextBlock");
  }
  /// What shows a group or a comment, whose own layout has no size.
  static Toolkit::Border& BorderOf(Tesselor::FrameNode& frame) {
    const bool isGroup = Toolkit::DynamicCast<Tesselor::GroupNode>(&frame) != nullptr;
    return Named<Toolkit::Border>(frame, isGroup ? "GroupBorder" : "CommentBorder");
  }
  /// On the curve that ends at a node's first input pin, away from both ends.
  Toolkit::Point CurveTo(const Tesselor::ContentNode& node) const {
    const auto found = graph.Connections().ConnectionsOf(*node.FirstInput());
    const Tesselor::Curve& c = found.front()->GetCurve();
    return window.ToWindow(
        {(c[0].x + 3 * c[1].x + 3 * c[2].x + c[3].x) / 8, (c[0].y + 3 * c[1].y + 3 * c[2].y + c[3].y) / 8});
  }
  std::vector<const Tesselor::BaseNode*> Selected() const {
    std::vector<const Tesselor::BaseNode*> nodes;
    for (const auto& node : graph.Selected().GetNodes()) nodes.push_back(node.Get());
    return nodes;
  }
  std::string Cursor() { return window.Input().Cursor(); }

  WindowStage window;
  Tesselor::Graph& graph;
};

} // namespace TestSupport
