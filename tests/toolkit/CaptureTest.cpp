#include "toolkit/InputTestStage.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/ButtonBase.h"

#include <functional>

namespace Toolkit {
namespace {

/// Two boxes within a panel, and a count of the captures that each has lost.
class CaptureTest : public InputStageTest {
protected:
  void Show() {
    ShowColumn("<StackPanel x:Name=\"Panel\"><Border x:Name=\"A\" Height=\"20\" Background=\"Red\"/>"
               "<Border x:Name=\"B\" Height=\"20\" Background=\"Red\"/></StackPanel><Button x:Name=\"Button\"/>",
               {200, 100});
    panel = root->FindName<StackPanel>("Panel");
    a = root->FindName("A");
    b = root->FindName("B");
    lost.clear();
    // The event bubbles, so one place hears of all.
    root->AddHandler(UIElement::LostMouseCaptureEvent,
                     RoutedEventHandler::From([this](Object*, const RoutedEventArgs& args) {
                       const auto* element = DynamicCast<FrameworkElement>(args.source);
                       lost += std::string(element->GetName()) + (element->HasMouseCapture() ? " holds it;" : ";");
                     }));
  }
  StackPanel* panel = nullptr;
  FrameworkElement* a = nullptr;
  FrameworkElement* b = nullptr;
  std::string lost;
};

TEST_F(CaptureTest, TellsWhoeverLosesTheMouseHoweverThatComes) {
  struct Case {
    const char* what;
    std::function<void()> end;
  };
  const Case cases[] = {
      {"released", [this] { a->ReleaseMouseCapture(); }},
      {"taken by another", [this] { b->CaptureMouse(); }},
      {"everything released", [this] { input->ReleaseAll(); }},
      {"left the tree with its parent", [this] { root->RemoveChild(panel); }},
      {"hidden", [this] { a->SetVisibility(Visibility::Hidden); }},
      {"in a collapsed panel", [this] { panel->SetVisibility(Visibility::Collapsed); }},
      {"disabled", [this] { panel->SetValue(UIElement::IsEnabledProperty, false); }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Show();
    EXPECT_TRUE(a->CaptureMouse());
    EXPECT_TRUE(a->CaptureMouse());
    EXPECT_TRUE(a->HasMouseCapture());
    EXPECT_EQ(lost, "");
    const Ptr<StackPanel> alive(panel);
    c.end();
    EXPECT_EQ(lost, "A;");
    EXPECT_FALSE(a->HasMouseCapture());
    LayoutQueue::Current().Run();
  }
}

TEST_F(CaptureTest, GoesOnlyToWhatCanBeReached) {
  Show();
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
  Show();
  a->CaptureMouse();
  UIElement* pressed = nullptr;
  root->AddHandler(UIElement::MouseDownEvent, RoutedEventHandler::From([&](Object*, const RoutedEventArgs& args) {
                     pressed = DynamicCast<UIElement>(args.source);
                   }));
  input->MouseDown(MouseButton::Left, {10, 30}, 1);
  EXPECT_EQ(pressed, a);
  EXPECT_EQ(input->ElementAt({10, 30}), b);
  EXPECT_EQ(input->ElementAt({10, 300}), nullptr);
}

TEST_F(CaptureTest, ReleasesAButtonThatIsDisabledWhileItIsPressed) {
  Show();
  auto* button = root->FindName<Button>("Button");
  input->MouseDown(MouseButton::Left, button->TransformToAncestor(nullptr).Map({5, 3}), 1);
  EXPECT_TRUE(button->Get<bool>(ButtonBase::IsPressedProperty));
  button->SetValue(UIElement::IsEnabledProperty, false);
  EXPECT_FALSE(button->Get<bool>(ButtonBase::IsPressedProperty));
  EXPECT_EQ(input->Captured(), nullptr);
}

} // namespace
} // namespace Toolkit
