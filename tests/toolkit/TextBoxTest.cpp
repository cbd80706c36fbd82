#include "toolkit/controls/TextBox.h"
#include "Expected.h"
#include "MemoryClipboard.h"
#include "toolkit/MarkupTest.h"
#include "toolkit/base/Dispatcher.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/text/TextCache.h"

namespace Toolkit {
namespace {

/// One focused text box above another.
class TextBoxTest : public StageTest {
protected:
  TextBoxTest() { Clipboard::SetBackend(&clipboard); }
  ~TextBoxTest() override { Clipboard::SetBackend(nullptr); }

  /// `marked` is the text with a caret "|", and "^" where a selection that ends at the caret begins.
  void ShowBox(const std::string& attributes, std::string marked) {
    Show("<StackPanel x:Name=\"Root\"><TextBox x:Name=\"T\" BorderThickness=\"1\" Padding=\"4 2\" " + attributes +
             "/><TextBox x:Name=\"Next\" Text=\"next\"/></StackPanel>",
         {200, 400});
    box = &Find<TextBox>("T");
    size_t caret = marked.find('|');
    marked.erase(caret, 1);
    size_t anchor = marked.find('^');
    if (anchor == std::string::npos) {
      anchor = caret;
    } else {
      marked.erase(anchor, 1);
      if (anchor < caret) --caret;
    }
    box->SetText(marked);
    Focus(box);
    box->Select(anchor, caret - anchor);
  }
  std::string Marked() const {
    std::string text(box->GetText());
    const size_t start = box->SelectionStart(), end = start + box->SelectionLength();
    text.insert(box->CaretIndex(), "|");
    if (start != end) text.insert(box->CaretIndex() == start ? end + 1 : start, "^");
    return text;
  }
  /// From the box's corner.
  Point At(float x, float y) const { return box->TransformToAncestor(nullptr).Map({x, y}); }
  Point PointAt(size_t index) {
    const size_t caret = box->CaretIndex(), start = box->SelectionStart(), length = box->SelectionLength();
    box->Select(index, 0);
    const Rect at = box->CaretRectangle();
    box->Select(start == caret ? start + length : start, 0);
    return box->TransformToAncestor(nullptr).Map({at.x, at.y + at.height * 0.5f});
  }

  TestSupport::MemoryClipboard clipboard;
  TextBox* box = nullptr;
};

constexpr const char* Plain = "";
constexpr const char* Lines = "AcceptsReturn=\"True\"";

TEST_F(TextBoxTest, EditsByKeys) {
  using Edit = std::pair<const char*, const char*>;
  std::string dump;
  const auto run = [&](const char* attributes, const std::vector<Edit>& edits, const std::string& copied = "") {
    for (const auto& [before, script] : edits) {
      ShowBox(attributes, before);
      clipboard.text = copied;
      Run(script);
      std::string line = std::string(before) + "   " + script + "   " + Marked();
      for (size_t at; (at = line.find('\n')) != std::string::npos;) line.replace(at, 1, "\\n");
      dump += line + "\n";
    }
  };
  // Moves.
  run(Plain, {{"one two|", "Ctrl+Left"},
              {"one |two", "Ctrl+Shift+Left Ctrl+Shift+Right"},
              {"one |two", "Shift+End"},
              {"one ^two|", "Left"},
              {"one ^two|", "Right"},
              {"one^ two|", "Shift+Left"}});
  run(Lines, {{"a\nlong line\n|b", "Up"},
              {"a\nlong lin|e\nb", "Down Up"},
              {"a\nlong|\nb", "Shift+Home"},
              {"a\nlong|\nb", "Ctrl+Home"},
              {"a|b\nc", "Up"},
              {"ab\n|cd", "Down"}});
  // Edits.
  run(Plain, {{"h\xC3\xA9|llo", "Back"},
              {"h|\xC3\xA9llo", "Delete"},
              {"one| two", "Ctrl+A 'z'"},
              {"one two|", "Ctrl+Back"},
              {"|one two", "Ctrl+Delete"},
              {"o^ne tw|o", "'x'"},
              {"ab|", "Return"}});
  run(Lines, {{"a|b", "Return"}});
  run("IsReadOnly=\"True\"", {{"ab|c", "'x' Back Delete Ctrl+V"}}, "y");
  run("MaxLength=\"4\"", {{"\xC3\xA9t|", "'abc'"}, {"a|b", "Ctrl+V"}}, "\xC3\xA9\xC3\xA9\xC3\xA9");
  // Clipboard.
  run(Plain,
      {{"on^e t|wo", "Ctrl+C End Ctrl+V"},
       {"on^e t|wo", "Ctrl+X Ctrl+V Ctrl+V"},
       {"on^e t|wo", "Shift+Delete Home Shift+Insert"},
       {"a|", "Ctrl+C Ctrl+V"}},
      "kept");
  run(Plain, {{"|", "Ctrl+V"}}, "one\r\ntwo\n");
  run(Lines, {{"|", "Ctrl+V"}}, "one\r\ntwo\rthree");
  run(Plain, {{"|", "Ctrl+V"}}, "a\xFFz");
  // Undo within the session.
  run(Plain, {{"|", "'one_two' Ctrl+Z"},
              {"|", "'one_two' Ctrl+Z Ctrl+Z Ctrl+Y Ctrl+Shift+Z"},
              {"|", "'ab' Left 'c' Ctrl+Z"},
              {"a^b|", "'x' Ctrl+Z"},
              {"ab|", "Back Back Ctrl+Z 'c' Ctrl+Y"}});
  TestSupport::ExpectText("TextBoxEdits", dump);
}

TEST_F(TextBoxTest, TakesNoTextThatAKeyOfACommandMakes) {
  using Keys = std::vector<Key>;
  const std::pair<Keys, bool> cases[] = {
      {{}, true},
      {{Key::LeftShift}, true},
      {{Key::LeftCtrl}, false},
      {{Key::RightCtrl, Key::LeftShift}, false},
      {{Key::LeftAlt}, false},
      {{Key::LeftWin}, false},
      {{Key::RightWin}, false},
      // The third level of a keyboard, as some systems tell of it.
      {{Key::RightAlt}, true},
      {{Key::LeftCtrl, Key::RightAlt}, true},
  };
  for (size_t i = 0; i < std::size(cases); ++i) {
    ShowBox(Plain, "2|");
    for (const Key key : cases[i].first) KeyDown(key);
    Type("0");
    for (const Key key : cases[i].first) KeyUp(key);
    EXPECT_EQ(box->GetText(), cases[i].second ? "20" : "2") << i;
  }
}

TEST_F(TextBoxTest, LeavesUndoToOthersOnceItHasNone) {
  ShowBox(Plain, "a|");
  EXPECT_FALSE(Run("Ctrl+Z"));
  Run("'b'");
  EXPECT_TRUE(Run("Ctrl+Z"));
  EXPECT_FALSE(Run("Ctrl+Z"));
  EXPECT_TRUE(Run("Ctrl+Y"));
  // A change from outside ends the undo: its steps would not fit any more.
  box->SetText("other");
  EXPECT_FALSE(Run("Ctrl+Z"));
  EXPECT_EQ(box->GetText(), "other");
  // And so does a session's end.
  Run("'c' Tab");
  box->Focus();
  EXPECT_FALSE(Run("Ctrl+Z"));
}

TEST_F(TextBoxTest, UndoesWhatAFilterOfItsTextMadeOfIt) {
  ShowBox(Plain, "|");
  Listen(*box, TextBox::TextChangedEvent, [this](auto&) {
    std::string digits;
    for (const char c : box->GetText())
      if (c >= '0' && c <= '9') digits += c;
    box->SetText(digits);
  });
  Run("'12' Left 'x' '3'");
  EXPECT_EQ(box->GetText(), "132");
  Run("Ctrl+Z");
  EXPECT_EQ(Marked(), "1|2");
  Run("Ctrl+Z");
  EXPECT_EQ(box->GetText(), "");
}

TEST_F(TextBoxTest, SelectsByTheMouse) {
  const std::string text = "one two\nthree four";
  const struct {
    uint32_t clicks;
    size_t from, to;
    const char* after;
  } cases[] = {{1, 5, 5, "one t|wo\nthree four"},   {1, 1, 6, "o^ne tw|o\nthree four"},
               {1, 12, 2, "on|e two\nthre^e four"}, {2, 5, 5, "one ^two|\nthree four"},
               {2, 5, 9, "one ^two\nthree| four"},  {2, 5, 1, "|one two^\nthree four"},
               {3, 2, 2, "^one two|\nthree four"},  {3, 2, 10, "^one two\nthree four|"}};
  for (const auto& c : cases) {
    ShowBox(Lines, "|" + text);
    const Point from = PointAt(c.from), to = PointAt(c.to);
    Drag(from, to, {.count = c.clicks});
    MoveTo({1, 1});
    EXPECT_EQ(Marked(), c.after) << c.clicks << " clicks from " << c.from << " to " << c.to;
  }
  ShowBox(Plain, "some| words");
  Click(PointAt(7), {.held = {Key::LeftShift}});
  Run("Tab Shift+Tab");
  EXPECT_EQ(Marked(), "^some words|") << "the Tab key selects the text it comes to";
}

TEST_F(TextBoxTest, ShowsWhatAnInputMethodComposes) {
  ShowBox(Plain, "a^b|c");
  const float before = box->CaretRectangle().x;
  Input().Composition("mmm", 3);
  EXPECT_EQ(box->GetText(), "ac") << "what was selected goes, what is composed is no text yet";
  EXPECT_GT(box->CaretRectangle().x, before);
  Type("\xE6\xBC\xA2");
  EXPECT_EQ(Marked(), "a\xE6\xBC\xA2|c");
  Input().Composition("x", 1);
  Run("Tab");
  EXPECT_EQ(box->GetText(), "a\xE6\xBC\xA2"
                            "c");
}

TEST_F(TextBoxTest, KeepsTheCaretInSight) {
  ShowBox("Width=\"80\"", "|");
  const auto isInSight = [this] {
    const Rect caret = box->CaretRectangle();
    return caret.x >= 0 && caret.Right() <= box->ActualWidth() && caret.y >= 0 && caret.Bottom() <= box->ActualHeight();
  };
  Run("'a_long_text_that_does_not_fit'");
  EXPECT_TRUE(isInSight());
  Run("Home");
  EXPECT_TRUE(isInSight());
  EXPECT_LT(box->CaretRectangle().x, 10);

  ShowBox(
      "Width=\"80\" Height=\"40\" TextWrapping=\"Wrap\" AcceptsReturn=\"True\" VerticalScrollBarVisibility=\"Auto\"",
      "|one two three four five six seven eight");
  Run("Ctrl+End");
  EXPECT_TRUE(isInSight());
  const float bottom = box->CaretRectangle().y;
  // The wheel scrolls, and does not go on to those around at the end of the way.
  EXPECT_TRUE(Wheel(*box, 1));
  EXPECT_GT(box->CaretRectangle().y, bottom);
  for (int i = 0; i < 10; ++i) Wheel(*box, 1);
  EXPECT_TRUE(Wheel(*box, 1));
  Run("Ctrl+End");
  const float end = box->CaretRectangle().y;
  Focus(nullptr);
  EXPECT_GT(box->CaretRectangle().y, end + 20) << "a box that is left shows its beginning";
  EXPECT_FALSE(Wheel(*box, -1)) << "without the focus the wheel is for those around";
  Focus(box);
  box->SetText("short");
  EXPECT_FALSE(Wheel(*box, 1)) << "there is nothing to scroll";
}

TEST_F(TextBoxTest, ShowsAllOfATextThatItHasGrownFor) {
  ShowBox("HorizontalAlignment=\"Left\"", "ab|");
  Type("cdefghi");
  Click({6, 10});
  EXPECT_EQ(Marked(), "|abcdefghi");
}

TEST_F(TextBoxTest, LaysOutNoTextThatIsOnlySet) {
  ShowBox("", "|");
  const auto notes =
      Make<TextBox>("TextBox", " AcceptsReturn=\"True\" Height=\"40\" VerticalScrollBarVisibility=\"Auto\"/>");
  Find<StackPanel>("Root").AddChild(notes.Get());
  Settle();
  const size_t before = TextCache::Instance().LayoutStatistics().misses;
  // As a file does that is loaded: nobody sees these texts.
  for (int i = 0; i < 3; ++i) notes->SetText("a text that nobody has seen yet " + std::to_string(i));
  EXPECT_EQ(TextCache::Instance().LayoutStatistics().misses, before);
}

TEST_F(TextBoxTest, ScrollsByItsBar) {
  ShowBox("Width=\"80\" Height=\"46\" AcceptsReturn=\"True\" VerticalScrollBarVisibility=\"Auto\"",
          "|a\nb\nc\nd\ne\nf\ng\nh\ni\nj");
  Focus(nullptr);
  const Rect content{5, 3, 80 - 5 - 12, 40};
  const auto firstLine = [this] { return box->CaretRectangle().y; };
  const Point top = At(75, content.y + 2), bottom = At(75, content.Bottom() - 1);
  const float start = firstLine(), extent = box->CaretRectangle().height * 10;
  Click(bottom);
  EXPECT_FLOAT_EQ(firstLine(), start - 40) << "a press beside the bar takes a page";
  Click(top);
  EXPECT_FLOAT_EQ(firstLine(), start);
  Drag(top, {top.x + 100, top.y + 100});
  EXPECT_FLOAT_EQ(firstLine(), start - (extent - 40));
  EXPECT_FALSE(box->IsFocused());
  EXPECT_EQ(Marked(), "|a\nb\nc\nd\ne\nf\ng\nh\ni\nj") << "nothing was selected on the way";
  MoveTo(bottom);
  EXPECT_EQ(box->GetString(FrameworkElement::CursorProperty), "Arrow");
  MoveTo(At(20, 20));
  EXPECT_EQ(box->GetString(FrameworkElement::CursorProperty), "IBeam");
  // Short text has no bar: the same press is for the text.
  box->SetText("short");
  Click(bottom);
  EXPECT_EQ(Marked(), "short|");
}

TEST_F(TextBoxTest, SelectsOnWhileTheMouseRestsOutside) {
  std::string lines;
  for (int i = 0; i < 50; ++i) lines += "line\n";
  ShowBox("Width=\"80\" Height=\"46\" AcceptsReturn=\"True\"", "|" + lines);
  Press(At(6, 6));
  MoveTo(At(6, 50));
  const size_t atOnce = box->SelectionLength();
  Wait(160);
  const size_t slowly = box->SelectionLength() - atOnce;
  EXPECT_GT(slowly, 0u);
  MoveTo(At(6, 300));
  Wait(160);
  EXPECT_GT(box->SelectionLength() - atOnce - slowly, 2 * slowly) << "farther outside it goes faster";
  Wait(2400);
  EXPECT_EQ(box->SelectionLength(), lines.size());
  // Back inside, and after the release, it rests.
  MoveTo(At(6, 20));
  const std::string rest = Marked();
  Wait(160);
  EXPECT_EQ(Marked(), rest);
  MoveTo(At(6, -100));
  Release(At(6, -100));
  const std::string released = Marked();
  Wait(160);
  EXPECT_EQ(Marked(), released);

  ShowBox("Width=\"80\"", "|a line that is longer than its box");
  Press(At(6, 6));
  MoveTo(At(300, 6));
  EXPECT_LT(box->SelectionLength(), box->GetText().size());
  Wait(1200);
  EXPECT_EQ(box->SelectionLength(), box->GetText().size());
}

TEST_F(TextBoxTest, BlinksForAWhileAndOnlyWithTheFocus) {
  ShowBox(Plain, "a|");
  const auto drawn = [this] {
    Wait(530);
    return Frame().Entries().size();
  };
  const size_t first = drawn(), second = drawn();
  EXPECT_NE(first, second);
  EXPECT_EQ(drawn(), first);
  Wait(32000);
  EXPECT_FALSE(Dispatcher::Current().HasWork()) << "an idle box must let the program sleep";
  Run("'b'");
  EXPECT_TRUE(Dispatcher::Current().HasWork());
  Focus(nullptr);
  EXPECT_FALSE(Dispatcher::Current().HasWork());
}

} // namespace
} // namespace Toolkit
