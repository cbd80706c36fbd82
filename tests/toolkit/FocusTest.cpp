#include "toolkit/MarkupTest.h"
#include "toolkit/base/Dispatcher.h"

#include <functional>

namespace Toolkit {
namespace {

/// A box that has the focus by a click, within a panel, and another one.
class FocusTest : public StageTest {
protected:
  FocusTest() { ShowBoxes(); }
  void ShowBoxes() {
    Show("<StackPanel><StackPanel x:Name=\"Panel\"><TextBox x:Name=\"Box\" Height=\"20\"/></StackPanel>"
         "<TextBox x:Name=\"Other\" Height=\"20\"/></StackPanel>");
    panel = &Find("Panel");
    box = &Find<TextBox>("Box");
    Click(box);
  }
  FrameworkElement* panel = nullptr;
  TextBox* box = nullptr;
};

TEST_F(FocusTest, IsGivenUpByWhatCanNotHaveItAnyMore) {
  const std::pair<const char*, std::function<void()>> cases[] = {
      {"collapsed", [this] { box->SetVisibility(Visibility::Collapsed); }},
      {"hidden", [this] { box->SetVisibility(Visibility::Hidden); }},
      {"within a collapsed panel", [this] { panel->SetVisibility(Visibility::Collapsed); }},
      {"disabled", [this] { box->SetValue(UIElement::IsEnabledProperty, false); }},
      {"within a disabled panel", [this] { panel->SetValue(UIElement::IsEnabledProperty, false); }},
      {"not focusable", [this] { box->SetValue(UIElement::FocusableProperty, false); }},
  };
  for (const auto& [what, change] : cases) {
    SCOPED_TRACE(what);
    ShowBoxes();
    Type("a");
    int losses = 0;
    bool isAttached = false;
    Listen(*box, UIElement::LostFocusEvent, [&](auto&) {
      ++losses;
      isAttached = box->IsAttached();
    });
    change();
    EXPECT_EQ(losses, 1);
    EXPECT_TRUE(isAttached);
    EXPECT_EQ(Input().Focused(), nullptr);
    EXPECT_FALSE(box->IsFocused());
    Type("b");
    Press(Key::Back);
    EXPECT_EQ(box->GetText(), "a");
  }
}

TEST_F(FocusTest, StaysWhereNothingStandsAgainstIt) {
  Find("Other").SetVisibility(Visibility::Collapsed);
  Find("Other").SetValue(UIElement::IsEnabledProperty, false);
  panel->SetVisibility(Visibility::Visible);
  panel->SetValue(UIElement::FocusableProperty, false);
  EXPECT_TRUE(box->IsFocused());
}

TEST_F(FocusTest, MovesOnIfAHandlerOfTheLossMovesIt) {
  UIElement* other = &Find("Other");
  Listen(*box, UIElement::LostFocusEvent, [&](auto&) { other->Focus(); });
  box->SetVisibility(Visibility::Collapsed);
  EXPECT_EQ(Input().Focused(), other);
}

TEST_F(FocusTest, IsHandedOnWithItsPlaceForTab) {
  Show("<StackPanel><StackPanel x:Name=\"Panel\" Focusable=\"True\"><TextBox x:Name=\"A\" Height=\"20\"/>"
       "<TextBox x:Name=\"B\" Height=\"20\"/></StackPanel><TextBox x:Name=\"C\" Height=\"20\"/></StackPanel>");
  const auto focused = [this] { return DynamicCast<FrameworkElement>(Input().Focused())->GetName(); };
  for (const bool forward : {true, false}) {
    Click(Find("B"));
    Input().HandFocusOn(Find("A"));
    EXPECT_EQ(focused(), "B") << "it is not A's to give";
    Input().HandFocusOn(Find("B"));
    EXPECT_EQ(focused(), "Panel");
    Input().MoveFocus(forward);
    EXPECT_EQ(focused(), forward ? "C" : "A");
  }
  // Once it has been elsewhere, or where the former place is gone, Tab goes on from where it is.
  Click(Find("B"));
  Input().HandFocusOn(Find("B"));
  Focus(&Find("C"));
  Focus(&Find("Panel"));
  Press(Key::Tab);
  EXPECT_EQ(focused(), "A");
  Click(Find("B"));
  Input().HandFocusOn(Find("B"));
  Find("B").SetVisibility(Visibility::Collapsed);
  Press(Key::Tab);
  EXPECT_EQ(focused(), "A");
}

TEST_F(FocusTest, EndsTheSessionOfATextBoxThatIsDisabled) {
  Input().Composition("x", 1);
  ASSERT_GT(Input().CaretRectangle().height, 0);
  box->SetValue(UIElement::IsEnabledProperty, false);
  EXPECT_EQ(Input().CaretRectangle().height, 0);
  EXPECT_FALSE(Dispatcher::Current().HasWork()) << "the caret blinks on";
}

} // namespace
} // namespace Toolkit
