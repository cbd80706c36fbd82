#include "toolkit/application/MessageBox.h"
#include "toolkit/PopupTestStage.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/ScrollViewer.h"
#include "toolkit/controls/TextBox.h"

namespace Toolkit {
namespace {

class MessageBoxTest : public PopupTest {
protected:
  void ShowWindow() {
    Show("<StackPanel><TextBox x:Name=\"Text\"/><Button x:Name=\"Behind\" Content=\"behind\" Height=\"200\"/>"
         "</StackPanel>");
    window->PresentMessageBoxes();
    window->AddHandler(UIElement::KeyDownEvent,
                       RoutedEventHandler::From([this](Object*, const RoutedEventArgs&) { ++keysBehind; }));
    Find<Button>("Behind").AddHandler(ButtonBase::ClickEvent,
                                      RoutedEventHandler::From([this](Object*, const RoutedEventArgs&) { ++clicks; }));
    Find<TextBox>("Text").Focus();
    Settle();
  }
  void Ask(const std::string& name, MessageBoxButton buttons, MessageBoxImage image = MessageBoxImage::None) {
    MessageBox::Show(name, "Caption", buttons, image, [this, name](MessageBoxResult result) {
      answers += name + std::to_string(static_cast<int>(result)) + std::to_string(OpenPopups()) + " ";
    });
    Settle();
  }
  Button* Part(const char* content) { return PartIn(window->Popups(), content); }
  static Button* PartIn(UIElement& root, const char* content) {
    auto* button = DynamicCast<Button>(&root);
    if (button && button->IsVisible() && button->GetContent().AsStringView() == content) return button;
    for (size_t i = 0; i < root.VisualChildCount(); ++i)
      if (Button* found = PartIn(*root.VisualChild(i), content)) return found;
    return nullptr;
  }
  std::string answers;
  int keysBehind = 0, clicks = 0;
};

TEST_F(MessageBoxTest, IsAnsweredByButtonsAndKeys) {
  struct Case {
    MessageBoxButton buttons;
    std::vector<Key> keys;
    const char* answer;
  };
  const Case cases[] = {
      {MessageBoxButton::OK, {Key::Return}, "a10 "},
      {MessageBoxButton::OK, {Key::Escape}, "a10 "},
      {MessageBoxButton::OK, {Key::Tab, Key::Space}, "a10 "},
      {MessageBoxButton::OKCancel, {Key::Return}, "a10 "},
      {MessageBoxButton::OKCancel, {Key::Escape}, "a20 "},
      {MessageBoxButton::OKCancel, {Key::Tab, Key::Return}, "a20 "},
      {MessageBoxButton::OKCancel, {Key::Tab, Key::Space}, "a20 "},
      {MessageBoxButton::OKCancel, {Key::Tab, Key::Tab, Key::Return}, "a10 "},
      {MessageBoxButton::OKCancel, {Key::H, Key::Down}, ""},
  };
  ShowWindow();
  for (const Case& c : cases) {
    answers.clear();
    Ask("a", c.buttons);
    ASSERT_EQ(OpenPopups(), 1u);
    for (const Key key : c.keys) Type(key);
    EXPECT_EQ(answers, c.answer);
    if (!*c.answer) Type(Key::Return);
    EXPECT_TRUE(Find<TextBox>("Text").IsFocused());
  }
  EXPECT_EQ(keysBehind, 0);
  answers.clear();
  Ask("a", MessageBoxButton::OKCancel);
  Click(MiddleOf(*Part("Cancel")));
  Ask("b", MessageBoxButton::OKCancel);
  Click(MiddleOf(*Part("OK")));
  Ask("c", MessageBoxButton::OK);
  EXPECT_FALSE(Part("Cancel"));
  EXPECT_EQ(answers, "a20 b10 ");
}

TEST_F(MessageBoxTest, KeepsInputFromTheWindow) {
  ShowWindow();
  Ask("a", MessageBoxButton::OK);
  Click({20, 150});
  Click({20, 150}, MouseButton::Right);
  EXPECT_FALSE(input->MouseWheel({20, 150}, 1) && clicks);
  input->TextInput("x");
  // Even if the focus was taken behind the box.
  Find<TextBox>("Text").Focus();
  Type(Key::X);
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(keysBehind, 0);
  EXPECT_EQ(Find<TextBox>("Text").GetText(), "");
  EXPECT_EQ(answers, "");
  Type(Key::Escape);
  EXPECT_EQ(answers, "a10 ");
  Click({20, 150});
  EXPECT_EQ(clicks, 1);
}

TEST_F(MessageBoxTest, ShowsOneAfterTheOther) {
  ShowWindow();
  MessageBox::Show("first", "Caption", MessageBoxButton::OK, MessageBoxImage::Error, [this](MessageBoxResult) {
    answers += "first ";
    Ask("third", MessageBoxButton::OK);
  });
  Ask("second", MessageBoxButton::OK, MessageBoxImage::Warning);
  EXPECT_EQ(OpenPopups(), 1u);
  EXPECT_TRUE(Shows("first"));
  Type(Key::Return);
  EXPECT_TRUE(Shows("second"));
  Type(Key::Return);
  EXPECT_TRUE(Shows("third"));
  Type(Key::Return);
  EXPECT_EQ(answers, "first second10 third10 ");
}

TEST_F(MessageBoxTest, ScrollsALongTextInsideTheWindow) {
  ShowWindow();
  std::string text;
  for (int i = 0; i < 500; ++i) text += "many words ";
  Ask(text, MessageBoxButton::OKCancel);
  const Rect button = BoxOf(*Part("OK"));
  EXPECT_LE(button.Bottom(), Height);
  EXPECT_GE(button.y, Height * 0.5f);
  const std::shared_ptr<const DisplayList> before = frame;
  input->MouseWheel({Width * 0.5f, Height * 0.5f}, -1);
  Settle();
  EXPECT_EQ(BoxOf(*Part("OK")), button);
}

TEST_F(MessageBoxTest, MayEndTheWindow) {
  ShowWindow();
  Ptr<Window> held = window;
  // The callback holds the window, which must not keep both alive when they are never answered.
  MessageBox::Show("a", "b", MessageBoxButton::OK, MessageBoxImage::None, [held](MessageBoxResult) {});
  Ask("b", MessageBoxButton::OK);
  held.Reset();
  input->KeyDown(Key::LeftCtrl);
}

TEST_F(MessageBoxTest, SurvivesACallbackThatTakesTheWindowDown) {
  ShowWindow();
  MessageBox::Show("a", "b", MessageBoxButton::OK, MessageBoxImage::None,
                   [this](MessageBoxResult) { window->DetachAsRoot(); });
  Ask("b", MessageBoxButton::OK);
  input->KeyDown(Key::Return);
  EXPECT_EQ(answers, "");
}

} // namespace
} // namespace Toolkit
