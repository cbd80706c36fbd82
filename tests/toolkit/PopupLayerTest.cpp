#include "toolkit/MarkupTest.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/Popup.h"
#include "toolkit/visual/Transform.h"

namespace Toolkit {
namespace {

/// Notes how often it is laid out, and wants the size it was made with.
class CountingElement : public FrameworkElement {
public:
  explicit CountingElement(Size wanted) : wanted(wanted) {}
  Size wanted;
  int measures = 0;

protected:
  Size MeasureOverride(Size) override {
    ++measures;
    return wanted;
  }
  bool HitTestSelf(Point point) const override { return DrawnBounds().Contains(point); }
};

/// An owner in the corner of a canvas, and a button far from it.
class PopupLayerTest : public StageTest {
protected:
  PopupLayerTest() {
    Show("<Canvas x:Name=\"Outer\" Background=\"Black\"><Border x:Name=\"Owner\" Background=\"Red\" Width=\"60\" "
         "Height=\"20\"/><Button x:Name=\"Behind\" Content=\"b\" Canvas.Left=\"200\" Canvas.Top=\"200\"/></Canvas>");
  }
  Ptr<Popup> Open(Size size = {50, 50}, PopupPlacement placement = PopupPlacement::Below) {
    content = MakePtr<CountingElement>(size);
    auto popup = MakePtr<Popup>(Find("Owner"), *content, PopupKind::Light, placement);
    window->Popups().Open(*popup);
    Settle();
    return popup;
  }
  Ptr<CountingElement> content;
};

TEST_F(PopupLayerTest, StandsBesideItsOwnerAndInsideTheWindow) {
  const struct {
    const char* name;
    Point owner;
    Size wanted;
    PopupPlacement placement;
    Rect expected;
  } cases[] = {
      {"below", {50, 40}, {100, 80}, PopupPlacement::Below, {50, 60, 100, 80}},
      {"above for want of room", {50, 240}, {100, 80}, PopupPlacement::Below, {50, 160, 100, 80}},
      {"cut to the larger side", {50, 100}, {100, 500}, PopupPlacement::Below, {50, 120, 100, 180}},
      {"cut to the larger side above", {50, 200}, {100, 500}, PopupPlacement::Below, {50, 0, 100, 200}},
      {"moved in from the right", {350, 40}, {100, 80}, PopupPlacement::Below, {300, 60, 100, 80}},
      {"no wider than the window", {10, 40}, {900, 80}, PopupPlacement::Below, {0, 60, 400, 80}},
      {"beside", {50, 40}, {100, 80}, PopupPlacement::Beside, {110, 40, 100, 80}},
      {"beside, to the left", {280, 40}, {100, 80}, PopupPlacement::Beside, {180, 40, 100, 80}},
      {"beside, moved up", {50, 270}, {100, 80}, PopupPlacement::Beside, {110, 220, 100, 80}},
  };
  auto& owner = Find("Owner");
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Canvas::SetLeft(&owner, c.owner.x);
    Canvas::SetTop(&owner, c.owner.y);
    const Ptr<Popup> popup = Open(c.wanted, c.placement);
    EXPECT_EQ(BoxOf(*popup), c.expected);
    popup->Close();
  }
}

TEST_F(PopupLayerTest, StaysAtZoomOneAndFollowsAnOwnerThatMoves) {
  auto& owner = Find("Owner");
  auto scale = MakePtr<ScaleTransform>();
  scale->SetScaleX(0.5f);
  scale->SetScaleY(0.5f);
  Find("Outer").SetValue(UIElement::RenderTransformProperty, Value(scale));
  const Ptr<Popup> popup = Open({100, 80});
  EXPECT_EQ(BoxOf(*popup), (Rect{0, 10, 100, 80}));
  Canvas::SetLeft(&owner, 200);
  Settle();
  EXPECT_EQ(BoxOf(*popup), (Rect{100, 10, 100, 80}));
  owner.SetVisibility(Visibility::Hidden);
  Settle();
  EXPECT_FALSE(popup->IsOpen());
}

TEST_F(PopupLayerTest, TakesAPressOrTheWheelElsewhereAndCloses) {
  int clicks = 0, wheels = 0;
  auto& behind = Find("Behind");
  Listen(behind, ButtonBase::ClickEvent, [&](auto&) { ++clicks; });
  Listen(*window, UIElement::MouseWheelEvent, [&](auto&) { ++wheels; });
  for (const MouseButton button : {MouseButton::Left, MouseButton::Middle, MouseButton::Right}) {
    const Ptr<Popup> popup = Open();
    Press(behind, button);
    EXPECT_FALSE(popup->IsOpen());
    Release(behind, button);
    EXPECT_EQ(clicks, 0);
  }
  const Ptr<Popup> popup = Open();
  EXPECT_TRUE(Wheel(*popup, 1));
  EXPECT_TRUE(popup->IsOpen());
  EXPECT_TRUE(Wheel(behind, 1));
  EXPECT_FALSE(popup->IsOpen());
  EXPECT_EQ(wheels, 0);
  // With nothing open the window is as it was.
  Click(behind);
  EXPECT_EQ(clicks, 1);
}

TEST_F(PopupLayerTest, KeepsMouseInputFromThoseAroundTheOwner) {
  auto& outer = Find("Outer");
  int seen = 0, inside = 0, entered = 0;
  for (const RoutedEvent* event :
       {&UIElement::PreviewMouseDownEvent, &UIElement::MouseDownEvent, &UIElement::PreviewMouseUpEvent,
        &UIElement::MouseUpEvent, &UIElement::MouseLeftButtonDownEvent, &UIElement::PreviewMouseLeftButtonUpEvent,
        &UIElement::PreviewMouseMoveEvent, &UIElement::MouseMoveEvent, &UIElement::MouseWheelEvent,
        &UIElement::PreviewMouseRightButtonDownEvent, &UIElement::MouseRightButtonUpEvent})
    Listen(outer, *event, [&](auto&) { ++seen; });
  Run("move:Owner");
  EXPECT_GT(seen, 0);
  const Ptr<Popup> popup = Open();
  Listen(*content, UIElement::MouseLeftButtonDownEvent, [&](auto&) { ++inside; });
  Listen(*content, UIElement::MouseEnterEvent, [&](auto&) { ++entered; });
  seen = 0;
  for (const MouseButton button : {MouseButton::Left, MouseButton::Middle, MouseButton::Right})
    Click(*popup, {.button = button});
  Wheel(*popup, 1);
  EXPECT_EQ(seen, 0);
  EXPECT_EQ(inside, 1);
  EXPECT_EQ(entered, 1);
  EXPECT_TRUE(popup->IsOpen());
  // The owner looks as though the mouse were over it.
  EXPECT_TRUE(outer.Get<bool>(UIElement::IsMouseOverProperty));
}

TEST_F(PopupLayerTest, NeverLaysOutTheContent) {
  const auto counter = MakePtr<CountingElement>(Size{10, 10});
  Find<Canvas>("Outer").AddChild(counter.Get());
  Settle();
  const int before = counter->measures;
  const Ptr<Popup> popup = Open();
  content->wanted = {70, 90};
  content->InvalidateMeasure();
  Settle();
  EXPECT_EQ(popup->ActualWidth(), 70);
  popup->Close();
  Settle();
  EXPECT_EQ(counter->measures, before);
}

TEST_F(PopupLayerTest, ClosesWithTheSizeWithItsOwnerAndThoseThatWereOpenedFromIt) {
  std::string closed;
  std::vector<Ptr<Popup>> popups;
  const auto open = [&](char name) {
    popups.push_back(Open());
    popups.back()->closed = [&closed, name] { closed += name; };
  };
  open('a');
  Resize({300, 300});
  EXPECT_EQ(closed, "a");
  for (const char name : {'b', 'c', 'd'}) open(name);
  popups[2]->Close();
  EXPECT_EQ(closed, "adc");
  EXPECT_TRUE(popups[1]->IsOpen());
  EXPECT_TRUE(Press(Key::Escape));
  EXPECT_EQ(closed, "adcb");
  EXPECT_FALSE(Press(Key::Escape));
  open('e');
  Find<Canvas>("Outer").RemoveChild(&Find("Owner"));
  EXPECT_EQ(closed, "adcbe");
  // One that is open when the window goes: the stage checks that nothing is left.
  content = MakePtr<CountingElement>(Size{50, 50});
  window->Popups().Open(*MakePtr<Popup>(Find("Behind"), *content, PopupKind::Light, PopupPlacement::Below));
}

} // namespace
} // namespace Toolkit
