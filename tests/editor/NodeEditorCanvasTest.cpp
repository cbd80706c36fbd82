#include "editor/NodeEditorCanvas.h"
#include "EditorTest.h"
#include "editor/gestures/CanvasGestures.h"
#include "graph/Graph.h"
#include "nodes/GroupNode.h"
#include "toolkit/controls/Border.h"
#include "toolkit/render/Brush.h"

#include <cmath>
#include <optional>

namespace {

using Tesselor::NodeEditorCanvas;
using TestSupport::Stage;
using Toolkit::Canvas;
using Toolkit::Key;
using Toolkit::MouseButton;
using Toolkit::Point;

class NodeEditorCanvasTest : public TestSupport::EditorTest {
protected:
  NodeEditorCanvasTest() {
    Keep(NodeEditorCanvas::SelectionUpEvent, selection);
    Keep(NodeEditorCanvas::ShowNodesMenuEvent, menu);
    Keep(NodeEditorCanvas::CutLineUpEvent, cut);
  }
  template <class Args> void Keep(const Toolkit::RoutedEvent& event, std::optional<Args>& last) {
    canvas->AddHandler(
        event, Toolkit::RoutedEventHandler::From([&last](Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
          last.emplace(static_cast<const Args&>(args));
        }));
  }

  /// The panel's point under a point of the view.
  Point OnPanel(Point view) const { return canvas->GetPanel()->PointFromRoot(view); }
  Point Translation() const {
    return {canvas->GetTranslateTransform()->GetX(), canvas->GetTranslateTransform()->GetY()};
  }
  void Zoom(Point at, int notches) {
    for (int i = 0; i < std::abs(notches); ++i) stage.Wheel(at, notches > 0 ? 1.0f : -1.0f);
  }
  /// Something opaque on the panel, where a point of the view shows it.
  template <class T> T& Place(Toolkit::Ptr<T> element, Point view) {
    const Point at = OnPanel(view);
    element->SetDataContext(element.Get());
    Canvas::SetLeft(element.Get(), at.x);
    Canvas::SetTop(element.Get(), at.y);
    canvas->GetPanel()->AddChild(element.Get());
    stage.Settle();
    return *element;
  }
  Toolkit::Border& PlaceBox(Toolkit::Size size, Point view) {
    auto box = Toolkit::MakePtr<Toolkit::Border>();
    box->SetWidth(size.width);
    box->SetHeight(size.height);
    box->SetValue(Toolkit::Border::BackgroundProperty, Toolkit::Brushes::White());
    return Place(box, view);
  }

  Toolkit::Ptr<NodeEditorCanvas> canvas = Toolkit::MakePtr<NodeEditorCanvas>();
  Stage stage{*canvas};
  Tesselor::Graph graph{*canvas->GetPanel()};
  Tesselor::CanvasGestures gestures{*canvas, graph, {}};
  std::optional<Tesselor::SelectionUpEventArgs> selection;
  std::optional<Tesselor::ShowNodesMenuEventArgs> menu;
  std::optional<Tesselor::CutLineUpEventArgs> cut;
};

TEST_F(NodeEditorCanvasTest, ZoomsInStepsOfATenthAndRefusesAStepBeyondTheLimits) {
  EXPECT_EQ(Translation(), (Point{-750000, -750000}));
  EXPECT_EQ(canvas->GetZoom(), 1);
  // The fortieth step outwards would end at 0.01478.
  const std::pair<int, float> cases[] = {{1, 1.1f},  {2, 1.21f},  {4, 1.4641f},     {5, 1.4641f},     {9, 1.4641f},
                                         {-1, 0.9f}, {-2, 0.81f}, {-39, 0.016423f}, {-40, 0.016423f}, {-60, 0.016423f}};
  for (const auto& [notches, zoom] : cases) {
    canvas->ResetViewTo({750000, 750000});
    Zoom({500, 400}, notches);
    EXPECT_NEAR(canvas->GetZoom(), zoom, 1e-5) << notches;
    EXPECT_EQ(canvas->GetScaleTransform()->GetScaleX(), canvas->GetScaleTransform()->GetScaleY());
    EXPECT_NEAR(canvas->GetNodesMenu()->GetScaleTransform()->GetScaleY(), 1 / zoom, 1e-3) << notches;
  }
}

TEST_F(NodeEditorCanvasTest, ZoomsByWholeNotchesOfAFineWheel) {
  for (const float part : {0.4f, 0.4f}) stage.Wheel({400, 300}, part);
  EXPECT_EQ(canvas->GetZoom(), 1);
  stage.Wheel({400, 300}, 0.4f);
  EXPECT_FLOAT_EQ(canvas->GetZoom(), 1.1f);
  for (const float part : {-0.5f, -0.5f, -0.5f}) stage.Wheel({400, 300}, part);
  EXPECT_FLOAT_EQ(canvas->GetZoom(), 0.99f);
}

TEST_F(NodeEditorCanvasTest, PansToWhatTheFocusGoesTo) {
  const float width = canvas->ActualWidth(), height = canvas->ActualHeight();
  const struct {
    Point at;
    Toolkit::Size size;
    Point expected;
  } cases[] = {
      {{100, 100}, {50, 20}, {100, 100}},
      {{-30, 100}, {50, 20}, {40, 100}},
      {{width - 20, height + 500}, {50, 20}, {width - 90, height - 60}},
      {{100, 300}, {50, height - 20}, {100, 10}},
      {{-70, 100}, {width + 300, 20}, {0, 100}},
  };
  for (const auto& c : cases) {
    auto& box = PlaceBox(c.size, c.at);
    box.BringIntoView();
    EXPECT_NEAR(stage.BoxOf(box).x, c.expected.x, 0.1f) << c.at.x;
    EXPECT_NEAR(stage.BoxOf(box).y, c.expected.y, 0.1f) << c.at.x;
  }
}

TEST_F(NodeEditorCanvasTest, KeepsThePointUnderTheMouseWhileZooming) {
  const Point before = OnPanel({130, 640});
  Zoom({130, 640}, 2);
  // The panel's margin of one pixel is no part of the rule.
  EXPECT_NEAR(OnPanel({130, 640}).x, before.x, 0.5);
  EXPECT_NEAR(OnPanel({130, 640}).y, before.y, 0.5);
  canvas->ResetViewTo({740000, 760000});
  EXPECT_EQ(canvas->GetZoom(), 1);
  EXPECT_EQ(OnPanel({501, 401}), (Point{740000, 760000}));
  EXPECT_EQ(canvas->GetNodesMenu()->GetScaleTransform()->GetScaleX(), 1);
}

TEST_F(NodeEditorCanvasTest, TellsFramesTheZoom) {
  auto& group = Place(Toolkit::MakePtr<Tesselor::GroupNode>(), {600, 500});
  const float before = group.Get<float>(Tesselor::GroupNode::BorderThicknessProperty);
  Zoom({100, 100}, -3);
  EXPECT_GT(group.Get<float>(Tesselor::GroupNode::BorderThicknessProperty), before);
  canvas->ResetViewTo({750000, 750000});
  EXPECT_EQ(group.Get<float>(Tesselor::GroupNode::BorderThicknessProperty), before);
}

TEST_F(NodeEditorCanvasTest, KeepsThePanelsEdgesOutsideTheView) {
  canvas->SetTranslationClamped(10, -20);
  EXPECT_EQ(Translation(), (Point{0, -20}));
  canvas->SetTranslationClamped(-3e6f, -3e6f);
  EXPECT_EQ(Translation(), (Point{1000 - 1500000, 800 - 1500000}));
  canvas->SetTranslationClamped(NAN, -20);
  EXPECT_EQ(Translation(), (Point{1000 - 1500000, 800 - 1500000}));
  canvas->GetScaleTransform()->SetScaleX(0.0001f);
  canvas->SetTranslationClamped(-7, -20);
  EXPECT_NEAR(Translation().x, 425, 1e-3);
  EXPECT_EQ(Translation().y, -20);
}

TEST_F(NodeEditorCanvasTest, PansWithTheRightButtonAndOpensTheMenuOnAClick) {
  const struct {
    Point to;
    bool isClick;
  } cases[] = {{{140, 70}, false}, {{100, 100}, true}, {{150, 100}, true}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.to.x);
    menu.reset();
    const Point before = Translation();
    canvas->GetNodesMenu()->SetNodesMenuVisibility(Toolkit::Visibility::Visible);
    stage.Drag({100, 100}, c.to, {.button = MouseButton::Right});
    EXPECT_EQ(Translation() - before, (c.to - Point{100, 100}));
    EXPECT_FALSE(canvas->GetNodesMenu()->IsOpen());
    EXPECT_FALSE(selection);
    ASSERT_EQ(menu.has_value(), c.isClick) << "a move along one axis alone is none";
    if (menu) {
      EXPECT_EQ((Point{menu->x, menu->y}), OnPanel(c.to));
    }
  }
}

TEST_F(NodeEditorCanvasTest, PansFromInsideAGroupButNotFromANode) {
  const Point middle = stage.MiddleOf(PlaceBox({100, 100}, {100, 100}));
  const Point before = Translation();
  stage.Drag(middle, middle + Point{30, 30}, {.button = MouseButton::Right});
  EXPECT_EQ(Translation(), before);
  const auto& group = Place(Toolkit::MakePtr<Tesselor::GroupNode>(), {600, 500});
  const Point inside = stage.MiddleOf(group);
  stage.Drag(inside, inside + Point{30, 30}, {.button = MouseButton::Right});
  EXPECT_EQ(Translation(), (before + Point{30, 30}));
  // The left button selects on the bare canvas only.
  stage.Drag(group, inside);
  EXPECT_FALSE(selection);
}

TEST_F(NodeEditorCanvasTest, DragsARectangleInEveryDirection) {
  const std::pair<Point, Toolkit::Rect> cases[] = {
      {{300, 250}, {0, 0, 100, 50}},
      {{150, 120}, {-50, -80, 50, 80}},
      {{150, 250}, {-50, 0, 50, 50}},
      // An axis without a move keeps what the press set.
      {{300, 200}, {0, 0, 100, 1}},
      {{200, 200}, {0, 0, 1, 1}},
  };
  const auto* rectangle = canvas->FindName<Toolkit::FrameworkElement>("SelectionRectangle");
  const Point start = OnPanel({200, 200});
  for (const auto& [to, relative] : cases) {
    const Toolkit::Rect expected{start.x + relative.x, start.y + relative.y, relative.width, relative.height};
    selection.reset();
    stage.Press({200, 200});
    stage.MoveTo(to);
    EXPECT_EQ((Toolkit::Rect{Canvas::GetLeft(rectangle), Canvas::GetTop(rectangle), rectangle->GetWidth(),
                             rectangle->GetHeight()}),
              expected);
    stage.Release(to);
    ASSERT_TRUE(selection);
    EXPECT_EQ((Toolkit::Rect{selection->x, selection->y, selection->width, selection->height}), expected);
    EXPECT_EQ(rectangle->GetWidth() + rectangle->GetHeight(), 0);
    EXPECT_EQ(Canvas::GetLeft(rectangle), expected.x);
  }
}

TEST_F(NodeEditorCanvasTest, CutsWithShiftAndTellsWhetherCtrlWasHeld) {
  const struct {
    Key shift;
    std::optional<Key> ctrl;
    Point to;
    bool raises;
  } cases[] = {{Key::LeftShift, {}, {206, 200}, true},
               {Key::RightShift, Key::LeftCtrl, {190, 190}, true},
               {Key::LeftShift, Key::RightCtrl, {200, 260}, true},
               {Key::LeftShift, Key::LeftCtrl, {203, 204}, false}};
  const Tesselor::BasicLine& line = *canvas->GetCutLine();
  const auto ends = [&] { return std::pair(Point{line.GetX1(), line.GetY1()}, Point{line.GetX2(), line.GetY2()}); };
  for (const auto& c : cases) {
    cut.reset();
    const std::pair expected(OnPanel({200, 200}), OnPanel(c.to));
    stage.KeyDown(c.shift);
    stage.Press({200, 200});
    stage.KeyUp(c.shift);
    stage.MoveTo(c.to);
    EXPECT_EQ(ends(), expected);
    if (c.ctrl) stage.KeyDown(*c.ctrl);
    stage.Release(c.to);
    if (c.ctrl) stage.KeyUp(*c.ctrl);
    ASSERT_EQ(cut.has_value(), c.raises);
    EXPECT_FALSE(selection);
    EXPECT_EQ(ends(), std::pair(Point(), Point()));
    if (!cut) continue;
    EXPECT_EQ(std::pair(Point{cut->x1, cut->y1}, Point{cut->x2, cut->y2}), expected);
    EXPECT_EQ(cut->ctrl, c.ctrl.has_value());
  }
}

TEST_F(NodeEditorCanvasTest, KeepsTheMenuTenPixelsInsideTheView) {
  Tesselor::NodesMenu& nodesMenu = *canvas->GetNodesMenu();
  nodesMenu.SetWorkspace(TestSupport::MakeWorkspace({}));
  nodesMenu.Open();
  stage.Settle();
  for (const int notches : {0, 3, -12}) {
    canvas->ResetViewTo({750000, 750000});
    Zoom({900, 700}, notches);
    for (const Point wanted : {Point{-50, -50}, {300, 200}, {990, 790}, {20, 795}}) {
      const Point at = canvas->ClampMenuPosition(OnPanel(wanted));
      Canvas::SetLeft(&nodesMenu, at.x);
      Canvas::SetTop(&nodesMenu, at.y);
      stage.Settle();
      const Toolkit::Rect box = stage.BoxOf(nodesMenu);
      EXPECT_NEAR(box.width, 600, 1) << "its size on the screen never changes";
      // The panel's margin of one pixel is no part of the rule.
      EXPECT_GE(box.x, 9.9f);
      EXPECT_GE(box.y, 9.9f);
      EXPECT_LE(box.Right(), 991.5f);
      EXPECT_LE(box.Bottom(), 791.5f);
      if (wanted == Point{300, 200}) {
        EXPECT_NEAR(box.x, 300, 0.5) << "a place that fits is kept";
        EXPECT_NEAR(box.y, 200, 0.5);
      }
    }
  }
  // Of a menu that is larger than the view the near corner is in sight.
  nodesMenu.SetHeight(2000);
  EXPECT_NEAR(canvas->ClampMenuPosition(OnPanel({400, 300})).y * canvas->GetZoom() +
                  canvas->GetTranslateTransform()->GetY(),
              10, 0.5);
}

} // namespace
