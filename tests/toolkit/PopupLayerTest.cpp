#include "toolkit/MarkupTest.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/Grid.h"
#include "toolkit/controls/Popup.h"
#include "toolkit/controls/StackPanel.h"

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

class PopupLayerTest : public StageTest {
protected:
  Ptr<Popup> Open(UIElement& owner, Size size, PopupPlacement placement = PopupPlacement::Below) {
    content = MakePtr<CountingElement>(size);
    auto popup = MakePtr<Popup>(owner, *content, PopupKind::Light, placement);
    window->Popups().Open(*popup);
    Settle();
    return popup;
  }
  Ptr<CountingElement> content;
};

constexpr const char* CanvasWithOwner =
    "<Canvas><Border x:Name=\"Owner\" Background=\"Red\" Width=\"60\" Height=\"20\"/></Canvas>";

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
  Show(CanvasWithOwner);
  auto& owner = Find<FrameworkElement>("Owner");
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Canvas::SetLeft(&owner, c.owner.x);
    Canvas::SetTop(&owner, c.owner.y);
    const Ptr<Popup> popup = Open(owner, c.wanted, c.placement);
    EXPECT_EQ(BoxOf(*popup), c.expected);
    popup->Close();
  }
}

TEST_F(PopupLayerTest, StaysAtZoomOneAndFollowsAnOwnerThatMoves) {
  Show("<Canvas><Canvas.RenderTransform><ScaleTransform ScaleX=\"0.5\" ScaleY=\"0.5\"/></Canvas.RenderTransform>"
       "<Border x:Name=\"Owner\" Background=\"Red\" Width=\"60\" Height=\"20\" Canvas.Left=\"100\"/></Canvas>");
  auto& owner = Find<FrameworkElement>("Owner");
  const Ptr<Popup> popup = Open(owner, {100, 80});
  EXPECT_EQ(BoxOf(*popup), (Rect{50, 10, 100, 80}));
  Canvas::SetLeft(&owner, 200);
  Settle();
  EXPECT_EQ(BoxOf(*popup), (Rect{100, 10, 100, 80}));
  owner.SetVisibility(Visibility::Hidden);
  Settle();
  EXPECT_FALSE(popup->IsOpen());
}

TEST_F(PopupLayerTest, TakesAPressOrTheWheelElsewhereAndCloses) {
  Show("<StackPanel><Button x:Name=\"Owner\" Content=\"a\"/>"
       "<Border Height=\"150\"/><Button x:Name=\"Behind\" Content=\"b\"/></StackPanel>");
  int clicks = 0, wheels = 0;
  auto& behind = Find<Button>("Behind");
  Listen(behind, ButtonBase::ClickEvent, [&](auto&) { ++clicks; });
  Listen(*window, UIElement::MouseWheelEvent, [&](auto&) { ++wheels; });
  const Point away = MiddleOf(behind);
  for (const MouseButton button : {MouseButton::Left, MouseButton::Middle, MouseButton::Right}) {
    const Ptr<Popup> popup = Open(Find<Button>("Owner"), {50, 50});
    Press(away, button);
    EXPECT_FALSE(popup->IsOpen());
    Release(away, button);
    EXPECT_EQ(clicks, 0);
  }
  const Ptr<Popup> popup = Open(Find<Button>("Owner"), {50, 50});
  EXPECT_TRUE(Wheel(*popup, 1));
  EXPECT_TRUE(popup->IsOpen());
  EXPECT_TRUE(Wheel(away, 1));
  EXPECT_FALSE(popup->IsOpen());
  EXPECT_EQ(wheels, 0);
  // With nothing open the window is as it was.
  Click(away);
  EXPECT_EQ(clicks, 1);
}

TEST_F(PopupLayerTest, KeepsMouseInputFromThoseAroundTheOwner) {
  Show("<StackPanel x:Name=\"Outer\" Background=\"Black\"><Border x:Name=\"Owner\" Background=\"Red\" Height=\"20\"/>"
       "</StackPanel>");
  auto& outer = Find<StackPanel>("Outer");
  auto& owner = Find<FrameworkElement>("Owner");
  int seen = 0, entered = 0;
  for (const RoutedEvent* event :
       {&UIElement::PreviewMouseDownEvent, &UIElement::MouseDownEvent, &UIElement::PreviewMouseUpEvent,
        &UIElement::MouseUpEvent, &UIElement::MouseLeftButtonDownEvent, &UIElement::PreviewMouseLeftButtonUpEvent,
        &UIElement::PreviewMouseMoveEvent, &UIElement::MouseMoveEvent, &UIElement::MouseWheelEvent,
        &UIElement::PreviewMouseRightButtonDownEvent, &UIElement::MouseRightButtonUpEvent})
    Listen(outer, *event, [&](auto&) { ++seen; });
  MoveTo(MiddleOf(owner));
  const Ptr<Popup> popup = Open(owner, {50, 50});
  int inside = 0;
  Listen(*content, UIElement::MouseLeftButtonDownEvent, [&](auto&) { ++inside; });
  Listen(*content, UIElement::MouseEnterEvent, [&](auto&) { ++entered; });
  seen = 0;
  const Point at = MiddleOf(*popup);
  for (const MouseButton button : {MouseButton::Left, MouseButton::Middle, MouseButton::Right})
    Click(at, {.button = button});
  Wheel(at, 1);
  EXPECT_EQ(seen, 0);
  EXPECT_EQ(inside, 1);
  EXPECT_EQ(entered, 1);
  EXPECT_TRUE(popup->IsOpen());
  // The owner looks as though the mouse were over it.
  EXPECT_TRUE(outer.Get<bool>(UIElement::IsMouseOverProperty));
}

TEST_F(PopupLayerTest, NeverLaysOutTheContent) {
  Show("<Grid x:Name=\"Root\"><Border x:Name=\"Owner\" Background=\"Red\" Height=\"20\"/></Grid>");
  const auto counter = MakePtr<CountingElement>(Size{10, 10});
  Find<Grid>("Root").AddChild(counter.Get());
  Settle();
  const int before = counter->measures;
  const Ptr<Popup> popup = Open(Find<FrameworkElement>("Owner"), {50, 50});
  content->wanted = {70, 90};
  content->InvalidateMeasure();
  Settle();
  EXPECT_EQ(popup->ActualWidth(), 70);
  popup->Close();
  Settle();
  EXPECT_EQ(counter->measures, before);
}

TEST_F(PopupLayerTest, ClosesWithItsOwnerAndWithTheSize) {
  Show("<StackPanel x:Name=\"Outer\"><Border x:Name=\"Owner\" Background=\"Red\" Height=\"20\"/></StackPanel>");
  Ptr<Popup> popup = Open(Find<FrameworkElement>("Owner"), {50, 50});
  int closed = 0;
  popup->closed = [&] { ++closed; };
  Resize({200, 200});
  EXPECT_FALSE(popup->IsOpen());
  popup = Open(Find<FrameworkElement>("Owner"), {50, 50});
  popup->closed = [&] { ++closed; };
  Find<StackPanel>("Outer").ClearChildren();
  EXPECT_FALSE(popup->IsOpen());
  EXPECT_EQ(closed, 2);
  // One that is open when the window goes: the stage checks that nothing is left.
  popup = Open(Find<StackPanel>("Outer"), {50, 50});
}

TEST_F(PopupLayerTest, ClosesThoseThatWereOpenedFromIt) {
  Show("<StackPanel x:Name=\"Owner\"/>");
  auto& owner = Find<FrameworkElement>("Owner");
  std::string order;
  std::vector<Ptr<Popup>> popups;
  for (const char name : {'a', 'b', 'c'}) {
    popups.push_back(Open(owner, {50, 50}));
    popups.back()->closed = [&order, name] { order += name; };
  }
  popups[1]->Close();
  EXPECT_EQ(order, "cb");
  EXPECT_TRUE(popups[0]->IsOpen());
  EXPECT_TRUE(Press(Key::Escape));
  EXPECT_EQ(order, "cba");
  EXPECT_FALSE(Press(Key::Escape));
}

} // namespace
} // namespace Toolkit
