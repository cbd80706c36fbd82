#include "MemoryClipboard.h"
#include "toolkit/MarkupTest.h"
#include "toolkit/controls/MenuItem.h"
#include "toolkit/controls/MenuSurface.h"
#include "toolkit/controls/Popup.h"

namespace Toolkit {
namespace {

/// A window with two text boxes, the second of which has a menu of its own.
class TextBoxMenuTest : public StageTest {
protected:
  TextBoxMenuTest() {
    Clipboard::SetBackend(&clipboard);
    Show("<StackPanel x:Name=\"Root\" Background=\"Black\" Focusable=\"True\"><TextBox x:Name=\"T\" Text=\"one two\"/>"
         "<TextBox x:Name=\"Own\"><TextBox.ContextMenu><ContextMenu><MenuItem Header=\"Mine\"/>"
         "</ContextMenu></TextBox.ContextMenu></TextBox></StackPanel>");
    box = &Find<TextBox>("T");
  }
  ~TextBoxMenuTest() override { Clipboard::SetBackend(nullptr); }
  Popup* Open() const { return window->Popups().Topmost(); }
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
  TextBox* box = nullptr;
};

TEST_F(TextBoxMenuTest, OffersWhatHasSomethingToDo) {
  const struct {
    const char* typed;
    size_t selected;
    const char* copied;
    bool isReadOnly;
    const char* items;
  } cases[] = {{"", 0, "", false, "[Undo] [Redo] [Cut] [Copy] [Paste] Select All"},
               {"x", 0, "", false, "Undo [Redo] [Cut] [Copy] [Paste] Select All"},
               {"", 3, "clip", false, "[Undo] [Redo] Cut Copy Paste Select All"},
               {"", 3, "clip", true, "[Undo] [Redo] [Cut] Copy [Paste] Select All"}};
  for (const auto& c : cases) {
    Focus(nullptr);
    box->SetText("one two");
    Focus(box);
    if (*c.typed) Type(c.typed);
    box->Select(0, c.selected);
    box->SetValue(TextBox::IsReadOnlyProperty, c.isReadOnly);
    clipboard.text = c.copied;
    Run("Apps");
    EXPECT_EQ(Items(), c.items);
    Run("Escape");
    EXPECT_EQ(Open(), nullptr);
  }
}

TEST_F(TextBoxMenuTest, DoesWhatIsChosenToTheBox) {
  Focus(box);
  box->Select(4, 3);
  const Point word = box->TransformToAncestor(nullptr).Map({box->CaretRectangle().x - 4, box->CaretRectangle().y + 5});
  // A click on what is selected leaves it selected.
  RightClick(word);
  ASSERT_TRUE(Open());
  Click(ItemAt(2));
  EXPECT_EQ(Open(), nullptr);
  EXPECT_EQ(box->GetText(), "one ");
  EXPECT_EQ(clipboard.text, "two");
  EXPECT_TRUE(box->IsFocused());
  // Elsewhere it takes the caret along.
  RightClick(box->TransformToAncestor(nullptr).Map({2, 8}));
  EXPECT_EQ(box->CaretIndex(), 0u);
  Click(ItemAt(4));
  EXPECT_EQ(box->GetText(), "twoone ");
  for (int i = 0; i < 2; ++i) {
    RightClick(word);
    Click(ItemAt(0));
  }
  EXPECT_EQ(box->GetText(), "one two");
}

TEST_F(TextBoxMenuTest, OpensAtTheCaretByKeys) {
  Focus(box);
  box->Select(7, 0);
  EXPECT_FALSE(Run("F10"));
  EXPECT_TRUE(Run("Shift+F10"));
  ASSERT_TRUE(Open());
  const Rect caret = Input().CaretRectangle();
  EXPECT_NEAR(Open()->Offset().x, caret.x, 1);
  EXPECT_NEAR(Open()->Offset().y, caret.Bottom(), 1);
}

TEST_F(TextBoxMenuTest, LeavesTheClicksOfOthersAlone) {
  auto& own = Find("Own");
  RightClick(own);
  EXPECT_EQ(Items(), "Mine");
  Run("Escape Apps");
  EXPECT_EQ(Items(), "Mine");
  Press(Key::Escape);

  // A press elsewhere that ends on the box is none of its clicks.
  Focus(box);
  Press({200, 250}, MouseButton::Right);
  Release(box, MouseButton::Right);
  EXPECT_EQ(Open(), nullptr);
  // Whoever around the box wants the press takes the focus.
  Listen(Find("Root"), UIElement::PreviewMouseDownEvent, [this](auto&) { Find("Root").Focus(); });
  RightClick(box);
  EXPECT_EQ(Open(), nullptr);
  EXPECT_FALSE(box->IsFocused());
  box->SetValue(UIElement::IsEnabledProperty, false);
  RightClick(box);
  EXPECT_EQ(Open(), nullptr);
}

} // namespace
} // namespace Toolkit
