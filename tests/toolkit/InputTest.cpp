#include "toolkit/KeyScript.h"
#include "toolkit/MarkupTest.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/CheckBox.h"
#include "toolkit/controls/ComboBox.h"
#include "toolkit/controls/HeaderedContentControl.h"
#include "toolkit/controls/Slider.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/UserControl.h"

#include <cmath>

namespace Toolkit {
namespace {

/// A column of controls that takes input.
class InputTest : public StageTest {
protected:
  void ShowColumn(const std::string& children) {
    Show("<StackPanel x:Name=\"Root\" Background=\"Black\">" + children + "</StackPanel>", {200, 400});
  }
  using Stage::Click;
  void Click(const char* name) { Stage::Click(Find(name)); }
};

TEST_F(InputTest, TunnelsBeforeItBubblesAndStopsAtAHandledEvent) {
  ShowColumn("<StackPanel x:Name=\"Outer\"><Border x:Name=\"Inner\" Height=\"20\" Background=\"Red\"/></StackPanel>");
  std::string order;
  bool handle = false;
  const auto note = [&](const char* name) {
    return RoutedEventHandler::From([&order, &handle, name](Object*, const RoutedEventArgs& args) {
      order += std::string(name) + "; ";
      if (handle && std::string_view(name) == "outer preview") args.handled = true;
    });
  };
  auto& outer = Find("Outer");
  auto& inner = Find("Inner");
  outer.AddHandler(UIElement::PreviewMouseDownEvent, note("outer preview"));
  inner.AddHandler(UIElement::PreviewMouseDownEvent, note("inner preview"));
  inner.AddHandler(UIElement::MouseDownEvent, note("inner"));
  outer.AddHandler(UIElement::MouseDownEvent, note("outer"));
  outer.AddHandler(UIElement::MouseDownEvent, note("outer always"), true);
  outer.AddHandler(UIElement::PreviewMouseLeftButtonDownEvent, note("outer left preview"));
  Press(inner);
  EXPECT_EQ(order, "outer left preview; outer preview; inner preview; inner; outer; outer always; ");
  order.clear();
  handle = true;
  Press(inner);
  EXPECT_EQ(order, "outer left preview; outer preview; outer always; ");
}

TEST_F(InputTest, SurvivesAHandlerThatRemovesTheElement) {
  ShowColumn("<StackPanel x:Name=\"Outer\"><Button x:Name=\"B\" Content=\"x\"/></StackPanel>");
  int rootEvents = 0;
  Listen(Find("B"), ButtonBase::ClickEvent, [&](auto&) { Find<StackPanel>("Outer").ClearChildren(); });
  Listen(*window, ButtonBase::ClickEvent, [&](auto&) { ++rootEvents; });
  Click("B");
  EXPECT_EQ(rootEvents, 1);
  EXPECT_EQ(Input().Focused(), nullptr);
}

TEST_F(InputTest, ClicksOnlyWhenPressAndReleaseMeetTheButton) {
  ShowColumn("<Button x:Name=\"B\" Content=\"x\"/><CheckBox x:Name=\"C\"/>");
  auto& button = Find("B");
  int clicks = 0;
  Listen(button, ButtonBase::ClickEvent, [&](auto&) { ++clicks; });
  const auto isPressed = [&] { return button.Get<bool>(ButtonBase::IsPressedProperty); };
  Click("B");
  EXPECT_EQ(clicks, 1);
  Press(button);
  EXPECT_TRUE(isPressed());
  MoveTo(Find("C"));
  EXPECT_FALSE(isPressed());
  MoveTo(button);
  EXPECT_TRUE(isPressed());
  Release(Find("C"));
  EXPECT_EQ(clicks, 1);
  EXPECT_FALSE(Find<CheckBox>("C").IsChecked());
  Press(button);
  Input().ReleaseAll();
  MoveTo(button);
  EXPECT_FALSE(isPressed());
  KeyDown(Key::Space);
  EXPECT_EQ(clicks, 2);
  Click("C");
  EXPECT_TRUE(Find<CheckBox>("C").IsChecked());
  button.SetValue(UIElement::IsEnabledProperty, false);
  Click("B");
  EXPECT_EQ(clicks, 2);
}

TEST_F(InputTest, MovesTheFocusAndTellsBothSides) {
  ShowColumn("<TextBox x:Name=\"A\"/><Border Height=\"5\"/><TextBox x:Name=\"B\"/><TextBox x:Name=\"C\" "
             "Visibility=\"Collapsed\"/>");
  std::string order;
  for (const char* name : {"A", "B"}) {
    Listen(Find(name), UIElement::GotFocusEvent, [&order, name](auto&) { order += std::string("+") + name; });
    Listen(Find(name), UIElement::LostFocusEvent, [&order, name](auto&) { order += std::string("-") + name; });
  }
  Click("A");
  EXPECT_FALSE(Find("A").Get<bool>(UIElement::IsFocusVisibleProperty)) << "only a key shows where the focus is";
  Press(Key::Tab);
  EXPECT_TRUE(Find("B").IsFocused());
  EXPECT_TRUE(Find("B").Get<bool>(UIElement::IsFocusVisibleProperty));
  Chord({Key::LeftShift, Key::Tab});
  EXPECT_TRUE(Find("A").IsFocused());
  EXPECT_FALSE(Find("B").Get<bool>(UIElement::IsFocusVisibleProperty));
  Find<StackPanel>("Root").RemoveChild(&Find("A"));
  EXPECT_EQ(order, "+A-A+B-B+A-A");
  EXPECT_EQ(Input().Focused(), nullptr);
}

TEST_F(InputTest, TellsOfEveryTextChangeOnceAndNobodyWhileAnElementIsDestroyed) {
  int changes = 0;
  // A control that goes takes its content along; who listens to that may be half destroyed by then.
  auto owner = MakePtr<UserControl>();
  owner->SetDataContext(MakePtr<TestData>("bound").Get());
  auto panel = Make<StackPanel>("StackPanel", "><TextBox x:Name=\"T\" Text=\"{Binding Text}\"/></StackPanel>");
  owner->SetContent(Value(panel));
  auto* box = panel->FindName<TextBox>("T");
  ASSERT_EQ(box->GetText(), "bound");
  Listen(*box, TextBox::TextChangedEvent, [&](auto&) { ++changes; });
  box->SetText("a");
  box->SetText("a");
  EXPECT_EQ(changes, 1);
  panel.Reset();
  owner.Reset();
  EXPECT_EQ(changes, 1);
}

TEST_F(InputTest, MovesASliderByKeysWithinItsBounds) {
  ShowColumn("<Slider x:Name=\"S\" Minimum=\"10\" Maximum=\"20\" LargeChange=\"4\"/>");
  auto& slider = Find<Slider>("S");
  Click("S");
  EXPECT_EQ(slider.GetValueNumber(), 15.0f);
  const std::pair<const char*, float> steps[] = {{"PageUp", 19}, {"PageUp", 20},   {"Right", 20}, {"Left", 19},
                                                 {"Down", 18},   {"Up", 19},       {"Home", 10},  {"Left", 10},
                                                 {"Right", 11},  {"PageDown", 10}, {"End", 20},   {"A", 20}};
  for (const auto& [key, value] : steps) {
    EXPECT_EQ(RunKeys(*this, key), *key != 'A');
    EXPECT_EQ(slider.GetValueNumber(), value) << key;
  }
}

TEST_F(InputTest, DragsASliderByTheSpotWhereItWasTaken) {
  // The thumb's middle has 100 pixels of way, from 6 to 106.
  ShowColumn("<Slider x:Name=\"S\" Maximum=\"100\" Width=\"112\" HorizontalAlignment=\"Left\"/>");
  auto& slider = Find<Slider>("S");
  const auto value = [&] { return std::round(slider.GetValueNumber()); };
  const float y = MiddleOf(slider).y;
  Click({36, y});
  EXPECT_EQ(value(), 30) << "the track brings the thumb to the mouse";
  Press({40, y});
  EXPECT_EQ(value(), 30) << "a press on the thumb does not move it";
  for (const auto& [at, expected] : {std::pair{Point{50, y + 200}, 40}, {{500, y}, 100}, {{-500, y}, 0}}) {
    MoveTo(at);
    EXPECT_EQ(value(), expected);
  }
  Input().ReleaseAll();
  MoveTo({80, y});
  EXPECT_EQ(value(), 0);
  EXPECT_FALSE(slider.Get<bool>(Slider::IsDraggingProperty));
}

TEST_F(InputTest, OpensAnExpanderByItsHeaderAndByKeys) {
  ShowColumn("<Expander x:Name=\"E\" Header=\"head\"><Button x:Name=\"B\" Height=\"50\"/></Expander>"
             "<Button x:Name=\"Next\"/>");
  auto& expander = Find<Expander>("E");
  Click("E");
  EXPECT_TRUE(expander.IsExpanded());
  Click("B");
  EXPECT_TRUE(expander.IsExpanded());
  Press(Key::Space);
  EXPECT_TRUE(expander.IsExpanded()) << "the key was for the button";
  Focus(&expander);
  Press(Key::Return);
  EXPECT_FALSE(expander.IsExpanded());
  Press(Key::Tab);
  EXPECT_TRUE(Find("Next").IsFocused()) << "closed content is no stop";
  Focus(&expander);
  KeyDown(Key::Space);
  Input().KeyDown(Key::Space, true);
  EXPECT_TRUE(expander.IsExpanded());
  expander.SetValue(UIElement::IsEnabledProperty, false);
  Press({30, 5});
  EXPECT_TRUE(expander.IsExpanded());
}

TEST_F(InputTest, KeepsIndexAndItemOfASelectionTogether) {
  ShowColumn("<ComboBox x:Name=\"C\" DisplayMemberPath=\"Text\"/>");
  auto& combo = Find<ComboBox>("C");
  const auto list = MakeItems({"", "", ""});
  combo.SetItemsSource(list.Get());
  int changes = 0;
  Listen(combo, Selector::SelectionChangedEvent, [&](auto&) { ++changes; });
  combo.SetSelectedIndex(1);
  EXPECT_EQ(combo.GetSelectedItem(), list->Get(1));
  combo.SetSelectedItem(list->Get(2));
  EXPECT_EQ(combo.GetSelectedIndex(), 2);
  EXPECT_EQ(changes, 2);
  list->RemoveAt(0);
  EXPECT_EQ(combo.GetSelectedIndex(), 1);
  EXPECT_EQ(changes, 2) << "the selected item only moved";
  list->RemoveAt(1);
  EXPECT_EQ(combo.GetSelectedIndex(), -1);
  EXPECT_EQ(combo.GetSelectedItem(), nullptr);
  EXPECT_EQ(changes, 3);
  combo.SetSelectedIndex(99);
  EXPECT_EQ(combo.GetSelectedIndex(), -1);
}

} // namespace
} // namespace Toolkit
