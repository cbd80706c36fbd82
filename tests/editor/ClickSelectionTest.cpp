// What clicks on nodes select.
#include "GestureTest.h"
#include "editor/NodePanel.h"

namespace Tesselor {
namespace {

using TestSupport::WindowStage;
using Toolkit::Key;
using Toolkit::Point;
using Toolkit::Rect;

class Clicks : public TestSupport::GestureTest {};

TEST_F(Clicks, AndRectanglesSelect) {
  ContentNode& a = NodeInSight("The nest");
  window.LookAt(a, 0.2f);
  ContentNode* other = nullptr;
  for (const auto& node : graph.ContentNodes()) {
    const Rect box = WindowStage::BoxOf(*node);
    if (node.Get() != &a && box.x > 0 && box.y > 60 && box.Right() < 1280 && box.Bottom() < 800) other = node.Get();
  }
  ASSERT_TRUE(other);
  ContentNode& b = *other;
  using Nodes = std::vector<const BaseNode*>;
  window.Click(BodyOf(a));
  EXPECT_EQ(Selected(), Nodes{&a});
  window.Click(BodyOf(b));
  EXPECT_EQ(Selected(), Nodes{&b});
  EXPECT_FALSE(a.IsSelected());
  window.Click(BodyOf(a), {.held = {Key::LeftCtrl}});
  EXPECT_EQ(Selected(), (Nodes{&b, &a}));
  window.Click(BodyOf(b), {.held = {Key::LeftCtrl}});
  EXPECT_EQ(Selected(), Nodes{&a});
  window.Click(BodyOf(b), {.held = {Key::LeftCtrl}});
  window.Click(BodyOf(a));
  EXPECT_EQ(Selected(), Nodes{&a}) << "a click narrows the selection";
  // Frames don't mix with content nodes.
  CommentNode& comment = *graph.CommentNodes()[0];
  window.LookAt(comment);
  const Rect frame = WindowStage::BoxOf(*comment.FindName<Toolkit::Border>("CommentBorder"));
  window.Click({frame.x + 20, frame.y + 20}, {.held = {Key::LeftCtrl}});
  EXPECT_EQ(Selected(), Nodes{&a});
  window.Click({frame.x + 20, frame.y + 20});
  EXPECT_EQ(Selected(), Nodes{&comment});
  // A rectangle takes what it meets, comments too and groups not.
  window.Click(window.EmptySpot());
  EXPECT_EQ(Selected(), Nodes{});
  window.Drag(window.EmptySpot(), {frame.x + 10, frame.y + 10});
  EXPECT_TRUE(graph.Selected().Contains(comment));
  for (const auto& group : graph.GroupNodes()) EXPECT_FALSE(group->IsSelected());
}

TEST_F(Clicks, OnFramesHaveTheirOwnRules) {
  GroupNode &a = *graph.GroupNodes()[0], &b = *graph.GroupNodes()[1];
  CommentNode& comment = *graph.CommentNodes()[1];
  const Point header = HeaderOf(a, 0.1f);
  const float zoom = window.Canvas().GetZoom();
  const Rect note = WindowStage::BoxOf(BorderOf(comment));
  const Point commentHeader{note.x + note.width / 2, note.y + 7.5f + 20 * zoom};
  using Nodes = std::vector<const BaseNode*>;
  struct Case {
    const char* what;
    Point at;
    std::vector<Key> held;
    Nodes selected;
  };
  const Case cases[] = {
      {"a group", InsideOf(a), {}, {&a}},
      {"another one", InsideOf(b), {}, {&b}},
      {"the first as well", InsideOf(a), {Key::LeftCtrl}, {&b, &a}},
      {"it again", InsideOf(a), {Key::LeftCtrl}, {&b, &a}},
      {"it without Ctrl", InsideOf(a), {}, {&b, &a}},
      {"a comment as well", commentHeader, {Key::LeftCtrl}, {&b, &a, &comment}},
      {"the bare canvas", window.EmptySpot(), {}, {}},
      {"the other Ctrl adds nothing", InsideOf(a), {Key::RightCtrl}, {&a}},
      {"nor does it take out", InsideOf(b), {Key::RightCtrl}, {&b}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    window.Click(c.at, {.held = c.held});
    EXPECT_EQ(Selected(), c.selected);
  }
  // Two groups move with what lies in both, each node once.
  window.Click(InsideOf(a), {.held = {Key::LeftCtrl}});
  const std::string before = window.Exported();
  std::vector<std::pair<BaseNode*, Rect>> inGroups;
  for (const auto& node : graph.ContentNodes())
    for (const GroupNode* group : {&a, &b}) {
      const Rect frame = group->Bounds(), box = node->Bounds();
      if (box.x <= frame.x || box.y <= frame.y || box.Right() >= frame.Right() || box.Bottom() >= frame.Bottom())
        continue;
      inGroups.emplace_back(node.Get(), box);
      break;
    }
  ASSERT_GT(inGroups.size(), 8u);
  window.Drag(header, header + Point{-20, 30});
  for (const auto& [node, box] : inGroups) {
    EXPECT_NEAR(node->Bounds().x, box.x - 20 / zoom, 1);
    EXPECT_NEAR(node->Bounds().y, box.y + 30 / zoom, 1);
  }
  EXPECT_EQ(window.History().Size(), 1u);
  window.Undo();
  EXPECT_EQ(window.Exported(), before);
}

TEST_F(Clicks, PutTheCaretIntoACommentsTextIfThereAreTwoAnywhereOnIt) {
  CommentNode& comment = *graph.CommentNodes()[0];
  window.LookAt(comment);
  auto& text = TestSupport::Named<Toolkit::TextBox>(comment, "CommentTextBox");
  const Rect box = WindowStage::BoxOf(text);
  for (const float height : {2.0f, box.height / 2, box.height - 2}) {
    window.Focus(nullptr);
    const Point at{box.x + 5, box.y + height};
    window.DoubleClick(at);
    EXPECT_TRUE(text.IsFocused()) << height;
  }
}

TEST_F(Clicks, OnAMixedNodeDoNothing) {
  ContentNode& node = NodeInSight("The nest", 0.5f);
  GroupNode& group = *graph.GroupNodes()[1];
  auto* panel = window.View().FindName<NodePanel>("NodePanel");
  window.Click(InsideOf(group));
  ASSERT_EQ(Selected(), std::vector<const BaseNode*>{&group});
  window.Click(BodyOf(node), {.count = 2, .held = {Key::LeftCtrl}});
  EXPECT_EQ(Selected(), std::vector<const BaseNode*>{&group});
  EXPECT_EQ(panel->GetFieldsStack()->ChildCount(), 0u);
}

TEST_F(Clicks, AreClicksWhateverMovesAreTold) {
  ContentNode &a = NodeInSight("The nest", 0.5f), &b = window.Node("Spawn");
  const Rect start = a.Bounds();
  window.Click(BodyOf(a));
  window.Click(BodyOf(b), {.held = {Key::LeftCtrl}});
  const Point body = BodyOf(a);
  window.Press(body);
  for (int i = 0; i < 3; ++i) window.Input().MouseMove(body);
  window.Release(body);
  EXPECT_EQ(Selected(), std::vector<const BaseNode*>{&a});
  EXPECT_EQ(window.History().Size(), 0u);
  // The least move is a drag; one that ends where it began changes nothing, and is no click either.
  window.Click(BodyOf(b), {.held = {Key::LeftCtrl}});
  window.Press(body);
  window.MoveTo(body + Point{1, 0});
  EXPECT_NEAR(a.Bounds().x, start.x + 1 / window.Canvas().GetZoom(), 0.1);
  window.MoveTo(body);
  window.Release(body);
  EXPECT_EQ(a.Bounds(), start);
  EXPECT_EQ(Selected().size(), 2u);
  EXPECT_EQ(window.History().Size(), 0u);
  window.Drag(body, body + Point{1, 0});
  EXPECT_EQ(window.History().Size(), 1u);
  // What a drag has just selected is not just selected for the next click.
  window.Click(window.EmptySpot());
  window.Drag(body, body + Point{1, 0});
  window.Chord({Key::LeftCtrl, Key::A});
  window.Click(body);
  EXPECT_EQ(Selected(), std::vector<const BaseNode*>{&a});
}

TEST_F(Clicks, OpenANodeInThePanelIfThereAreTwo) {
  ContentNode& node = NodeInSight("The nest");
  auto* panel = window.View().FindName<NodePanel>("NodePanel");
  window.Click(BodyOf(node));
  EXPECT_EQ(panel->GetFieldsStack()->ChildCount(), 0u);
  window.DoubleClick(BodyOf(node));
  EXPECT_GT(panel->GetFieldsStack()->ChildCount(), 0u);
  window.Click(window.EmptySpot());
  EXPECT_EQ(panel->GetFieldsStack()->ChildCount(), 0u);
}

} // namespace
} // namespace Tesselor
