#include "toolkit/InputTestStage.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/CheckBox.h"
#include "toolkit/controls/ComboBox.h"
#include "toolkit/controls/HeaderedContentControl.h"
#include "toolkit/controls/Slider.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/controls/UserControl.h"

#include <cmath>

namespace Toolkit {
namespace {

/// A column of controls under a root that takes input.
class InputTest : public InputStageTest {
protected:
  void Show(const std::string& children) { ShowColumn(children, {200, 400}); }
  Point MiddleOf(const char* name) {
    const FrameworkElement* element = root->FindName(name);
    return element->TransformToAncestor(nullptr).Map({element->ActualWidth() * 0.5f, element->ActualHeight() * 0.5f});
  }
  void Click(const char* name, uint32_t count = 1) {
    input->MouseMove(MiddleOf(name));
    input->MouseDown(MouseButton::Left, MiddleOf(name), count);
    input->MouseUp(MouseButton::Left, MiddleOf(name));
  }
  template <class T> T& Find(const char* name) { return *root->FindName<T>(name); }
};

TEST_F(InputTest, TunnelsBeforeItBubblesAndStopsAtAHandledEvent) {
  Show("<StackPanel x:Name=\"Outer\"><Border x:Name=\"Inner\" Height=\"20\" Background=\"Red\"/></StackPanel>");
  std::vector<std::string> order;
  bool handle = false;
  auto note = [&](const char* name) {
    return RoutedEventHandler::From([&order, &handle, name](Object*, const RoutedEventArgs& args) {
      order.push_back(name);
      if (handle && std::string_view(name) == "outer preview") args.handled = true;
    });
  };
  auto& outer = Find<StackPanel>("Outer");
  FrameworkElement& inner = *root->FindName("Inner");
  outer.AddHandler(UIElement::PreviewMouseDownEvent, note("outer preview"));
  inner.AddHandler(UIElement::PreviewMouseDownEvent, note("inner preview"));
  inner.AddHandler(UIElement::MouseDownEvent, note("inner"));
  outer.AddHandler(UIElement::MouseDownEvent, note("outer"));
  outer.AddHandler(UIElement::MouseDownEvent, note("outer always"), true);
  outer.AddHandler(UIElement::PreviewMouseLeftButtonDownEvent, note("outer left preview"));
  input->MouseDown(MouseButton::Left, MiddleOf("Inner"), 1);
  EXPECT_EQ(order, (std::vector<std::string>{"outer left preview", "outer preview", "inner preview", "inner", "outer",
                                             "outer always"}));
  order.clear();
  handle = true;
  input->MouseDown(MouseButton::Left, MiddleOf("Inner"), 1);
  EXPECT_EQ(order, (std::vector<std::string>{"outer left preview", "outer preview", "outer always"}));
}

TEST_F(InputTest, SurvivesAHandlerThatRemovesTheElement) {
  Show("<StackPanel x:Name=\"Outer\"><Button x:Name=\"B\" Content=\"x\"/></StackPanel>");
  int rootEvents = 0;
  Find<Button>("B").AddHandler(ButtonBase::ClickEvent, RoutedEventHandler::From([&](Object*, const RoutedEventArgs&) {
                                 auto& outer = Find<StackPanel>("Outer");
                                 outer.ClearChildren();
                               }));
  root->AddHandler(ButtonBase::ClickEvent,
                   RoutedEventHandler::From([&](Object*, const RoutedEventArgs&) { ++rootEvents; }));
  Click("B");
  EXPECT_EQ(rootEvents, 1);
  EXPECT_EQ(input->Focused(), nullptr);
}

TEST_F(InputTest, ClicksOnlyWhenPressAndReleaseMeetTheButton) {
  Show("<Button x:Name=\"B\" Content=\"x\"/><CheckBox x:Name=\"C\"/>");
  int clicks = 0;
  Find<Button>("B").AddHandler(ButtonBase::ClickEvent,
                               RoutedEventHandler::From([&](Object*, const RoutedEventArgs&) { ++clicks; }));
  Click("B");
  EXPECT_EQ(clicks, 1);
  input->MouseDown(MouseButton::Left, MiddleOf("B"), 1);
  input->MouseUp(MouseButton::Left, MiddleOf("C"));
  EXPECT_EQ(clicks, 1);
  EXPECT_FALSE(Find<CheckBox>("C").IsChecked());
  input->KeyDown(Key::Space);
  EXPECT_EQ(clicks, 2);
  Click("C");
  EXPECT_TRUE(Find<CheckBox>("C").IsChecked());
  Find<Button>("B").SetValue(UIElement::IsEnabledProperty, false);
  Click("B");
  EXPECT_EQ(clicks, 2);
}

TEST_F(InputTest, MovesTheFocusAndTellsBothSides) {
  Show("<TextBox x:Name=\"A\"/><Border Height=\"5\"/><TextBox x:Name=\"B\"/><TextBox x:Name=\"C\" "
       "Visibility=\"Collapsed\"/>");
  std::string order;
  for (const char* name : {"A", "B"}) {
    Find<TextBox>(name).AddHandler(UIElement::GotFocusEvent,
                                   RoutedEventHandler::From([&order, name](Object*, const RoutedEventArgs&) {
                                     order += std::string("+") + name;
                                   }));
    Find<TextBox>(name).AddHandler(UIElement::LostFocusEvent,
                                   RoutedEventHandler::From([&order, name](Object*, const RoutedEventArgs&) {
                                     order += std::string("-") + name;
                                   }));
  }
  Click("A");
  input->KeyDown(Key::Tab);
  input->KeyUp(Key::Tab);
  EXPECT_TRUE(Find<TextBox>("B").IsFocused());
  input->KeyDown(Key::LeftShift);
  input->KeyDown(Key::Tab);
  EXPECT_TRUE(Find<TextBox>("A").IsFocused());
  root->RemoveChild(&Find<TextBox>("A"));
  EXPECT_EQ(order, "+A-A+B-B+A-A");
  EXPECT_EQ(input->Focused(), nullptr);
}

TEST_F(InputTest, EditsText) {
  Show("<TextBox x:Name=\"A\" Width=\"150\"/>");
  auto& box = Find<TextBox>("A");
  Click("A");
  input->TextInput("h\xC3\xA9llo w");
  EXPECT_EQ(box.GetText(), "h\xC3\xA9llo w");
  input->KeyDown(Key::Back);
  input->KeyDown(Key::Back);
  input->KeyDown(Key::Home);
  input->KeyDown(Key::Right);
  input->KeyDown(Key::Delete);
  EXPECT_EQ(box.GetText(), "hllo") << "a character of two bytes goes as one";
  input->KeyDown(Key::LeftCtrl);
  input->KeyDown(Key::A);
  input->KeyUp(Key::LeftCtrl);
  input->TextInput("z");
  EXPECT_EQ(box.GetText(), "z");
  input->KeyDown(Key::Return);
  EXPECT_EQ(box.GetText(), "z");
  box.SetText("one two");
  Click("A", 2);
  EXPECT_GT(box.SelectionLength(), 0u);
  box.SetText("");
  EXPECT_EQ(box.CaretIndex(), 0u);
  EXPECT_EQ(box.SelectionLength(), 0u);
}

TEST_F(InputTest, TellsOfEveryTextChangeOnce) {
  Show("<TextBox x:Name=\"A\"/>");
  int changes = 0;
  auto& box = Find<TextBox>("A");
  box.AddHandler(TextBox::TextChangedEvent,
                 RoutedEventHandler::From([&](Object*, const RoutedEventArgs&) { ++changes; }));
  box.SetText("a");
  box.SetText("a");
  EXPECT_EQ(changes, 1);
}

TEST_F(InputTest, TellsNobodyWhileAnElementIsDestroyed) {
  // A control that goes takes its content along; who listens to that may be half destroyed by then.
  int changes = 0;
  {
    auto owner = MakePtr<UserControl>();
    auto data = MakePtr<TestData>();
    data->SetText("bound");
    owner->SetDataContext(data.Get());
    auto panel = Make<StackPanel>("StackPanel", "><TextBox x:Name=\"T\" Text=\"{Binding Text}\"/></StackPanel>");
    owner->SetContent(Value(panel));
    auto* box = panel->FindName<TextBox>("T");
    ASSERT_EQ(box->GetText(), "bound");
    box->AddHandler(TextBox::TextChangedEvent,
                    RoutedEventHandler::From([&](Object*, const RoutedEventArgs&) { ++changes; }));
  }
  EXPECT_EQ(changes, 0);
}

TEST_F(InputTest, MovesASliderByKeysWithinItsBounds) {
  Show("<Slider x:Name=\"S\" Minimum=\"10\" Maximum=\"20\" LargeChange=\"4\"/>");
  auto& slider = Find<Slider>("S");
  Click("S");
  EXPECT_EQ(slider.GetValueNumber(), 15.0f);
  for (const auto& [key, value] : std::vector<std::pair<Key, float>>{{Key::PageUp, 19},
                                                                     {Key::PageUp, 20},
                                                                     {Key::Right, 20},
                                                                     {Key::Left, 19},
                                                                     {Key::Down, 18},
                                                                     {Key::Up, 19},
                                                                     {Key::Home, 10},
                                                                     {Key::Left, 10},
                                                                     {Key::Right, 11},
                                                                     {Key::PageDown, 10},
                                                                     {Key::End, 20},
                                                                     {Key::A, 20}}) {
    EXPECT_EQ(input->KeyDown(key), key != Key::A);
    EXPECT_EQ(slider.GetValueNumber(), value) << static_cast<int>(key);
  }
}

TEST_F(InputTest, DragsASliderByTheSpotWhereItWasTaken) {
  // The thumb's middle has 100 pixels of way, from 6 to 106.
  Show("<Slider x:Name=\"S\" Maximum=\"100\" Width=\"112\" HorizontalAlignment=\"Left\"/>");
  auto& slider = Find<Slider>("S");
  const auto value = [&] { return std::round(slider.GetValueNumber()); };
  const float y = MiddleOf("S").y;
  input->MouseDown(MouseButton::Left, {36, y}, 1);
  EXPECT_EQ(value(), 30) << "the track brings the thumb to the mouse";
  input->MouseUp(MouseButton::Left, {36, y});
  input->MouseDown(MouseButton::Left, {40, y}, 1);
  EXPECT_EQ(value(), 30) << "a press on the thumb does not move it";
  input->MouseMove({50, y + 200});
  EXPECT_EQ(value(), 40);
  input->MouseMove({500, y});
  EXPECT_EQ(value(), 100);
  input->MouseMove({-500, y});
  EXPECT_EQ(value(), 0);
  input->ReleaseAll();
  input->MouseMove({80, y});
  EXPECT_EQ(value(), 0);
  EXPECT_FALSE(slider.Get<bool>(Slider::IsDraggingProperty));
}

TEST_F(InputTest, ShowsTheFocusOnlyWhereAKeyBroughtIt) {
  Show("<Button x:Name=\"A\" Content=\"a\"/><Button x:Name=\"B\" Content=\"b\"/>");
  const auto shows = [this](const char* name) {
    return Find<Button>(name).Get<bool>(UIElement::IsFocusVisibleProperty);
  };
  Click("A");
  EXPECT_TRUE(Find<Button>("A").IsFocused());
  EXPECT_FALSE(shows("A"));
  input->KeyDown(Key::Tab);
  EXPECT_TRUE(shows("B"));
  input->KeyDown(Key::Tab);
  EXPECT_TRUE(shows("A"));
  EXPECT_FALSE(shows("B"));
  Click("B");
  EXPECT_FALSE(shows("A"));
  EXPECT_FALSE(shows("B"));
}

TEST_F(InputTest, ShowsAButtonPressedWhileAReleaseWouldClickIt) {
  Show("<Button x:Name=\"B\" Content=\"x\"/>");
  const auto isPressed = [this] { return Find<Button>("B").Get<bool>(ButtonBase::IsPressedProperty); };
  input->MouseDown(MouseButton::Left, MiddleOf("B"), 1);
  EXPECT_TRUE(isPressed());
  input->MouseMove({100, 300});
  EXPECT_FALSE(isPressed());
  input->MouseMove(MiddleOf("B"));
  EXPECT_TRUE(isPressed());
  input->ReleaseAll();
  input->MouseMove(MiddleOf("B"));
  EXPECT_FALSE(isPressed());
}

TEST_F(InputTest, OpensAnExpanderByItsHeaderAndByKeys) {
  Show("<Expander x:Name=\"E\" Header=\"head\"><Button x:Name=\"B\" Height=\"50\"/></Expander>"
       "<Button x:Name=\"Next\"/>");
  auto& expander = Find<Expander>("E");
  Click("E");
  LayoutQueue::Current().Run();
  EXPECT_TRUE(expander.IsExpanded());
  Click("B");
  EXPECT_TRUE(expander.IsExpanded());
  input->KeyDown(Key::Space);
  EXPECT_TRUE(expander.IsExpanded()) << "the key was for the button";
  expander.Focus();
  input->KeyDown(Key::Return);
  EXPECT_FALSE(expander.IsExpanded());
  input->KeyDown(Key::Tab);
  EXPECT_TRUE(Find<Button>("Next").IsFocused()) << "closed content is no stop";
  expander.Focus();
  input->KeyDown(Key::Space);
  input->KeyDown(Key::Space, true);
  EXPECT_TRUE(expander.IsExpanded());
  expander.SetValue(UIElement::IsEnabledProperty, false);
  LayoutQueue::Current().Run();
  input->MouseDown(MouseButton::Left, expander.TransformToAncestor(nullptr).Map({30, 5}), 1);
  EXPECT_TRUE(expander.IsExpanded());
}

TEST_F(InputTest, KeepsIndexAndItemOfASelectionTogether) {
  Show("<ComboBox x:Name=\"C\" DisplayMemberPath=\"Text\"/>");
  auto& combo = Find<ComboBox>("C");
  auto list = MakePtr<ObservableCollection<TestData>>();
  for (int i = 0; i < 3; ++i) list->Add(MakePtr<TestData>());
  combo.SetItemsSource(list.Get());
  int changes = 0;
  combo.AddHandler(Selector::SelectionChangedEvent,
                   RoutedEventHandler::From([&](Object*, const RoutedEventArgs&) { ++changes; }));
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
