// What the mouse does on the canvas of the whole window.
#include "GestureTest.h"
#include "toolkit/controls/MenuItem.h"
#include "workspace/Workspace.h"

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

class Gestures : public TestSupport::GestureTest {};

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

TEST_F(Gestures, LeaveOtherButtonsAlone) {
  ContentNode& node = NodeInSight("The nest", 0.5f);
  const Point body = BodyOf(node), empty = window.EmptySpot(), way{-30, -20};
  const Rect frame = WindowStage::BoxOf(BorderOf(*graph.GroupNodes()[1]));
  const struct {
    const char* what;
    Point from;
    MouseButton button;
    std::vector<Key> held;
  } gestures[] = {
      {"a drag", body, MouseButton::Left, {}},
      {"a rectangle", empty, MouseButton::Left, {}},
      {"a cut", empty, MouseButton::Left, {Key::LeftShift}},
      {"a connection", InputOf(node), MouseButton::Left, {}},
      {"a resize", {frame.x + 3, frame.y + 300}, MouseButton::Left, {}},
      {"a pan", empty, MouseButton::Right, {}},
      {"a pan by the middle button", empty, MouseButton::Middle, {}},
  };
  const Point view = window.Canvas().GetTranslation();
  const auto play = [&](const auto& gesture, bool disturbed) {
    for (const Key key : gesture.held) window.KeyDown(key);
    window.Press(gesture.from, gesture.button);
    for (int step = 1; step <= 2; ++step) {
      const Point at{gesture.from.x + way.x * static_cast<float>(step),
                     gesture.from.y + way.y * static_cast<float>(step)};
      window.MoveTo(at);
      for (const MouseButton other : {MouseButton::Left, MouseButton::Middle, MouseButton::Right}) {
        if (!disturbed || other == gesture.button) continue;
        window.Press(at, other);
        window.Release(at, other);
      }
    }
    window.Release(gesture.from + way + way, gesture.button);
    for (const Key key : gesture.held) window.KeyUp(key);
    const std::string story = window.Exported() + std::to_string(window.History().Size()) + " " +
                              std::to_string(Selected().size()) + " " +
                              std::to_string(graph.Connections().Selected().size()) + " " +
                              std::to_string(window.Canvas().GetTranslation().x) + " " +
                              (window.Canvas().GetNodesMenu()->IsOpen() ? "menu" : "");
    EXPECT_EQ(window.Input().Captured(), nullptr);
    while (window.History().Size() > window.History().UndoneCount()) window.Undo();
    window.History().Clear();
    window.Press(Key::Escape);
    window.Click(window.EmptySpot());
    window.Canvas().SetTranslationClamped(view.x, view.y);
    window.Settle();
    return story;
  };
  for (const auto& gesture : gestures) EXPECT_EQ(play(gesture, true), play(gesture, false)) << gesture.what;

  // What is left of a cancelled drag, a held button, does not turn another button's press into one of its own.
  const auto pressAfterEscape = [&](Point at) {
    window.Press(at);
    window.Press(Key::Escape);
    window.Press(at, MouseButton::Right);
    EXPECT_EQ(window.Input().Captured(), nullptr);
    window.Release(at, MouseButton::Right);
    window.Release(at);
  };
  pressAfterEscape(body);
  pressAfterEscape(HeaderOf(Comment(), 0.5f));
}

TEST_F(Gestures, DoNothingByARightPressOnANodeOrAConnection) {
  ContentNode& node = NodeInSight("The nest", 0.5f);
  const std::string before = window.Exported();
  const Point view = window.Canvas().GetTranslation();
  for (const Point at : {BodyOf(node), WindowStage::MiddleOf(TitleOf(node)), CurveTo(node)}) {
    window.Drag(at, at + Point{20, 20}, {.button = MouseButton::Right});
    window.RightClick(at);
    EXPECT_EQ(window.Canvas().GetTranslation(), view);
    EXPECT_FALSE(window.Canvas().GetNodesMenu()->IsOpen());
    EXPECT_TRUE(Selected().empty());
  }
  EXPECT_EQ(window.Exported(), before);
}

TEST_F(Gestures, ResizeAFrameByEachEdgeAsOneStep) {
  for (FrameNode* frame : std::initializer_list<FrameNode*>{&Group(), &Comment()}) {
    const bool isGroup = Toolkit::DynamicCast<GroupNode>(frame) != nullptr;
    HeaderOf(*frame, isGroup ? 0.2f : 1);
    const float zoom = window.Canvas().GetZoom();
    const std::string before = window.Exported();
    const Rect start = frame->Bounds(), box = WindowStage::BoxOf(BorderOf(*frame));
    const float left = box.x + 3, top = box.y + 3, right = box.Right() - 3, bottom = box.Bottom() - 3;
    const float x = box.x + box.width / 2, y = box.y + box.height / 2;
    // How much of a move goes into the place and the size.
    const std::pair<Point, Rect> cases[] = {
        {{left, y}, {1, 0, -1, 0}},      {{right, y}, {0, 0, 1, 0}},      {{x, top}, {0, 1, 0, -1}},
        {{x, bottom}, {0, 0, 0, 1}},     {{left, top}, {1, 1, -1, -1}},   {{right, top}, {0, 1, 1, -1}},
        {{left, bottom}, {1, 0, -1, 1}}, {{right, bottom}, {0, 0, 1, 1}},
    };
    for (const auto& [at, share] : cases) {
      SCOPED_TRACE(std::string(frame->Title()) + " " + std::to_string(at.x) + " " + std::to_string(at.y));
      window.Click(at);
      EXPECT_EQ(window.History().Size(), 0u) << "a press without a move";
      window.Drag(at, at + Point{8, -6});
      const Point moved{8 / zoom, -6 / zoom};
      const Rect now = frame->Bounds();
      EXPECT_NEAR(now.x, start.x + share.x * moved.x, 0.3);
      EXPECT_NEAR(now.y, start.y + share.y * moved.y, 0.3);
      EXPECT_NEAR(now.width, start.width + share.width * moved.x, 0.3);
      EXPECT_NEAR(now.height, start.height + share.height * moved.y, 0.3);
      EXPECT_EQ(window.History().Size(), 1u);
      window.Undo();
      EXPECT_EQ(window.Exported(), before);
      window.History().Clear();
    }
    EXPECT_FALSE(frame->IsSelected());
  }
}

TEST_F(Gestures, DragAGroupFromItsInside) {
  GroupNode& group = *graph.GroupNodes()[1];
  NodeInSight("The nest", 0.5f);
  const Rect start = group.Bounds();
  const Point inside = InsideOf(group);
  window.Drag(inside, inside + Point{25, -15});
  EXPECT_NEAR(group.Bounds().x, start.x + 25 / window.Canvas().GetZoom(), 0.2);
  EXPECT_NEAR(group.Bounds().y, start.y - 15 / window.Canvas().GetZoom(), 0.2);
  EXPECT_EQ(window.History().Size(), 1u);
}

TEST(GesturesInPictures, DrawTheirMarksAboveTheNodesAtOneWidth) {
  WindowStage window({.document = "quest", .frames = TestSupport::Stage::Frames::Drawn});
  const ContentNode* node = nullptr;
  for (const auto& each : window.View().ContentNodes())
    if (each->TypeId() == "ReputationCondition") node = each.Get();
  ASSERT_TRUE(node);
  // Of the pixels across a line at a point of it, how many have the line's colour.
  const auto thickness = [&](Point at, Point across, int red, int green, int blue) {
    const TestSupport::Picture& shown = window.Shown();
    int pixels = 0;
    for (float step = -8; step <= 8; ++step) {
      const int x = static_cast<int>(at.x + across.x * step), y = static_cast<int>(at.y + across.y * step);
      pixels +=
          std::abs(shown.Red(x, y) - red) + std::abs(shown.Green(x, y) - green) + std::abs(shown.Blue(x, y) - blue) <
          60;
    }
    return pixels;
  };
  for (const int notches : {4, 0, -20}) {
    SCOPED_TRACE(notches);
    window.LookAt(*node);
    for (int i = 0; i < std::abs(notches); ++i) window.Wheel(window.Canvas(), notches > 0 ? 1.0f : -1.0f);
    const Point empty = window.EmptySpot(), middle = WindowStage::MiddleOf(*node);
    window.Press(empty);
    window.MoveTo(middle);
    const int edge = thickness({middle.x, middle.y + 9}, {1, 0}, 0x1e, 0x90, 0xff);
    EXPECT_GE(edge, 1);
    EXPECT_LE(edge, 3);
    window.Press(Key::Escape);
    window.Release(middle);
    // A level line, through the node from its middle on. It is dashed.
    window.KeyDown(Key::LeftShift);
    window.Press({1270, middle.y});
    window.KeyUp(Key::LeftShift);
    window.MoveTo(middle);
    int line = 0;
    for (float x = 0; x < 30; ++x) line = std::max(line, thickness({middle.x + x, middle.y}, {0, 1}, 0xff, 0x45, 0x00));
    EXPECT_GE(line, 2);
    EXPECT_LE(line, 4);
    window.Press(Key::Escape);
    window.Release(middle);
  }
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

} // namespace
} // namespace Tesselor
