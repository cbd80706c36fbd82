#include "MemoryClipboard.h"
#include "toolkit/MarkupTestSupport.h"
#include "toolkit/application/Window.h"
#include "toolkit/controls/MenuItem.h"
#include "toolkit/controls/MenuSurface.h"
#include "toolkit/controls/Popup.h"
#include "toolkit/controls/PopupLayer.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/TextBox.h"

namespace Toolkit {
namespace {

/// A window with two text boxes, the second of which has a menu of its own.
class TextBoxMenuTest : public MarkupTest {
protected:
  void SetUp() override {
    MarkupTest::SetUp();
    Clipboard::SetBackend(&clipboard);
    panel = Make<StackPanel>("StackPanel",
                             " Background=\"Black\" Focusable=\"True\"><TextBox x:Name=\"T\" Text=\"one two\"/>"
                             "<TextBox x:Name=\"Own\"><TextBox.ContextMenu><ContextMenu><MenuItem Header=\"Mine\"/>"
                             "</ContextMenu></TextBox.ContextMenu></TextBox></StackPanel>");
    box = panel->FindName<TextBox>("T");
    window = MakePtr<Window>();
    window->SetContent(Value(panel));
    input = std::make_unique<InputState>(*window);
    window->SetClientSize({400, 300});
  }
  void TearDown() override {
    input->SetFocus(nullptr);
    window->DetachAsRoot();
    window.Reset();
    panel.Reset();
    input.reset();
    Clipboard::SetBackend(nullptr);
    Dispatcher::Current().Clear();
    MarkupTest::TearDown();
  }
  Point MiddleOf(const UIElement& element) const {
    LayoutQueue::Current().Run();
    return element.TransformToAncestor(nullptr).Map({element.ActualWidth() * 0.5f, element.ActualHeight() * 0.5f});
  }
  void Click(MouseButton button, Point at) {
    input->MouseMove(at);
    input->MouseDown(button, at, 1);
    input->MouseUp(button, at);
  }
  Popup* Open() const {
    const PopupLayer* layer = PopupLayer::Of(*box);
    return layer ? layer->Topmost() : nullptr;
  }
  /// The items of the open menu; disabled ones in brackets.
  std::string Items() const {
    std::string text;
    for (size_t i = 0; MenuItem* item = ItemAt(i); ++i) {
      const std::string header(item->GetHeader().AsStringView());
      text += (i ? " " : "") + (item->IsEnabled() ? header : "[" + header + "]");
    }
    return text;
  }
  MenuItem* ItemAt(size_t index) const {
    const auto* menu = Open() ? DynamicCast<MenuSurface>(&Open()->Content()) : nullptr;
    return menu && index < menu->ItemCount() ? DynamicCast<MenuItem>(menu->ItemAt(index)) : nullptr;
  }

  TestSupport::MemoryClipboard clipboard;
  Ptr<Window> window;
  Ptr<StackPanel> panel;
  TextBox* box = nullptr;
  std::unique_ptr<InputState> input;
};

TEST_F(TextBoxMenuTest, OffersWhatHasSomethingToDo) {
  struct Case {
    const char* typed;
    size_t selected;
    const char* copied;
    bool isReadOnly;
    const char* items;
  };
  for (const Case& c : {Case{"", 0, "", false, "[Undo] [Redo] [Cut] [Copy] [Paste] Select All"},
                        Case{"x", 0, "", false, "Undo [Redo] [Cut] [Copy] [Paste] Select All"},
                        Case{"", 3, "clip", false, "[Undo] [Redo] Cut Copy Paste Select All"},
                        Case{"", 3, "clip", true, "[Undo] [Redo] [Cut] Copy [Paste] Select All"}}) {
    input->SetFocus(nullptr);
    box->SetText("one two");
    box->Focus();
    if (*c.typed) input->TextInput(c.typed);
    box->Select(0, c.selected);
    box->SetValue(TextBox::IsReadOnlyProperty, c.isReadOnly);
    clipboard.text = c.copied;
    input->KeyDown(Key::Apps);
    EXPECT_EQ(Items(), c.items);
    input->KeyDown(Key::Escape);
    EXPECT_EQ(Open(), nullptr);
  }
}

TEST_F(TextBoxMenuTest, DoesWhatIsChosenToTheBox) {
  box->Focus();
  box->Select(4, 3);
  const Point word = box->TransformToAncestor(nullptr).Map({box->CaretRectangle().x - 4, box->CaretRectangle().y + 5});
  // A click on what is selected leaves it selected.
  Click(MouseButton::Right, word);
  ASSERT_TRUE(Open());
  Click(MouseButton::Left, MiddleOf(*ItemAt(2)));
  EXPECT_EQ(Open(), nullptr);
  EXPECT_EQ(box->GetText(), "one ");
  EXPECT_EQ(clipboard.text, "two");
  EXPECT_TRUE(box->IsFocused());
  // Elsewhere it takes the caret along.
  Click(MouseButton::Right, box->TransformToAncestor(nullptr).Map({2, 8}));
  EXPECT_EQ(box->CaretIndex(), 0u);
  Click(MouseButton::Left, MiddleOf(*ItemAt(4)));
  EXPECT_EQ(box->GetText(), "twoone ");
  for (int i = 0; i < 2; ++i) {
    Click(MouseButton::Right, word);
    Click(MouseButton::Left, MiddleOf(*ItemAt(0)));
  }
  EXPECT_EQ(box->GetText(), "one two");
}

TEST_F(TextBoxMenuTest, OpensAtTheCaretByKeys) {
  box->Focus();
  box->Select(7, 0);
  EXPECT_FALSE(input->KeyDown(Key::F10));
  input->KeyDown(Key::LeftShift);
  EXPECT_TRUE(input->KeyDown(Key::F10));
  ASSERT_TRUE(Open());
  MiddleOf(*box);
  const Rect caret = input->CaretRectangle();
  EXPECT_NEAR(Open()->Offset().x, caret.x, 1);
  EXPECT_NEAR(Open()->Offset().y, caret.Bottom(), 1);
}

TEST_F(TextBoxMenuTest, LeavesTheClicksOfOthersAlone) {
  auto& own = *panel->FindName<TextBox>("Own");
  Click(MouseButton::Right, MiddleOf(own));
  EXPECT_EQ(Items(), "Mine");
  input->KeyDown(Key::Escape);
  input->KeyDown(Key::Apps);
  EXPECT_EQ(Items(), "Mine");
  input->KeyDown(Key::Escape);

  // A press elsewhere that ends on the box is none of its clicks.
  box->Focus();
  input->MouseDown(MouseButton::Right, {200, 250}, 1);
  input->MouseUp(MouseButton::Right, MiddleOf(*box));
  EXPECT_EQ(Open(), nullptr);
  // Whoever around the box wants the press takes the focus.
  panel->AddHandler(UIElement::PreviewMouseDownEvent,
                    RoutedEventHandler::From([this](Object*, const RoutedEventArgs&) { panel->Focus(); }));
  Click(MouseButton::Right, MiddleOf(*box));
  EXPECT_EQ(Open(), nullptr);
  EXPECT_FALSE(box->IsFocused());
  box->SetValue(UIElement::IsEnabledProperty, false);
  Click(MouseButton::Right, MiddleOf(*box));
  EXPECT_EQ(Open(), nullptr);
}

} // namespace
} // namespace Toolkit
