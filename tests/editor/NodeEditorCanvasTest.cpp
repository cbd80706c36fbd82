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
  NodeEditorCanvasTest() : canvas(Toolkit::MakePtr<NodeEditorCanvas>()), stage(*canvas) {
    Listen<Tesselor::SelectionUpEventArgs>(NodeEditorCanvas::SelectionUpEvent, selection);
    Listen<Tesselor::ShowNodesMenuEventArgs>(NodeEditorCanvas::ShowNodesMenuEvent, menu);
    Listen<Tesselor::CutLineUpEventArgs>(NodeEditorCanvas::CutLineUpEvent, cut);
  }

  template <class Args> void Listen(const Toolkit::RoutedEvent& event, std::optional<Args>& last) {
    stage.Root().AddHandler(
        event, Toolkit::RoutedEventHandler::From([&last](Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
          last.emplace(static_cast<const Args&>(args));
        }));
  }

  /// The panel's point under a point of the view.
  Point OnPanel(Point view) const { return canvas->GetPanel()->PointFromRoot(view); }

  /// Something opaque on the panel, where a point of the view shows it.
  template <class T> T* Place(Toolkit::Ptr<T> element, Point view) {
    const Point at = OnPanel(view);
    element->SetDataContext(element.Get());
    Canvas::SetLeft(element.Get(), at.x);
    Canvas::SetTop(element.Get(), at.y);
    canvas->GetPanel()->AddChild(element.Get());
    stage.Settle();
    return element.Get();
  }

  Toolkit::Ptr<NodeEditorCanvas> canvas;
  Stage stage;
  Tesselor::Graph graph{*canvas->GetPanel()};
  Tesselor::CanvasGestures gestures{*canvas, graph, {}};
  std::optional<Tesselor::SelectionUpEventArgs> selection;
  std::optional<Tesselor::ShowNodesMenuEventArgs> menu;
  std::optional<Tesselor::CutLineUpEventArgs> cut;
};

TEST_F(NodeEditorCanvasTest, StartsAtTheMiddleOfThePanel) {
  EXPECT_EQ(canvas->GetTranslateTransform()->GetX(), -750000);
  EXPECT_EQ(canvas->GetTranslateTransform()->GetY(), -750000);
  EXPECT_EQ(canvas->GetZoom(), 1);
}

TEST_F(NodeEditorCanvasTest, ZoomsInStepsOfATenthAndRefusesAStepBeyondTheLimits) {
  struct Case {
    int notches;
    float zoom;
  };
  for (const Case& c : {Case{1, 1.1f},
                        {2, 1.21f},
                        {4, 1.4641f},
                        {5, 1.4641f},
                        {9, 1.4641f},
                        {-1, 0.9f},
                        {-2, 0.81f},
                        {-39, 0.016423f},
                        // The fortieth step would end at 0.01478.
                        {-40, 0.016423f},
                        {-60, 0.016423f}}) {
    canvas->ResetViewTo({750000, 750000});
    for (int i = 0; i < std::abs(c.notches); ++i) stage.Wheel({500, 400}, c.notches > 0 ? 1.0f : -1.0f);
    EXPECT_NEAR(canvas->GetZoom(), c.zoom, 1e-5) << c.notches;
    EXPECT_EQ(canvas->GetScaleTransform()->GetScaleX(), canvas->GetScaleTransform()->GetScaleY());
    EXPECT_NEAR(canvas->GetNodesMenu()->GetScaleTransform()->GetScaleY(), 1 / c.zoom, 1e-3) << c.notches;
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
  const auto showing = [&](const Toolkit::UIElement& element) {
    return element.TransformToAncestor(canvas.Get()).MapBounds({0, 0, element.ActualWidth(), element.ActualHeight()});
  };
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
    SCOPED_TRACE(c.at.x);
    auto box = Toolkit::MakePtr<Toolkit::Border>();
    box->SetWidth(c.size.width);
    box->SetHeight(c.size.height);
    Place(box, c.at)->BringIntoView();
    EXPECT_NEAR(showing(*box).x, c.expected.x, 0.1f);
    EXPECT_NEAR(showing(*box).y, c.expected.y, 0.1f);
  }
}

TEST_F(NodeEditorCanvasTest, KeepsThePointUnderTheMouseWhileZooming) {
  const Point before = OnPanel({130, 640});
  stage.Wheel({130, 640}, 1);
  stage.Wheel({130, 640}, 1);
  const Point after = OnPanel({130, 640});
  // The panel's margin of one pixel is no part of the rule.
  EXPECT_NEAR(after.x, before.x, 0.5);
  EXPECT_NEAR(after.y, before.y, 0.5);
}

TEST_F(NodeEditorCanvasTest, TellsFramesTheZoom) {
  auto* group = Place(Toolkit::MakePtr<Tesselor::GroupNode>(), {600, 500});
  const float before = group->Get<float>(Tesselor::GroupNode::BorderThicknessProperty);
  for (int i = 0; i < 3; ++i) stage.Wheel({100, 100}, -1);
  const float zoomedOut = group->Get<float>(Tesselor::GroupNode::BorderThicknessProperty);
  EXPECT_GT(zoomedOut, before);
  canvas->ResetViewTo({750000, 750000});
  EXPECT_EQ(group->Get<float>(Tesselor::GroupNode::BorderThicknessProperty), before);
}

TEST_F(NodeEditorCanvasTest, KeepsThePanelsEdgesOutsideTheView) {
  const auto expectTranslation = [&](float x, float y) {
    EXPECT_EQ(canvas->GetTranslateTransform()->GetX(), x);
    EXPECT_EQ(canvas->GetTranslateTransform()->GetY(), y);
  };
  canvas->SetTranslationClamped(10, -20);
  expectTranslation(0, -20);
  canvas->SetTranslationClamped(-3e6f, -3e6f);
  expectTranslation(1000 - 1500000, 800 - 1500000);
  canvas->SetTranslationClamped(NAN, -20);
  expectTranslation(1000 - 1500000, 800 - 1500000);
  canvas->GetScaleTransform()->SetScaleX(0.0001f);
  canvas->SetTranslationClamped(-7, -20);
  EXPECT_NEAR(canvas->GetTranslateTransform()->GetX(), 425, 1e-3);
  EXPECT_EQ(canvas->GetTranslateTransform()->GetY(), -20);
}

TEST_F(NodeEditorCanvasTest, ResetsTheViewToAPoint) {
  stage.Wheel({500, 400}, -1);
  canvas->ResetViewTo({740000, 760000});
  EXPECT_EQ(canvas->GetZoom(), 1);
  EXPECT_EQ(OnPanel({501, 401}), (Point{740000, 760000}));
  EXPECT_EQ(canvas->GetNodesMenu()->GetScaleTransform()->GetScaleX(), 1);
}

TEST_F(NodeEditorCanvasTest, PansWithTheRightButtonAndOpensTheMenuOnAClick) {
  struct Case {
    const char* what;
    Point to;
    Point moved;
    bool isClick;
  };
  for (const Case& c : {Case{"drag", {140, 70}, {40, -30}, false},
                        {"click", {100, 100}, {0, 0}, true},
                        {"horizontal drag", {150, 100}, {50, 0}, true}}) {
    menu.reset();
    const Point before{canvas->GetTranslateTransform()->GetX(), canvas->GetTranslateTransform()->GetY()};
    canvas->GetNodesMenu()->SetNodesMenuVisibility(Toolkit::Visibility::Visible);
    stage.Drag({100, 100}, c.to, {.button = MouseButton::Right});
    const Point after{canvas->GetTranslateTransform()->GetX(), canvas->GetTranslateTransform()->GetY()};
    EXPECT_EQ(after - before, c.moved) << c.what;
    EXPECT_EQ(menu.has_value(), c.isClick) << c.what;
    EXPECT_FALSE(canvas->GetNodesMenu()->IsOpen()) << c.what;
    if (menu) {
      EXPECT_EQ((Point{menu->x, menu->y}), OnPanel(c.to)) << c.what;
    }
    EXPECT_FALSE(selection) << c.what;
  }
}

TEST_F(NodeEditorCanvasTest, PansFromInsideAGroupButNotFromANode) {
  auto* group = Place(Toolkit::MakePtr<Tesselor::GroupNode>(), {600, 500});
  auto node = Toolkit::MakePtr<Toolkit::Border>();
  node->SetWidth(100);
  node->SetHeight(100);
  node->SetValue(Toolkit::Border::BackgroundProperty, Toolkit::Brushes::White());
  const auto* other = Place(node, {100, 100});
  const float before = canvas->GetTranslateTransform()->GetX();

  Point middle = stage.MiddleOf(*other);
  stage.Drag(middle, middle + Point{30, 30}, {.button = MouseButton::Right});
  EXPECT_EQ(canvas->GetTranslateTransform()->GetX(), before);
  middle = stage.MiddleOf(*group);
  stage.Drag(middle, middle + Point{30, 30}, {.button = MouseButton::Right});
  EXPECT_EQ(canvas->GetTranslateTransform()->GetX(), before + 30);
  // The left button selects on the bare canvas only.
  middle = stage.MiddleOf(*group);
  stage.Drag(middle, middle + Point{30, 30});
  EXPECT_FALSE(selection);
}

TEST_F(NodeEditorCanvasTest, DragsARectangleInEveryDirection) {
  struct Case {
    Point to;
    Toolkit::Rect rect; // relative to the start
  };
  for (const Case& c : {Case{{300, 250}, {0, 0, 100, 50}},
                        {{150, 120}, {-50, -80, 50, 80}},
                        {{150, 250}, {-50, 0, 50, 50}},
                        // An axis without a move keeps what the press set.
                        {{300, 200}, {0, 0, 100, 1}},
                        {{200, 200}, {0, 0, 1, 1}}}) {
    selection.reset();
    const Point start = OnPanel({200, 200});
    stage.Drag({200, 200}, c.to);
    ASSERT_TRUE(selection);
    EXPECT_EQ((Toolkit::Rect{selection->x - start.x, selection->y - start.y, selection->width, selection->height}),
              c.rect);
    EXPECT_EQ(canvas->GetSelectedArea()->GetWidth(), 0);
    EXPECT_EQ(canvas->GetSelectedArea()->GetHeight(), 0);
    EXPECT_EQ(canvas->GetSelectedArea()->GetX(), selection->x);
  }
}

TEST_F(NodeEditorCanvasTest, ShowsTheRectangleAndTheLineWhereTheyAreDragged) {
  auto* rectangle = canvas->FindName<Toolkit::FrameworkElement>("SelectionRectangle");
  stage.Press({200, 200});
  stage.MoveTo({320, 260});
  EXPECT_EQ(Canvas::GetLeft(rectangle), OnPanel({200, 200}).x);
  EXPECT_EQ(rectangle->GetWidth(), 120);
  EXPECT_EQ(rectangle->GetHeight(), 60);
  stage.Release({320, 260});

  stage.KeyDown(Key::LeftShift);
  stage.Press({200, 200});
  stage.MoveTo({320, 260});
  auto* line = canvas->FindName<Toolkit::FrameworkElement>("CutLine");
  const auto* x2 = line->GetType().FindProperty(Toolkit::Symbol("X2"));
  EXPECT_EQ(line->Get<float>(x2), OnPanel({320, 260}).x);
  stage.Release({320, 260});
  EXPECT_EQ(line->Get<float>(x2), 0);
}

TEST_F(NodeEditorCanvasTest, CutsWithShiftAndTellsWhetherCtrlWasHeld) {
  struct Case {
    Key shift;
    std::optional<Key> ctrl;
    Point to;
    bool raises;
  };
  for (const Case& c : {Case{Key::LeftShift, std::nullopt, {206, 200}, true},
                        {Key::RightShift, Key::LeftCtrl, {190, 190}, true},
                        {Key::LeftShift, Key::RightCtrl, {200, 260}, true},
                        {Key::LeftShift, Key::LeftCtrl, {203, 204}, false}}) {
    cut.reset();
    const Point start = OnPanel({200, 200}), end = OnPanel(c.to);
    stage.KeyDown(c.shift);
    stage.Press({200, 200});
    stage.KeyUp(c.shift);
    stage.MoveTo(c.to);
    if (c.ctrl) stage.KeyDown(*c.ctrl);
    stage.Release(c.to);
    if (c.ctrl) stage.KeyUp(*c.ctrl);
    ASSERT_EQ(cut.has_value(), c.raises);
    EXPECT_FALSE(selection);
    EXPECT_EQ(canvas->GetCutLine()->GetX1(), 0);
    EXPECT_EQ(canvas->GetCutLine()->GetY2(), 0);
    if (!cut) continue;
    EXPECT_EQ((Point{cut->x1, cut->y1}), start);
    EXPECT_EQ((Point{cut->x2, cut->y2}), end);
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
    for (int i = 0; i < std::abs(notches); ++i) stage.Wheel({900, 700}, notches > 0 ? 1.0f : -1.0f);
    for (const Point wanted : {Point{-50, -50}, {300, 200}, {990, 790}, {20, 795}}) {
      const Point at = canvas->ClampMenuPosition(OnPanel(wanted));
      Canvas::SetLeft(&nodesMenu, at.x);
      Canvas::SetTop(&nodesMenu, at.y);
      stage.Settle();
      const Point corner = nodesMenu.TransformToAncestor(canvas.Get()).Map({0, 0});
      const Point end =
          nodesMenu.TransformToAncestor(canvas.Get()).Map({nodesMenu.ActualWidth(), nodesMenu.ActualHeight()});
      EXPECT_NEAR(end.x - corner.x, 600, 1) << "its size on the screen never changes";
      // The panel's margin of one pixel is no part of the rule.
      EXPECT_GE(corner.x, 9.9f);
      EXPECT_GE(corner.y, 9.9f);
      EXPECT_LE(end.x, Stage::DefaultSize.width - 8.5f);
      EXPECT_LE(end.y, Stage::DefaultSize.height - 8.5f);
      if (wanted == Point{300, 200}) {
        EXPECT_NEAR(corner.x, 300, 0.5) << "a place that fits is kept";
        EXPECT_NEAR(corner.y, 200, 0.5);
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
