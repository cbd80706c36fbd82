#include "NodeTest.h"

#include "nodes/ResizeEdge.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/TextBox.h"

#include <utility>
#include <vector>

namespace Tesselor {

class Frames : public TestSupport::NodeTest {};

TEST_F(Frames, HaveEightZones) {
  const struct {
    Toolkit::Point point;
    ResizeEdge edge;
    const char* cursor;
  } cases[] = {{{5, 5}, ResizeEdge::TopLeft, "SizeNWSE"},     {{95, 5}, ResizeEdge::TopRight, "SizeNESW"},
               {{5, 45}, ResizeEdge::BottomLeft, "SizeNESW"}, {{95, 45}, ResizeEdge::BottomRight, "SizeNWSE"},
               {{50, 5}, ResizeEdge::Top, "SizeNS"},          {{50, 45}, ResizeEdge::Bottom, "SizeNS"},
               {{5, 25}, ResizeEdge::Left, "SizeWE"},         {{95, 25}, ResizeEdge::Right, "SizeWE"},
               {{50, 25}, ResizeEdge::Right, "SizeWE"}};
  for (const auto& c : cases) {
    EXPECT_EQ(EdgeAt(c.point, {100, 50}, 15), c.edge) << c.point.x << "," << c.point.y;
    EXPECT_STREQ(CursorOf(c.edge), c.cursor) << c.point.x << "," << c.point.y;
  }
}

TEST_F(Frames, AreResizedByTheirEdges) {
  GroupNode& group = view->AddGroupNode(400, 300);
  view.Layout();
  const Toolkit::Rect start = group.Bounds();
  const auto boundsAfter = [&](ResizeEdge edge, Toolkit::Point moved) {
    group.Resize(start, edge, moved);
    return group.Bounds();
  };
  EXPECT_EQ(boundsAfter(ResizeEdge::TopLeft, {-10, 20}), (Toolkit::Rect{390, 320, 310, 280}));
  EXPECT_EQ(Toolkit::Canvas::GetZIndex(&group), -86800);
  EXPECT_EQ(group.FindName<Toolkit::Border>("GroupBorder")->GetWidth(), 310);
  EXPECT_EQ(boundsAfter(ResizeEdge::BottomRight, {-10, 20}), (Toolkit::Rect{400, 300, 290, 320}));
  EXPECT_EQ(boundsAfter(ResizeEdge::Right, {5, 5}), (Toolkit::Rect{400, 300, 305, 300}));
  EXPECT_EQ(boundsAfter(ResizeEdge::Top, {5, 5}), (Toolkit::Rect{400, 305, 300, 295}));
  // Beyond the minimum the frame goes on moving.
  EXPECT_EQ(boundsAfter(ResizeEdge::Left, {250, 0}), (Toolkit::Rect{650, 300, 100, 300}));
}

TEST_F(Frames, RaiseTheirOwnEvents) {
  GroupNode& group = view->AddGroupNode(400, 300);
  view->AddCommentNode(1000, 300);
  view.Layout();
  std::vector<std::string> events;
  const auto listen = [&events, this](const Toolkit::RoutedEvent& event, const char* name) {
    view.canvas->AddHandler(
        event, Toolkit::RoutedEventHandler::From([&events, name](auto*, const auto&) { events.emplace_back(name); }));
  };
  listen(GroupNode::GroupResizingEvent, "group edge");
  listen(CommentNode::CommentResizingEvent, "comment edge");
  listen(BaseNode::NodeMouseDownEvent, "down");
  listen(BaseNode::NodeMouseUpEvent, "up");
  Toolkit::InputState input(*view.canvas);
  const auto click = [&input](Toolkit::Point point, uint32_t count) {
    input.MouseMove(point);
    input.MouseDown(Toolkit::MouseButton::Left, point, count);
    input.MouseUp(Toolkit::MouseButton::Left, point);
  };
  click({403, 450}, 1);
  click({1003, 400}, 1);
  click({550, 500}, 1);
  EXPECT_EQ(events, (std::vector<std::string>{"group edge", "comment edge", "down"}));

  click({550, 322}, 2);
  EXPECT_EQ(group.Get<Toolkit::Visibility>(GroupNode::TitleInputVisibilityProperty), Toolkit::Visibility::Visible);
  group.SetZoom(0.4f);
  EXPECT_EQ(group.Get<Toolkit::Visibility>(GroupNode::BigTitleVisibilityProperty), Toolkit::Visibility::Visible);
}

TEST_F(Frames, TellByTheCursorWhatAPressWouldDo) {
  GroupNode& group = view->AddGroupNode(400, 300);
  CommentNode& comment = view->AddCommentNode(1000, 300);
  view.Layout();
  Toolkit::InputState input(*view.canvas);
  // Over what it holds a group keeps its last cursor; the element there has one of its own.
  for (const auto& [point, cursor] : {std::pair(Toolkit::Point{403, 450}, "SizeWE"),
                                      {{697, 597}, "SizeNWSE"},
                                      {{550, 303}, "SizeNS"},
                                      {{550, 500}, "SizeNS"}}) {
    input.MouseMove(point);
    EXPECT_EQ(group.GetString(GroupNode::CursorTypeProperty), cursor) << point.x;
  }
  for (const auto& [point, cursor] : {std::pair(Toolkit::Point{1003, 400}, "SizeWE"),
                                      {{1125, 375}, "Arrow"},
                                      {{1125, 447}, "SizeNS"},
                                      {{1247, 447}, "SizeNWSE"},
                                      {{1016, 316}, "Arrow"}}) {
    input.MouseMove(point);
    EXPECT_EQ(comment.GetString(CommentNode::CursorTypeProperty), cursor) << point.x;
  }
}

TEST_F(Frames, GiveTheTextOfACommentItsSize) {
  CommentNode& comment = view->AddCommentNode(1000, 300);
  view.Layout();
  Toolkit::InputState input(*view.canvas);
  const auto areButtonsShown = [&comment] {
    return comment.Get<Toolkit::Visibility>(CommentNode::FontControlsVisibilityProperty) ==
           Toolkit::Visibility::Visible;
  };
  EXPECT_FALSE(areButtonsShown());
  comment.FindName<Toolkit::TextBox>("CommentTextBox")->Focus();
  view.Layout();
  EXPECT_TRUE(areButtonsShown());
  EXPECT_EQ(comment.CommentFontSize(), 13);
  for (const auto& [button, size] : {std::pair("DecreaseFontBtn", 9.0f),
                                     {"DecreaseFontBtn", 8.0f},
                                     {"DecreaseFontBtn", 8.0f},
                                     {"IncreaseFontBtn", 12.0f},
                                     {"IncreaseFontBigBtn", 32.0f}}) {
    Click(input, *comment.FindName<Toolkit::Button>(button));
    EXPECT_EQ(comment.CommentFontSize(), size) << button;
    EXPECT_TRUE(areButtonsShown()) << "a click leaves the focus in the text";
  }
  comment.SetCommentFontSize(126 + 4);
  EXPECT_EQ(comment.CommentFontSize(), 128);
  input.SetFocus(nullptr);
  EXPECT_FALSE(areButtonsShown());
}

} // namespace Tesselor
