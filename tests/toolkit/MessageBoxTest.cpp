#include "toolkit/application/MessageBox.h"
#include "Expected.h"
#include "toolkit/MarkupTest.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/ScrollViewer.h"
#include "toolkit/controls/TextBox.h"

namespace Toolkit {
namespace {

class MessageBoxTest : public StageTest {
protected:
  void ShowWindow() {
    Show("<StackPanel><TextBox x:Name=\"Text\"/><Button x:Name=\"Behind\" Content=\"behind\" Height=\"200\"/>"
         "</StackPanel>");
    window->PresentMessageBoxes();
    Listen(*window, UIElement::KeyDownEvent, [this](auto&) { ++keysBehind; });
    Listen(Find("Behind"), ButtonBase::ClickEvent, [this](auto&) { ++clicks; });
    Focus(&Find("Text"));
  }
  void Ask(const std::string& name, MessageBoxButton buttons, MessageBoxImage image = MessageBoxImage::None) {
    MessageBox::Show(name, "Caption", buttons, image, [this, name](MessageBoxResult result) {
      answers += name + std::to_string(static_cast<int>(result)) + std::to_string(OpenPopups()) + " ";
    });
    Settle();
  }
  Button* Part(const char* content) {
    return TestSupport::Find<Button>(window->Popups(), [&](const Button& button) {
      return button.IsVisible() && button.GetContent().AsStringView() == content;
    });
  }
  std::string answers;
  int keysBehind = 0, clicks = 0;
};

TEST_F(MessageBoxTest, IsAnsweredByButtonsAndKeys) {
  const struct {
    MessageBoxButton buttons;
    const char* keys;
    const char* answer;
  } cases[] = {
      {MessageBoxButton::OK, "Return", "a10 "},          {MessageBoxButton::OK, "Escape", "a10 "},
      {MessageBoxButton::OK, "Tab Space", "a10 "},       {MessageBoxButton::OKCancel, "Return", "a10 "},
      {MessageBoxButton::OKCancel, "Escape", "a20 "},    {MessageBoxButton::OKCancel, "Tab Return", "a20 "},
      {MessageBoxButton::OKCancel, "Tab Space", "a20 "}, {MessageBoxButton::OKCancel, "Tab Tab Return", "a10 "},
      {MessageBoxButton::OKCancel, "H Down", ""},
  };
  ShowWindow();
  for (const auto& c : cases) {
    answers.clear();
    Ask("a", c.buttons);
    ASSERT_EQ(OpenPopups(), 1u);
    Run(c.keys);
    EXPECT_EQ(answers, c.answer);
    if (!*c.answer) Press(Key::Return);
    EXPECT_TRUE(Find("Text").IsFocused());
  }
  EXPECT_EQ(keysBehind, 0);
  answers.clear();
  Ask("a", MessageBoxButton::OKCancel);
  Click(Part("Cancel"));
  Ask("b", MessageBoxButton::OKCancel);
  Click(Part("OK"));
  Ask("c", MessageBoxButton::OK);
  EXPECT_FALSE(Part("Cancel"));
  EXPECT_EQ(answers, "a20 b10 ");
}

TEST_F(MessageBoxTest, HasButtonsOfItsOwn) {
  const std::pair<const char*, const char*> cases[] = {
      {"Return", "0"}, {"Tab Return", "1"}, {"Tab Tab Space", "2"}, {"Escape", "none"}, {"click", "1"}};
  ShowWindow();
  for (const auto& [keys, expected] : cases) {
    std::string chosen;
    MessageBox::Ask("a", "Caption", {"Save", "Discard", "Cancel"},
                    [&](std::optional<size_t> choice) { chosen += choice ? std::to_string(*choice) : "none"; });
    Settle();
    EXPECT_FALSE(Part("OK"));
    if (keys == std::string("click"))
      Click(Part("Discard"));
    else
      Run(keys);
    EXPECT_EQ(chosen, expected) << keys;
    EXPECT_TRUE(Find("Text").IsFocused());
  }
  size_t chosen = 0;
  MessageBox::Ask(
      "a", "Caption", {"Overwrite", "Cancel"}, [&](std::optional<size_t> choice) { chosen = *choice; }, 1);
  Settle();
  Run("Return");
  EXPECT_EQ(chosen, 1u) << "the default";
}

TEST_F(MessageBoxTest, KeepsInputFromTheWindow) {
  ShowWindow();
  Ask("a", MessageBoxButton::OK);
  Run("click:20,150 right:20,150 'x'");
  // Even if the focus was taken behind the box.
  Focus(&Find("Text"));
  Run("X");
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(keysBehind, 0);
  EXPECT_EQ(Find<TextBox>("Text").GetText(), "");
  EXPECT_EQ(answers, "");
  Run("Escape click:20,150");
  EXPECT_EQ(answers, "a10 ");
  EXPECT_EQ(clicks, 1);
}

TEST_F(MessageBoxTest, ShowsOneAfterTheOther) {
  ShowWindow();
  MessageBox::Show("first", "Caption", MessageBoxButton::OK, MessageBoxImage::Error, [this](MessageBoxResult) {
    answers += "first ";
    Ask("third", MessageBoxButton::OK);
  });
  Ask("second", MessageBoxButton::OK, MessageBoxImage::Warning);
  for (const char* shown : {"first", "second", "third"}) {
    EXPECT_EQ(OpenPopups(), 1u);
    EXPECT_TRUE(Shows(shown));
    Press(Key::Return);
  }
  EXPECT_EQ(answers, "first second10 third10 ");
}

TEST_F(MessageBoxTest, ScrollsALongTextInsideTheWindow) {
  ShowWindow();
  std::string text;
  for (int i = 0; i < 200; ++i) text += "many words ";
  Ask(text, MessageBoxButton::OKCancel);
  TestSupport::ExpectLayout("LongMessageBox", window->Popups());
  const Rect button = BoxOf(*Part("OK"));
  auto& viewer = TestSupport::First<ScrollViewer>(window->Popups());
  Wheel(viewer, -1);
  EXPECT_GT(viewer.ScrollOffset().y, 0);
  EXPECT_EQ(BoxOf(*Part("OK")), button);
}

TEST_F(MessageBoxTest, MayEndTheWindow) {
  ShowWindow();
  Ptr<Window> held = window;
  // The callback holds the window, which must not keep both alive when they are never answered.
  MessageBox::Show("a", "b", MessageBoxButton::OK, MessageBoxImage::None, [held](MessageBoxResult) {});
  Ask("b", MessageBoxButton::OK);
  held.Reset();
  KeyDown(Key::LeftCtrl);
}

TEST_F(MessageBoxTest, SurvivesACallbackThatTakesTheWindowDown) {
  ShowWindow();
  MessageBox::Show("a", "b", MessageBoxButton::OK, MessageBoxImage::None,
                   [this](MessageBoxResult) { window->DetachAsRoot(); });
  Ask("b", MessageBoxButton::OK);
  KeyDown(Key::Return);
  EXPECT_EQ(answers, "");
}

} // namespace
} // namespace Toolkit
