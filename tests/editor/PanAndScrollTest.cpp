// How the mouse moves the view: by panning, and by a gesture near the view's edge.
#include "GestureTest.h"
#include "editor/NodesMenu.h"
#include "editor/StatusLine.h"
#include "toolkit/base/Dispatcher.h"

#include <cmath>
#include <functional>

namespace Tesselor {
namespace {

using TestSupport::MouseUse;
using TestSupport::WindowStage;
using Toolkit::Key;
using Toolkit::MouseButton;
using Toolkit::Point;
using Toolkit::Rect;

class PanAndScroll : public TestSupport::GestureTest {
protected:
  Point Translation() const { return window.Canvas().GetTranslation(); }
  NodesMenu& Menu() const { return *window.Canvas().GetNodesMenu(); }
  void ExpectView(Point expected, const char* why = "") const {
    EXPECT_NEAR(Translation().x, expected.x, 0.2) << why;
    EXPECT_NEAR(Translation().y, expected.y, 0.2) << why;
  }
  Toolkit::TextBox& FieldBox(ContentNode& node) { return window.FieldPart<Toolkit::TextBox>(node, FieldOf(node)); }
  static const std::string& FieldOf(const ContentNode& node) { return node.contentFields.begin()->first; }
};

TEST_F(PanAndScroll, PanByTheMiddleButtonAndBySpaceOverEverything) {
  ContentNode& node = NodeInSight("The nest", 0.5f);
  GroupNode& group = *graph.GroupNodes()[1];
  const std::string before = window.Exported();
  const std::pair<const char*, std::function<Point()>> places[] = {
      {"the canvas", [&] { return window.EmptySpot(); }},
      {"a node", [&] { return BodyOf(node); }},
      {"a title", [&] { return WindowStage::MiddleOf(TitleOf(node)); }},
      {"a pin", [&] { return InputOf(node); }},
      {"a connection", [&] { return CurveTo(node); }},
      {"a text box", [&] { return WindowStage::MiddleOf(FieldBox(node)); }},
      {"a button", [&] { return WindowStage::MiddleOf(TestSupport::Named(node, "CommentToggleButton")); }},
      {"the header of a group", [&] { return HeaderOf(group, 0.3f); }},
      {"the inside of a group",
       [&] {
         return HeaderOf(group, 0.3f) + Point{0, 12};
       }},
      {"the edge of a group",
       [&] {
         return HeaderOf(group, 0.3f) + Point{0, -10};
       }},
      {"the text of a comment",
       [&] {
         window.LookAt(BorderOf(Comment()));
         return WindowStage::MiddleOf(TestSupport::Named(Comment(), "CommentTextBox"));
       }},
  };
  const std::pair<const char*, MouseUse> uses[] = {{"the middle button", {.button = MouseButton::Middle}},
                                                   {"Space", {.held = {Key::Space}}}};
  for (const auto& [what, use] : uses) {
    for (const auto& [where, place] : places) {
      SCOPED_TRACE(std::string(what) + " on " + where);
      window.LookAt(node, 0.5f);
      const Point from = place(), way{-40, -25}, start = Translation();
      const Toolkit::UIElement* focused = window.Input().Focused();
      window.Drag(from, from + way, use);
      ExpectView(start + way);
      window.Drag(from + way, from, use);
      ExpectView(start);
      window.Click(from, use);
      ExpectView(start, "a click");
      EXPECT_EQ(window.Input().Focused(), focused);
      EXPECT_EQ(window.Input().Captured(), nullptr);
      EXPECT_TRUE(Selected().empty());
      EXPECT_TRUE(graph.Connections().Selected().empty());
      EXPECT_FALSE(Menu().IsOpen());
      EXPECT_EQ(node.Get<Toolkit::Visibility>(ContentNode::CommentBlockVisibilityProperty),
                Toolkit::Visibility::Collapsed);
    }
  }
  EXPECT_EQ(window.History().Size(), 0u);
  EXPECT_EQ(window.Exported(), before);
}

TEST_F(PanAndScroll, SpaceIsTextWhereItIsTyped) {
  ContentNode& node = NodeInSight();
  const Rect bounds = node.Bounds();
  const Point start = Translation(), body = BodyOf(node);
  window.Click(FieldBox(node));
  window.Drag(body, body + Point{30, 20}, {.held = {Key::Space}});
  ExpectView(start);
  EXPECT_EQ(node.Bounds().x, bounds.x + 30);
  // The press on the node has taken the focus.
  window.Drag(body, body + Point{30, 20}, {.held = {Key::Space}});
  ExpectView(start + Point{30, 20});
}

TEST_F(PanAndScroll, WhoHasTheMouseKeepsIt) {
  ContentNode& node = NodeInSight();
  const Point start = Translation();
  auto& box = FieldBox(node);
  const Point middle = WindowStage::MiddleOf(box);
  window.Press(middle);
  for (const MouseButton button : {MouseButton::Middle, MouseButton::Right}) {
    window.Press(middle, button);
    window.MoveTo(middle + Point{-60, 0});
    EXPECT_EQ(window.Input().Captured(), &box);
    window.Release(middle, button);
  }
  EXPECT_GT(box.SelectionLength(), 0u);
  window.Release(middle);
  ExpectView(start);
}

TEST_F(PanAndScroll, EscapeGivesTheViewBack) {
  NodeInSight();
  const Point start = Translation(), spot = window.EmptySpot();
  for (const MouseButton button : {MouseButton::Middle, MouseButton::Right}) {
    window.Press(spot, button);
    window.MoveTo(spot + Point{-70, -45});
    ExpectView(start + Point{-70, -45});
    window.Press(Key::Escape);
    ExpectView(start);
    window.MoveTo(spot);
    window.Release(spot, button);
    ExpectView(start);
    EXPECT_FALSE(Menu().IsOpen());
  }
  // At another zoom that place is elsewhere: the view stays.
  window.Press(spot, MouseButton::Middle);
  window.MoveTo(spot + Point{-70, -45});
  window.Wheel(spot + Point{-70, -45}, -1);
  const Point zoomed = Translation();
  window.Press(Key::Escape);
  EXPECT_EQ(Translation(), zoomed);
}

TEST_F(PanAndScroll, TheMenuClosesWhenThePanMovesTheView) {
  ContentNode& node = NodeInSight("The nest", 0.5f);
  const Point start = Translation(), spot = window.EmptySpot(), pin = InputOf(node);
  const Point beside{150, 600};
  const size_t children = graph.Panel().ChildCount();
  const auto drop = [&] {
    window.Drag(pin, spot);
    EXPECT_TRUE(Menu().IsOpen());
    EXPECT_EQ(graph.Panel().ChildCount(), children + 1);
  };
  drop();
  window.Drag(WindowStage::MiddleOf(Menu()), WindowStage::MiddleOf(Menu()) + Point{20, 20},
              {.button = MouseButton::Middle});
  ExpectView(start, "the menu is no part of the canvas");
  window.Click(beside, {.button = MouseButton::Middle});
  EXPECT_TRUE(Menu().IsOpen()) << "a middle click does nothing";
  window.Drag(beside, beside + Point{20, 20}, {.button = MouseButton::Middle});
  EXPECT_FALSE(Menu().IsOpen());
  EXPECT_EQ(graph.Panel().ChildCount(), children) << "the dropped curve goes with the menu";
  window.Drag(beside + Point{20, 20}, beside, {.button = MouseButton::Middle});
  // Space is the left button's only.
  window.Click(beside, {.button = MouseButton::Right, .held = {Key::Space}});
  EXPECT_TRUE(Menu().IsOpen());
  window.Press(Key::Escape);
  // A right click elsewhere asks for a menu of its own.
  drop();
  window.RightClick(beside);
  EXPECT_TRUE(Menu().IsOpen());
  EXPECT_TRUE(Menu().GetFilter().IsDefault());
  EXPECT_EQ(graph.Panel().ChildCount(), children);
}

TEST_F(PanAndScroll, EscapeTakesAGestureTheMenuAndADroppedCurveBack) {
  ContentNode& node = NodeInSight("The nest", 0.5f);
  const std::string before = window.Exported();
  const Point start = Translation(), spot = window.EmptySpot(), beside{150, 600};
  const size_t children = graph.Panel().ChildCount();
  for (const MouseButton button : {MouseButton::Left, MouseButton::Middle, MouseButton::Right}) {
    window.Drag(InputOf(node), spot);
    EXPECT_TRUE(Menu().IsOpen());
    window.Press(beside, button);
    window.MoveTo(beside + Point{30, 30});
    window.Press(Key::Escape);
    EXPECT_FALSE(Menu().IsOpen());
    window.Release(beside + Point{30, 30}, button);
    EXPECT_FALSE(Menu().IsOpen());
    EXPECT_EQ(graph.Panel().ChildCount(), children);
    EXPECT_EQ(window.Canvas().GetSelectedArea()->GetWidth(), 0);
    ExpectView(start);
  }
  EXPECT_EQ(window.History().Size(), 0u);
  EXPECT_EQ(window.Exported(), before);
}

/// Each gesture that scrolls, begun in the middle of the window, and what of it follows the mouse.
TEST_F(PanAndScroll, AGestureAtTheEdgeScrollsAndGoesOn) {
  ContentNode& node = NodeInSight("The nest", 0.5f);
  GroupNode& group = *graph.GroupNodes()[1];
  window.Canvas().SetTranslationClamped(Translation().x + 300, Translation().y + 100);
  const BasicRectangle& band = *window.Canvas().GetSelectedArea();
  const BasicLine& line = *window.Canvas().GetCutLine();
  const std::string before = window.Exported();
  const Point empty = window.EmptySpot();
  const Rect frame = WindowStage::BoxOf(BorderOf(group));
  struct Case {
    const char* what;
    Point from;
    std::vector<Key> held;
    /// A point of the panel that the gesture keeps at the same distance from the mouse.
    std::function<Point()> follows;
  };
  const Case cases[] = {
      {"a node",
       BodyOf(node),
       {},
       [&] {
         return Point{node.Bounds().x, node.Bounds().y};
       }},
      {"a group by its header",
       {frame.x + 600, frame.y + 14},
       {},
       [&] {
         return Point{group.Bounds().x, group.Bounds().y};
       }},
      {"the edge of a group",
       {frame.x + 2, frame.y + 300},
       {},
       [&] {
         return Point{group.Bounds().x, window.Canvas().MousePosition().y};
       }},
      {"a connection",
       InputOf(node),
       {},
       [&] {
         const auto& path = static_cast<const ConnectionPath&>(*graph.Panel().Child(graph.Panel().ChildCount() - 1));
         return path.GetCurve()[3];
       }},
      {"the rectangle",
       empty,
       {},
       [&] {
         return Point{band.GetX(), band.GetY()};
       }},
      {"the cut line",
       empty,
       {Key::LeftShift},
       [&] {
         return Point{line.GetX2(), line.GetY2()};
       }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const Point start = Translation(), edge{5, 70};
    for (const Key key : c.held) window.KeyDown(key);
    window.Press(c.from);
    window.MoveTo(edge);
    const Point held = c.follows() - window.ToPanel(edge);
    window.Wait(400);
    EXPECT_GT(Translation().x, start.x + 100);
    EXPECT_GT(Translation().y, start.y + 100);
    EXPECT_NEAR((c.follows() - window.ToPanel(edge)).x, held.x, 0.3);
    EXPECT_NEAR((c.follows() - window.ToPanel(edge)).y, held.y, 0.3);
    window.Press(Key::Escape);
    for (const Key key : c.held) window.KeyUp(key);
    window.Wait(400);
    EXPECT_EQ(Translation(), start) << "it ends with the gesture";
    window.Release(edge);
    EXPECT_EQ(window.Exported(), before);
  }
  // A drag that ends leaves what it carried where the mouse was.
  const float left = node.Bounds().x;
  window.Press(BodyOf(node));
  window.MoveTo({1275, 400});
  window.Wait(400);
  window.Release({1275, 400});
  EXPECT_GT(node.Bounds().x, left + 2 * 500);
  EXPECT_TRUE(Rect(0, 0, 1280, 800).Intersects(WindowStage::BoxOf(node)));
  const Point end = Translation();
  window.Wait(400);
  EXPECT_EQ(Translation(), end);
  window.Undo();
  EXPECT_EQ(window.Exported(), before);
}

TEST_F(PanAndScroll, ScrollsTheFasterTheNearerTheEdge) {
  NodeInSight("The nest", 0.5f);
  const Point start = Translation();
  // Where the mouse rests in a view from (0, 50) to (1280, 800), and where the view's content goes.
  const struct {
    Point at;
    Point direction;
  } cases[] = {{{1260, 400}, {-1, 0}},  {{20, 400}, {1, 0}},  {{640, 780}, {0, -1}}, {{640, 70}, {0, 1}},
               {{1260, 780}, {-1, -1}}, {{20, 780}, {1, -1}}, {{640, 400}, {0, 0}},  {{1239, 400}, {0, 0}}};
  const auto scrolled = [&](Point at) {
    window.Press({700, 300});
    window.MoveTo(at);
    window.Wait(500);
    const Point way = Translation() - start;
    window.Press(Key::Escape);
    window.Release(at);
    return way;
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.at.x) + " " + std::to_string(c.at.y));
    const Point way = scrolled(c.at);
    EXPECT_NEAR(way.x, 150 * c.direction.x, 6);
    EXPECT_NEAR(way.y, 150 * c.direction.y, 6);
  }
  float former = 0;
  for (const float x : {1245.0f, 1260.0f, 1279.0f, 1300.0f, 1360.0f}) {
    const float way = -scrolled({x, 400}).x;
    EXPECT_GT(way, former) << x;
    former = way;
  }
  EXPECT_NEAR(-scrolled({9000, 400}).x, former, 6) << "there is an end to it";
}

TEST_F(PanAndScroll, APressAtTheEdgeDoesNotScroll) {
  ContentNode& node = NodeInSight("The nest", 0.5f);
  window.Canvas().SetTranslationClamped(Translation().x + 1270 - WindowStage::BoxOf(node).Right(), Translation().y);
  window.Settle();
  const Point start = Translation();
  const Rect box = WindowStage::BoxOf(node);
  const Point press{box.Right() - 10, box.Bottom() - 3};
  ASSERT_GT(press.x, 1250);
  window.Press(press);
  window.Wait(300);
  ExpectView(start, "nothing has moved");
  window.MoveTo(press + Point{-8, 0});
  window.Wait(300);
  ExpectView(start, "away from the edge");
  window.MoveTo(press + Point{4, 0});
  window.Wait(300);
  EXPECT_LT(Translation().x, start.x) << "nearer again than it was meanwhile";
  window.MoveTo({640, 400});
  window.Wait(StatusLine::FreshFor);
  EXPECT_FALSE(Toolkit::Dispatcher::Current().HasWork()) << "away from the edge nothing is due";
  window.Press(Key::Escape);
  window.Release({640, 400});
  // Nor does a pan, which moves the view itself.
  const Point now = Translation();
  window.Press({640, 400}, MouseButton::Middle);
  window.MoveTo({1275, 400});
  window.Wait(StatusLine::FreshFor);
  ExpectView(now + Point{635, 0});
  EXPECT_FALSE(Toolkit::Dispatcher::Current().HasWork());
  window.Release({1275, 400}, MouseButton::Middle);
}

TEST_F(PanAndScroll, GoesOnOutsideOfTheWindow) {
  ContentNode& node = NodeInSight("The nest", 0.5f);
  const Point start = Translation();
  window.Press(BodyOf(node));
  window.MoveTo({1300, 400});
  window.Leave();
  window.Wait(200);
  EXPECT_LT(Translation().x, start.x - 50);
  EXPECT_NEAR(Translation().y, start.y, 0.2);
  window.Release({1300, 400});
}

} // namespace
} // namespace Tesselor
