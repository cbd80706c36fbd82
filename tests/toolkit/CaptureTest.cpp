#include "toolkit/MarkupTest.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/StackPanel.h"

#include <functional>

namespace Toolkit {
namespace {

/// Two boxes within a panel, and a count of the captures that each has lost.
class CaptureTest : public StageTest {
protected:
  CaptureTest() { ShowBoxes(); }
  void ShowBoxes() {
    Show("<StackPanel x:Name=\"Root\"><StackPanel x:Name=\"Panel\"><Border x:Name=\"A\" Height=\"20\" "
         "Background=\"Red\"/>"
         "<Border x:Name=\"B\" Height=\"20\" Background=\"Red\"/></StackPanel><Button x:Name=\"Button\"/></StackPanel>",
         {200, 100});
    panel = &Find<StackPanel>("Panel");
    a = &Find("A");
    b = &Find("B");
    lost.clear();
    // The event bubbles, so one place hears of all.
    Listen(*window, UIElement::LostMouseCaptureEvent, [this](const RoutedEventArgs& args) {
      const auto* element = DynamicCast<FrameworkElement>(args.source);
      lost += std::string(element->GetName()) + (element->HasMouseCapture() ? " holds it;" : ";");
    });
  }
  StackPanel* panel = nullptr;
  FrameworkElement* a = nullptr;
  FrameworkElement* b = nullptr;
  std::string lost;
};

TEST_F(CaptureTest, TellsWhoeverLosesTheMouseHoweverThatComes) {
  const std::pair<const char*, std::function<void()>> cases[] = {
      {"released", [this] { a->ReleaseMouseCapture(); }},
      {"taken by another", [this] { b->CaptureMouse(); }},
      {"everything released", [this] { Input().ReleaseAll(); }},
      {"left the tree with its parent", [this] { Find<StackPanel>("Root").RemoveChild(panel); }},
      {"hidden", [this] { a->SetVisibility(Visibility::Hidden); }},
      {"in a collapsed panel", [this] { panel->SetVisibility(Visibility::Collapsed); }},
      {"disabled", [this] { panel->SetValue(UIElement::IsEnabledProperty, false); }},
  };
  for (const auto& [what, end] : cases) {
    SCOPED_TRACE(what);
    ShowBoxes();
    EXPECT_TRUE(a->CaptureMouse());
    EXPECT_TRUE(a->CaptureMouse());
    EXPECT_TRUE(a->HasMouseCapture());
    EXPECT_EQ(lost, "");
    const Ptr<StackPanel> alive(panel);
    end();
    EXPECT_EQ(lost, "A;");
    EXPECT_FALSE(a->HasMouseCapture());
    Settle();
  }
}

TEST_F(CaptureTest, GoesOnlyToWhatCanBeReached) {
  b->ReleaseMouseCapture();
  EXPECT_TRUE(a->CaptureMouse());
  b->ReleaseMouseCapture();
  EXPECT_TRUE(a->HasMouseCapture()) << "only its holder gives it back";
  b->SetVisibility(Visibility::Collapsed);
  EXPECT_FALSE(b->CaptureMouse());
  b->SetVisibility(Visibility::Visible);
  b->SetValue(UIElement::IsEnabledProperty, false);
  EXPECT_FALSE(b->CaptureMouse());
  EXPECT_FALSE(MakePtr<Border>()->CaptureMouse());
  EXPECT_TRUE(a->HasMouseCapture());
  EXPECT_EQ(lost, "");
}

TEST_F(CaptureTest, LeavesTheHitTestAsItIs) {
  a->CaptureMouse();
  UIElement* pressed = nullptr;
  Listen(*window, UIElement::MouseDownEvent,
         [&](const RoutedEventArgs& args) { pressed = DynamicCast<UIElement>(args.source); });
  Press({10, 30});
  EXPECT_EQ(pressed, a);
  EXPECT_EQ(Input().ElementAt({10, 30}), b);
  EXPECT_EQ(Input().ElementAt({10, 300}), nullptr);
}

TEST_F(CaptureTest, GoesOnOutsideOfTheWindow) {
  MoveTo({10, 10});
  a->CaptureMouse();
  Leave();
  EXPECT_EQ(Input().MousePosition(), (Point{10, 10})) << "the next move tells where it is";
  EXPECT_TRUE(a->Get<bool>(UIElement::IsMouseOverProperty));
  a->ReleaseMouseCapture();
  Leave();
  EXPECT_FALSE(a->Get<bool>(UIElement::IsMouseOverProperty));
}

TEST_F(CaptureTest, LeavesTheMouseToWhatItIsOver) {
  Listen(*a, UIElement::MouseLeftButtonUpEvent, [this](const RoutedEventArgs&) { a->ReleaseMouseCapture(); });
  Press({10, 10});
  a->CaptureMouse();
  MoveTo({10, 30});
  EXPECT_EQ(Input().Hovered(), a);
  Release({10, 30});
  EXPECT_EQ(Input().Hovered(), b);
}

TEST_F(CaptureTest, ReleasesAButtonThatIsDisabledWhileItIsPressed) {
  auto& button = Find("Button");
  Press(button);
  EXPECT_TRUE(button.Get<bool>(ButtonBase::IsPressedProperty));
  button.SetValue(UIElement::IsEnabledProperty, false);
  EXPECT_FALSE(button.Get<bool>(ButtonBase::IsPressedProperty));
  EXPECT_EQ(Input().Captured(), nullptr);
}

} // namespace
} // namespace Toolkit
