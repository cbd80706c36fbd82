#include "toolkit/InputTestStage.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/TextBox.h"

#include <functional>

namespace Toolkit {
namespace {

/// A box to type in, within a panel, under a root that takes raw input.
class FocusTest : public InputStageTest {
protected:
  void Show() {
    ShowColumn("<StackPanel x:Name=\"Panel\"><TextBox x:Name=\"Box\" Height=\"20\"/></StackPanel>"
               "<TextBox x:Name=\"Other\" Height=\"20\"/>",
               {200, 100});
    panel = root->FindName("Panel");
    box = root->FindName<TextBox>("Box");
  }
  void ClickBox() {
    const Point middle = box->TransformToAncestor(nullptr).Map({5, 5});
    input->MouseDown(MouseButton::Left, middle, 1);
    input->MouseUp(MouseButton::Left, middle);
  }
  FrameworkElement* panel = nullptr;
  TextBox* box = nullptr;
};

TEST_F(FocusTest, IsGivenUpByWhatCanNotHaveItAnyMore) {
  struct Case {
    const char* what;
    std::function<void()> change;
  };
  const Case cases[] = {
      {"collapsed", [this] { box->SetVisibility(Visibility::Collapsed); }},
      {"hidden", [this] { box->SetVisibility(Visibility::Hidden); }},
      {"within a collapsed panel", [this] { panel->SetVisibility(Visibility::Collapsed); }},
      {"disabled", [this] { box->SetValue(UIElement::IsEnabledProperty, false); }},
      {"within a disabled panel", [this] { panel->SetValue(UIElement::IsEnabledProperty, false); }},
      {"not focusable", [this] { box->SetValue(UIElement::FocusableProperty, false); }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Show();
    ClickBox();
    input->TextInput("a");
    int losses = 0;
    bool isAttached = false;
    box->AddHandler(UIElement::LostFocusEvent, RoutedEventHandler::From([&](Object*, const RoutedEventArgs&) {
                      ++losses;
                      isAttached = box->IsAttached();
                    }));
    c.change();
    EXPECT_EQ(losses, 1);
    EXPECT_TRUE(isAttached);
    EXPECT_EQ(input->Focused(), nullptr);
    EXPECT_FALSE(box->IsFocused());
    input->TextInput("b");
    input->KeyDown(Key::Back);
    EXPECT_EQ(box->GetText(), "a");
    LayoutQueue::Current().Run();
  }
}

TEST_F(FocusTest, StaysWhereNothingStandsAgainstIt) {
  Show();
  ClickBox();
  root->FindName("Other")->SetVisibility(Visibility::Collapsed);
  root->FindName("Other")->SetValue(UIElement::IsEnabledProperty, false);
  panel->SetVisibility(Visibility::Visible);
  panel->SetValue(UIElement::FocusableProperty, false);
  EXPECT_TRUE(box->IsFocused());
}

TEST_F(FocusTest, MovesOnIfAHandlerOfTheLossMovesIt) {
  Show();
  ClickBox();
  UIElement* other = root->FindName("Other");
  box->AddHandler(UIElement::LostFocusEvent,
                  RoutedEventHandler::From([&](Object*, const RoutedEventArgs&) { other->Focus(); }));
  box->SetVisibility(Visibility::Collapsed);
  EXPECT_EQ(input->Focused(), other);
}

TEST_F(FocusTest, EndsTheSessionOfATextBoxThatIsDisabled) {
  Show();
  ClickBox();
  input->Composition("x", 1);
  ASSERT_GT(input->CaretRectangle().height, 0);
  box->SetValue(UIElement::IsEnabledProperty, false);
  EXPECT_EQ(input->CaretRectangle().height, 0);
  EXPECT_FALSE(Dispatcher::Current().HasWork()) << "the caret blinks on";
}

} // namespace
} // namespace Toolkit
