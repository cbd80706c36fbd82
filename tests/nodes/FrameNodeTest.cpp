#include "NodeTest.h"

#include "nodes/ResizeEdge.h"
#include "toolkit/controls/Border.h"
#include "toolkit/visual/Input.h"

#include <utility>
#include <vector>

namespace Tesselor {

class Frames : public TestSupport::NodeTest {};

TEST_F(Frames, HaveEightZones) {
  const std::vector<std::pair<Toolkit::Point, ResizeEdge>> cases = {
      {{5, 5}, ResizeEdge::TopLeft},       {{95, 5}, ResizeEdge::TopRight}, {{5, 45}, ResizeEdge::BottomLeft},
      {{95, 45}, ResizeEdge::BottomRight}, {{50, 5}, ResizeEdge::Top},      {{50, 45}, ResizeEdge::Bottom},
      {{5, 25}, ResizeEdge::Left},         {{95, 25}, ResizeEdge::Right},   {{50, 25}, ResizeEdge::Right}};
  for (const auto& [point, edge] : cases) EXPECT_EQ(EdgeAt(point, {100, 50}, 15), edge) << point.x << "," << point.y;
  EXPECT_STREQ(CursorOf(ResizeEdge::TopRight), "SizeNESW");
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
  CommentNode& comment = view->AddCommentNode(1000, 300);
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
  EXPECT_EQ(group.GetString(GroupNode::CursorTypeProperty), "SizeWE");

  click({550, 322}, 2);
  EXPECT_EQ(group.Get<Toolkit::Visibility>(GroupNode::TitleInputVisibilityProperty), Toolkit::Visibility::Visible);
  group.SetZoom(0.4f);
  EXPECT_EQ(group.Get<Toolkit::Visibility>(GroupNode::BigTitleVisibilityProperty), Toolkit::Visibility::Visible);
  comment.SetCommentFontSize(126 + 4);
  EXPECT_EQ(comment.CommentFontSize(), 128);
}

} // namespace Tesselor
