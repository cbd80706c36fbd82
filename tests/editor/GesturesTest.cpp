// What the mouse does on the canvas of the whole window.
#include "WindowStage.h"
#include "editor/NodePanel.h"
#include "nodes/NodePinControl.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/MenuItem.h"
#include "workspace/Workspace.h"

#include <gtest/gtest.h>

#include <functional>

namespace Tesselor {
namespace {

using TestSupport::WindowStage;
using Toolkit::Canvas;
using Toolkit::Key;
using Toolkit::MouseButton;
using Toolkit::Point;
using Toolkit::Ptr;
using Toolkit::Rect;

class Gestures : public testing::Test {
protected:
  Gestures() : window("quest"), graph(window.View().GetGraph()) {}

  /// A node of the tree with siblings, and in the middle of the window.
  ContentNode& NodeInSight(const char* title) {
    ContentNode& node = window.Node(title);
    window.LookAt(node);
    return node;
  }
  /// On the frame of a node's body, where nothing else takes a press.
  Point BodyOf(const BaseNode& node) {
    const Rect box = WindowStage::BoxOf(node);
    return {box.x + box.width / 2, box.Bottom() - 5};
  }
  std::vector<const BaseNode*> Selected() const {
    std::vector<const BaseNode*> nodes;
    for (const auto& node : graph.Selected().GetNodes()) nodes.push_back(node.Get());
    return nodes;
  }

  WindowStage window;
  Graph& graph;
};

TEST_F(Gestures, DragANodeAsOneStep) {
  ContentNode& node = NodeInSight("The nest");
  const std::string before = window.Exported();
  const Rect start = node.Bounds();
  const Point body = BodyOf(node);
  window.Drag(body, {body.x + 40, body.y + 30});
  EXPECT_EQ(node.Bounds().x, start.x + 40);
  EXPECT_EQ(node.Bounds().y, start.y + 30);
  EXPECT_EQ(Selected(), std::vector<const BaseNode*>{&node});
  EXPECT_EQ(window.History().Size(), 1u);
  const std::string after = window.Exported();
  EXPECT_NE(after, before);
  window.Undo();
  EXPECT_EQ(window.Exported(), before);
  window.Redo();
  EXPECT_EQ(window.Exported(), after);
}

TEST_F(Gestures, OrderSiblingsByTheirHeightOnRelease) {
  NodePinData* pin = nullptr;
  for (const auto& node : graph.ContentNodes())
    for (size_t i = 0; i < node->Output().Count() && !pin; ++i)
      if (node->Output().Get(i)->connections.size() > 1) pin = node->Output().Get(i);
  ASSERT_TRUE(pin);
  ContentNode& first = *pin->connections[0]->owner;
  ContentNode& second = *pin->connections[1]->owner;
  window.LookAt(first, 0.2f);
  const std::string before = window.Exported();
  const Point body = BodyOf(first);
  window.Press(body);
  window.MoveTo({body.x, body.y + WindowStage::BoxOf(second).y - WindowStage::BoxOf(first).y + 5});
  EXPECT_EQ(first.arrayIndex, 0);
  window.Release({body.x, body.y + WindowStage::BoxOf(second).y - WindowStage::BoxOf(first).y + 5});
  EXPECT_EQ(first.arrayIndex, 1);
  EXPECT_EQ(second.arrayIndex, 0);
  EXPECT_EQ(pin->connections[1]->owner, &first);
  window.Undo();
  EXPECT_EQ(first.arrayIndex, 0);
  EXPECT_EQ(window.Exported(), before);
}

TEST_F(Gestures, EndOrAreCancelledWhateverHappens) {
  ContentNode& node = NodeInSight("The nest");
  GroupNode& group = *graph.GroupNodes()[0];
  const std::string before = window.Exported();
  const Rect start = node.Bounds();
  struct Case {
    const char* what;
    std::function<void()> end;
    bool keeps;
  };
  const Case cases[] = {
      {"released outside the window",
       [this] {
         window.Release({-50, -60});
       },
       true},
      {"released over the menu bar",
       [this] {
         window.Release({300, 10});
       },
       true},
      {"Escape", [this] { window.Press(Key::Escape); }, false},
      {"the window loses the system's focus", [this] { window.Input().ReleaseAll(); }, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const Point body = BodyOf(node);
    window.Press(body);
    window.MoveTo({body.x + 20, body.y + 20});
    EXPECT_NE(node.Bounds(), start);
    c.end();
    window.Release({body.x, body.y});
    EXPECT_EQ(window.History().Size(), c.keeps ? 1u : 0u);
    if (c.keeps) window.Undo();
    window.History().Clear();
    EXPECT_EQ(node.Bounds(), start);
    EXPECT_EQ(window.Exported(), before);

    // The rectangle goes, and the next move does nothing.
    const Point empty = window.EmptySpot();
    window.Press(empty);
    window.MoveTo({empty.x + 30, empty.y + 30});
    EXPECT_GT(window.Canvas().GetSelectedArea()->GetWidth(), 1);
    c.end();
    window.Release(empty);
    EXPECT_EQ(window.Canvas().GetSelectedArea()->GetWidth(), 0);
    window.MoveTo({empty.x + 60, empty.y + 60});
    EXPECT_EQ(window.Canvas().GetSelectedArea()->GetWidth(), 0);
    window.KeyDown(Key::LeftShift);
    window.Press(empty);
    window.MoveTo({empty.x + 30, empty.y + 30});
    EXPECT_NE(window.Canvas().GetCutLine()->GetX2(), 0);
    c.end();
    window.KeyUp(Key::LeftShift);
    window.Release(empty);
    EXPECT_EQ(window.Canvas().GetCutLine()->GetX2(), 0);

    // A curve that follows the mouse goes too.
    const size_t children = graph.Panel().ChildCount();
    window.Press(window.Pin(node, node.FirstInput()->blueprint->id));
    EXPECT_EQ(graph.Panel().ChildCount(), children + 1);
    c.end();
    window.Release(empty);
    EXPECT_EQ(graph.Panel().ChildCount(), children);
  }
  // So does a resize.
  window.LookAt(group, 0.2f);
  const Rect frame = group.Bounds();
  const Rect box = WindowStage::BoxOf(*group.FindName<Toolkit::Border>("GroupBorder"));
  window.Press({box.x + 2, box.y + box.height / 2});
  window.MoveTo({box.x - 18, box.y + box.height / 2});
  EXPECT_NEAR(group.Bounds().x, frame.x - 20 / window.Canvas().GetZoom(), 0.5);
  window.Press(Key::Escape);
  EXPECT_EQ(group.Bounds(), frame);
  window.Release({box.x, box.y});
  EXPECT_EQ(window.History().Size(), 0u);
  EXPECT_EQ(window.Exported(), before);
}

TEST_F(Gestures, SelectByClicksAndRectangles) {
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

TEST_F(Gestures, DragAGroupWithWhatLiesInIt) {
  GroupNode& group = *graph.GroupNodes()[0];
  const Rect frame = group.Bounds();
  std::vector<ContentNode*> inside, outside;
  for (const auto& node : graph.ContentNodes()) {
    const Rect box = node->Bounds();
    const bool isInside =
        box.x > frame.x && box.y > frame.y && box.Right() < frame.Right() && box.Bottom() < frame.Bottom();
    (isInside ? inside : outside).push_back(node.Get());
  }
  ASSERT_FALSE(inside.empty() || outside.empty());
  window.LookAt(group, 0.3f);
  const std::string before = window.Exported();
  const Point insideAt{inside[0]->Bounds().x, inside[0]->Bounds().y}, outsideAt{outside[0]->Bounds().x, 0};
  const Rect box = WindowStage::BoxOf(*group.FindName<Toolkit::Border>("GroupBorder"));
  const Point header{box.x + box.width / 2, box.y + 12};
  const float zoom = window.Canvas().GetZoom();
  window.Drag(header, {header.x + 30, header.y + 15});
  EXPECT_NEAR(group.Bounds().x, frame.x + 30 / zoom, 0.2);
  EXPECT_NEAR(inside[0]->Bounds().x, insideAt.x + 30 / zoom, 0.2);
  EXPECT_NEAR(inside[0]->Bounds().y, insideAt.y + 15 / zoom, 0.2);
  EXPECT_EQ(outside[0]->Bounds().x, outsideAt.x);
  EXPECT_EQ(window.History().Size(), 1u);
  window.Undo();
  EXPECT_EQ(window.Exported(), before);
}

TEST_F(Gestures, ResizeAFrameAsOneStep) {
  GroupNode& group = *graph.GroupNodes()[0];
  window.LookAt(group, 0.3f);
  const std::string before = window.Exported();
  const Rect frame = group.Bounds();
  const Rect box = WindowStage::BoxOf(*group.FindName<Toolkit::Border>("GroupBorder"));
  window.Click({box.x + 2, box.y + box.height / 2});
  EXPECT_EQ(window.History().Size(), 0u) << "a press on the frame without a move";
  window.Drag({box.x + 2, box.y + 2}, {box.x - 18, box.y + 12});
  const float zoom = window.Canvas().GetZoom();
  EXPECT_NEAR(group.Bounds().x, frame.x - 20 / zoom, 0.2);
  EXPECT_NEAR(group.Bounds().Bottom(), frame.Bottom(), 0.2);
  EXPECT_EQ(window.History().Size(), 1u);
  window.Undo();
  EXPECT_EQ(window.Exported(), before);
}

TEST(GesturesOfPins, ConnectAndCut) {
  const TestSupport::TestWorkspace workspace(
      {R"({"id": "A", "title": "A", "color": "red", "inputs": [{"id": "In", "Type": "T", "color": "red"}],
           "outputs": [{"id": "Out", "Type": "T", "color": "red", "Multiple": true}],
           "Schema": {"Items": {"node": "A", "pin": "Out"}}})"});
  WindowStage window({.directory = workspace.Path()});
  Graph& graph = window.View().GetGraph();
  ContentNode& parent = *graph.ContentNodes().at(0);
  const Ptr<ContentNode> child = window.View().CurrentRoot()->workspace->nodeDictionary->CreateNode("A", true);
  graph.Add(*child, {parent.Bounds().x + 500, parent.Bounds().y + 100});
  window.LookAt(parent);
  const std::string before = window.Exported();
  const Point in = WindowStage::MiddleOf(window.Pin(*child, "In")),
              out = WindowStage::MiddleOf(window.Pin(parent, "Out"));

  // Dropped on nothing, on its own node or on a pin of the same side, a curve goes again.
  window.Drag(out, {out.x + 100, out.y + 200});
  window.Drag(out, WindowStage::MiddleOf(window.Pin(*child, "Out")));
  EXPECT_EQ(window.History().Size(), 0u);
  EXPECT_TRUE(graph.Connections().GetConnections().empty());

  window.Drag(out, in);
  ASSERT_EQ(graph.Connections().GetConnections().size(), 1u);
  const Ptr<Connection> connection = graph.Connections().GetConnections().front();
  EXPECT_EQ(child->arrayIndex, 0);
  EXPECT_EQ(window.History().Size(), 1u);
  const std::string connected = window.Exported();
  EXPECT_NE(connected, before);
  window.Drag(in, out);
  EXPECT_EQ(window.History().Size(), 1u) << "they are connected already";

  // A click on a pin, or on the curve, selects it; a click beside it does not.
  window.Click(in);
  EXPECT_TRUE(connection->IsShownSelected());
  window.Click(window.EmptySpot());
  EXPECT_FALSE(connection->IsShownSelected());
  const Point middle{(in.x + out.x) / 2, (in.y + out.y) / 2};
  window.Click(middle);
  EXPECT_TRUE(connection->IsShownSelected());
  window.Click(middle);
  EXPECT_FALSE(connection->IsShownSelected());

  // A line across the curve selects it, or cuts it if Ctrl is held.
  const Point above{middle.x + 30, middle.y - 60}, below{middle.x - 30, middle.y + 60};
  window.Drag(above, below, {.held = {Key::LeftShift}});
  EXPECT_TRUE(connection->IsShownSelected());
  EXPECT_EQ(window.History().Size(), 1u);
  window.Drag({above.x, above.y - 200}, {below.x, above.y - 100}, {.held = {Key::LeftCtrl, Key::LeftShift}});
  EXPECT_EQ(window.History().Size(), 1u) << "a line that meets nothing";
  window.Drag(above, below, {.held = {Key::LeftCtrl, Key::LeftShift}});
  EXPECT_TRUE(graph.Connections().GetConnections().empty());
  EXPECT_EQ(child->arrayIndex, -1);
  EXPECT_EQ(window.History().Size(), 2u);
  window.Undo();
  EXPECT_EQ(window.Exported(), connected);
  EXPECT_TRUE(connection->GetPath().IsAttached());
  window.Undo();
  EXPECT_EQ(window.Exported(), before);
  window.Redo();
  window.Redo();
  EXPECT_EQ(window.Exported(), before);

  // By the pin's menu, with which one pin may be connected to several in a row.
  const Ptr<ContentNode> second = window.View().CurrentRoot()->workspace->nodeDictionary->CreateNode("A", true);
  graph.Add(*second, {parent.Bounds().x + 500, parent.Bounds().y - 100});
  window.Settle();
  const auto choose = [&window](const char* item) {
    for (Toolkit::MenuItem* each : TestSupport::All<Toolkit::MenuItem>(window.Root()))
      if (each->GetHeader().AsStringView() == item) {
        window.Click(*each);
        return;
      }
    FAIL() << "no item " << item;
  };
  window.RightClick(window.Pin(parent, "Out"));
  choose("Start Connection");
  for (const Ptr<ContentNode>& node : {child, second}) {
    window.RightClick(window.Pin(*node, "In"));
    choose("Complete Connection");
    EXPECT_EQ(node->FirstInput()->connections.size(), 1u);
  }
  EXPECT_EQ(child->arrayIndex, 1);
  EXPECT_EQ(second->arrayIndex, 0);
  window.RightClick(window.Pin(*child, "In"));
  choose("Cancel Connection");
  window.RightClick(window.Pin(*child, "In"));
  EXPECT_TRUE(window.Shows("Start Connection"));
  EXPECT_FALSE(window.Shows("Cancel Connection"));
}

TEST_F(Gestures, OpenANodeInThePanelByADoubleClick) {
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
