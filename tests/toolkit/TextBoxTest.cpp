#include "toolkit/controls/TextBox.h"
#include "MemoryClipboard.h"
#include "toolkit/MarkupTestSupport.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/render/FrameRecorder.h"
#include "toolkit/text/TextCache.h"

#include <map>
#include <optional>
#include <sstream>

namespace Toolkit {
namespace {

/// One focused text box between two others, driven by words: a text in quotes is typed, "Ctrl+Shift+Left" is pressed,
/// "copy=..." fills the clipboard, "compose=..." is what an input method shows.
class TextBoxTest : public MarkupTest {
protected:
  void SetUp() override {
    MarkupTest::SetUp();
    Dispatcher::Current().SetClock([this] { return now; });
    Clipboard::SetBackend(&clipboard);
  }
  void TearDown() override {
    Clipboard::SetBackend(nullptr);
    if (root) root->DetachAsRoot();
    input.reset();
    root.Reset();
    Dispatcher::Current().Clear();
    MarkupTest::TearDown();
  }

  /// `marked` is the text with a caret "|", and "^" where a selection that ends at the caret begins.
  void Show(const std::string& attributes, std::string marked) {
    if (root) root->DetachAsRoot();
    input.reset();
    root = Make<StackPanel>("StackPanel", "><TextBox x:Name=\"T\" BorderThickness=\"1\" Padding=\"4 2\" " + attributes +
                                              "/><TextBox x:Name=\"Next\" Text=\"next\"/></StackPanel>");
    box = root->FindName<TextBox>("T");
    input = std::make_unique<InputState>(*root);
    root->AttachAsRoot();
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
    Settle();
    box->Focus();
    box->Select(anchor, caret - anchor);
  }
  void Settle() {
    root->Measure({200, 400});
    root->Arrange({0, 0, 200, 400});
    LayoutQueue::Current().Run();
  }
  std::string Marked() const {
    std::string text(box->GetText());
    const size_t start = box->SelectionStart(), end = start + box->SelectionLength();
    text.insert(box->CaretIndex(), "|");
    if (start != end) text.insert(box->CaretIndex() == start ? end + 1 : start, "^");
    return text;
  }

  /// True if the last key was taken.
  bool Press(const std::string& chord) {
    static const std::map<std::string, Key> keys{{"Ctrl", Key::LeftCtrl}, {"Shift", Key::LeftShift},
                                                 {"Left", Key::Left},     {"Right", Key::Right},
                                                 {"Up", Key::Up},         {"Down", Key::Down},
                                                 {"Home", Key::Home},     {"End", Key::End},
                                                 {"Back", Key::Back},     {"Delete", Key::Delete},
                                                 {"Insert", Key::Insert}, {"Return", Key::Return},
                                                 {"Tab", Key::Tab},       {"PageDown", Key::PageDown},
                                                 {"A", Key::A},           {"C", Key::C},
                                                 {"V", Key::V},           {"X", Key::X},
                                                 {"Y", Key::Y},           {"Z", Key::Z}};
    std::istringstream names(chord);
    std::vector<Key> pressed;
    bool taken = false;
    for (std::string name; std::getline(names, name, '+');) {
      pressed.push_back(keys.at(name));
      taken = input->KeyDown(pressed.back());
    }
    for (const Key key : pressed) input->KeyUp(key);
    return taken;
  }
  void Run(const std::string& script) {
    std::istringstream words(script);
    for (std::string word; words >> word;) {
      if (word.starts_with('\'')) {
        for (char& c : word)
          if (c == '_') c = ' ';
        for (size_t i = 1; i < word.size() && word[i] != '\''; ++i) input->TextInput(word.substr(i, 1));
      } else if (word.starts_with("copy=")) {
        clipboard.text = Unescaped(word.substr(5));
      } else if (word.starts_with("compose=")) {
        input->Composition(word.substr(8), word.size() - 8);
      } else {
        Press(word);
      }
    }
  }
  static std::string Unescaped(std::string text) {
    for (size_t at; (at = text.find("\\n")) != std::string::npos;) text.replace(at, 2, "\n");
    for (size_t at; (at = text.find("\\r")) != std::string::npos;) text.replace(at, 2, "\r");
    return text;
  }
  Point PointAt(size_t index) {
    const size_t caret = box->CaretIndex(), start = box->SelectionStart(), length = box->SelectionLength();
    box->Select(index, 0);
    const Rect at = box->CaretRectangle();
    box->Select(start == caret ? start + length : start, 0);
    return box->TransformToAncestor(nullptr).Map({at.x, at.y + at.height * 0.5f});
  }

  double now = 0;
  TestSupport::MemoryClipboard clipboard;
  Ptr<StackPanel> root;
  TextBox* box = nullptr;
  std::unique_ptr<InputState> input;
};

constexpr const char* Plain = "";
constexpr const char* Lines = "AcceptsReturn=\"True\"";

TEST_F(TextBoxTest, EditsByKeys) {
  struct Case {
    const char* attributes;
    const char* before;
    const char* script;
    const char* after;
  };
  for (const Case& c : std::vector<Case>{
           // Moves.
           {Plain, "one two|", "Ctrl+Left", "one |two"},
           {Plain, "one |two", "Ctrl+Shift+Left Ctrl+Shift+Right", "one |two"},
           {Plain, "one |two", "Shift+End", "one ^two|"},
           {Plain, "one ^two|", "Left", "one |two"},
           {Plain, "one ^two|", "Right", "one two|"},
           {Plain, "one^ two|", "Shift+Left", "one^ tw|o"},
           {Lines, "a\nlong line\n|b", "Up", "a\n|long line\nb"},
           {Lines, "a\nlong lin|e\nb", "Down Up", "a\nlong lin|e\nb"},
           {Lines, "a\nlong|\nb", "Shift+Home", "a\n|long^\nb"},
           {Lines, "a\nlong|\nb", "Ctrl+Home", "|a\nlong\nb"},
           {Lines, "a|b\nc", "Up", "|ab\nc"},
           {Lines, "ab\n|cd", "Down", "ab\ncd|"},
           // Edits.
           {Plain, "one two|", "Ctrl+Back", "one |"},
           {Plain, "|one two", "Ctrl+Delete", "|two"},
           {Plain, "o^ne tw|o", "'x'", "ox|o"},
           {Plain, "ab|", "Return", "ab|"},
           {Lines, "a|b", "Return", "a\n|b"},
           {"IsReadOnly=\"True\"", "ab|c", "'x' Back Delete copy=y Ctrl+V", "ab|c"},
           {"MaxLength=\"4\"", "\xC3\xA9t|", "'abc'", "\xC3\xA9tab|"},
           {"MaxLength=\"4\"", "a|b", "copy=\xC3\xA9\xC3\xA9\xC3\xA9 Ctrl+V", "a\xC3\xA9\xC3\xA9|b"},
           // Clipboard.
           {Plain, "on^e t|wo", "Ctrl+C End Ctrl+V", "one twoe t|"},
           {Plain, "on^e t|wo", "Ctrl+X Ctrl+V Ctrl+V", "one te t|wo"},
           {Plain, "on^e t|wo", "Shift+Delete Home Shift+Insert", "e t|onwo"},
           {Plain, "a|", "copy=kept Ctrl+C Ctrl+V", "akept|"},
           {Plain, "|", "copy=one\\r\\ntwo\\n Ctrl+V", "one two|"},
           {Lines, "|", "copy=one\\r\\ntwo\\rthree Ctrl+V", "one\ntwo\nthree|"},
           {Plain, "|", "copy=a\xFFz Ctrl+V", "a\xEF\xBF\xBDz|"},
           // Undo within the session.
           {Plain, "|", "'one_two' Ctrl+Z", "one |"},
           {Plain, "|", "'one_two' Ctrl+Z Ctrl+Z Ctrl+Y Ctrl+Shift+Z", "one two|"},
           {Plain, "|", "'ab' Left 'c' Ctrl+Z", "a|b"},
           {Plain, "a^b|", "'x' Ctrl+Z", "a^b|"},
           {Plain, "ab|", "Back Back Ctrl+Z 'c' Ctrl+Y", "ac|"},
       }) {
    Show(c.attributes, c.before);
    Run(c.script);
    EXPECT_EQ(Marked(), c.after) << c.before << " -- " << c.script;
  }
}

TEST_F(TextBoxTest, LeavesUndoToOthersOnceItHasNone) {
  Show(Plain, "a|");
  EXPECT_FALSE(Press("Ctrl+Z"));
  Run("'b'");
  EXPECT_TRUE(Press("Ctrl+Z"));
  EXPECT_FALSE(Press("Ctrl+Z"));
  EXPECT_TRUE(Press("Ctrl+Y"));
  // A change from outside ends the undo: its steps would not fit any more.
  box->SetText("other");
  EXPECT_FALSE(Press("Ctrl+Z"));
  EXPECT_EQ(box->GetText(), "other");
  // And so does a session's end.
  Run("'c' Tab");
  box->Focus();
  EXPECT_FALSE(Press("Ctrl+Z"));
}

TEST_F(TextBoxTest, UndoesWhatAFilterOfItsTextMadeOfIt) {
  Show(Plain, "|");
  box->AddHandler(TextBox::TextChangedEvent, RoutedEventHandler::From([this](Object*, const RoutedEventArgs&) {
                    std::string digits;
                    for (const char c : box->GetText())
                      if (c >= '0' && c <= '9') digits += c;
                    box->SetText(digits);
                  }));
  Run("'12' Left 'x' '3'");
  EXPECT_EQ(box->GetText(), "132");
  Run("Ctrl+Z");
  EXPECT_EQ(Marked(), "1|2");
  Run("Ctrl+Z");
  EXPECT_EQ(box->GetText(), "");
}

TEST_F(TextBoxTest, SelectsByTheMouse) {
  const std::string text = "one two\nthree four";
  struct Case {
    uint32_t clicks;
    size_t from, to;
    const char* after;
  };
  for (const Case& c : {Case{1, 5, 5, "one t|wo\nthree four"}, Case{1, 1, 6, "o^ne tw|o\nthree four"},
                        Case{1, 12, 2, "on|e two\nthre^e four"}, Case{2, 5, 5, "one ^two|\nthree four"},
                        Case{2, 5, 9, "one ^two\nthree| four"}, Case{2, 5, 1, "|one two^\nthree four"},
                        Case{3, 2, 2, "^one two|\nthree four"}, Case{3, 2, 10, "^one two\nthree four|"}}) {
    Show(Lines, "|" + text);
    const Point from = PointAt(c.from), to = PointAt(c.to);
    input->MouseDown(MouseButton::Left, from, c.clicks);
    input->MouseMove(to);
    input->MouseUp(MouseButton::Left, to);
    input->MouseMove({1, 1});
    EXPECT_EQ(Marked(), c.after) << c.clicks << " clicks from " << c.from << " to " << c.to;
  }
  Show(Plain, "some| words");
  input->KeyDown(Key::LeftShift);
  input->MouseDown(MouseButton::Left, PointAt(7), 1);
  input->MouseUp(MouseButton::Left, PointAt(7));
  input->KeyUp(Key::LeftShift);
  Run("Tab");
  input->KeyDown(Key::LeftShift);
  input->KeyDown(Key::Tab);
  EXPECT_EQ(Marked(), "^some words|") << "the Tab key selects the text it comes to";
}

TEST_F(TextBoxTest, ShowsWhatAnInputMethodComposes) {
  Show(Plain, "a^b|c");
  const float before = box->CaretRectangle().x;
  Run("compose=mmm");
  EXPECT_EQ(box->GetText(), "ac") << "what was selected goes, what is composed is no text yet";
  EXPECT_GT(box->CaretRectangle().x, before);
  input->TextInput("\xE6\xBC\xA2");
  EXPECT_EQ(Marked(), "a\xE6\xBC\xA2|c");
  Run("compose=x Tab");
  EXPECT_EQ(box->GetText(), "a\xE6\xBC\xA2"
                            "c");
}

TEST_F(TextBoxTest, KeepsTheCaretInSight) {
  Show("Width=\"80\"", "|");
  const auto isInSight = [this] {
    const Rect caret = box->CaretRectangle();
    return caret.x >= 0 && caret.Right() <= box->ActualWidth() && caret.y >= 0 && caret.Bottom() <= box->ActualHeight();
  };
  Run("'a_long_text_that_does_not_fit'");
  EXPECT_TRUE(isInSight());
  Run("Home");
  EXPECT_TRUE(isInSight());
  EXPECT_LT(box->CaretRectangle().x, 10);

  Show("Width=\"80\" Height=\"40\" TextWrapping=\"Wrap\" AcceptsReturn=\"True\" VerticalScrollBarVisibility=\"Auto\"",
       "|one two three four five six seven eight");
  Run("Ctrl+End");
  EXPECT_TRUE(isInSight());
  const float bottom = box->CaretRectangle().y;
  // The wheel scrolls until the end of the way, then it is for those around.
  const Point middle = box->TransformToAncestor(nullptr).Map({40, 20});
  EXPECT_TRUE(input->MouseWheel(middle, 1));
  EXPECT_GT(box->CaretRectangle().y, bottom);
  for (int i = 0; i < 10; ++i) input->MouseWheel(middle, 1);
  EXPECT_FALSE(input->MouseWheel(middle, 1));
  input->SetFocus(nullptr);
  EXPECT_FALSE(input->MouseWheel(middle, -1));
}

TEST_F(TextBoxTest, LaysOutNoTextThatIsOnlySet) {
  Show("", "|");
  const auto notes =
      Make<TextBox>("TextBox", " AcceptsReturn=\"True\" Height=\"40\" VerticalScrollBarVisibility=\"Auto\"/>");
  root->AddChild(notes.Get());
  Settle();
  const size_t before = TextCache::Instance().LayoutStatistics().misses;
  // As a file does that is loaded: nobody sees these texts.
  for (int i = 0; i < 3; ++i) notes->SetText("a text that nobody has seen yet " + std::to_string(i));
  EXPECT_EQ(TextCache::Instance().LayoutStatistics().misses, before);
}

TEST_F(TextBoxTest, ScrollsByItsBar) {
  Show("Width=\"80\" Height=\"46\" AcceptsReturn=\"True\" VerticalScrollBarVisibility=\"Auto\"",
       "|a\nb\nc\nd\ne\nf\ng\nh\ni\nj");
  input->SetFocus(nullptr);
  const Rect content{5, 3, 80 - 5 - 12, 40};
  const auto firstLine = [this] { return box->CaretRectangle().y; };
  const Point corner = box->TransformToAncestor(nullptr).Map({0, 0});
  const Point top{corner.x + 75, corner.y + content.y + 2}, bottom{corner.x + 75, corner.y + content.Bottom() - 1};
  const auto drag = [this](Point from, Point to) {
    input->MouseMove(from);
    input->MouseDown(MouseButton::Left, from, 1);
    input->MouseMove(to);
    input->MouseUp(MouseButton::Left, to);
  };
  const float start = firstLine(), extent = box->CaretRectangle().height * 10;
  drag(bottom, bottom);
  EXPECT_FLOAT_EQ(firstLine(), start - 40) << "a press beside the bar takes a page";
  drag(top, top);
  EXPECT_FLOAT_EQ(firstLine(), start);
  drag(top, {top.x + 100, top.y + 100});
  EXPECT_FLOAT_EQ(firstLine(), start - (extent - 40));
  EXPECT_FALSE(box->IsFocused());
  EXPECT_EQ(Marked(), "|a\nb\nc\nd\ne\nf\ng\nh\ni\nj") << "nothing was selected on the way";
  input->MouseMove(bottom);
  EXPECT_EQ(box->GetString(FrameworkElement::CursorProperty), "Arrow");
  input->MouseMove({corner.x + 20, corner.y + 20});
  EXPECT_EQ(box->GetString(FrameworkElement::CursorProperty), "IBeam");
  // Short text has no bar: the same press is for the text.
  box->SetText("short");
  drag(bottom, bottom);
  EXPECT_EQ(Marked(), "short|");
}

TEST_F(TextBoxTest, SelectsOnWhileTheMouseRestsOutside) {
  std::string lines;
  for (int i = 0; i < 50; ++i) lines += "line\n";
  Show("Width=\"80\" Height=\"46\" AcceptsReturn=\"True\"", "|" + lines);
  const auto turn = [this](int count) {
    for (int i = 0; i < count; ++i) {
      now += 40;
      Dispatcher::Current().RunDue();
    }
  };
  const Point corner = box->TransformToAncestor(nullptr).Map({0, 0});
  input->MouseDown(MouseButton::Left, {corner.x + 6, corner.y + 6}, 1);
  input->MouseMove({corner.x + 6, corner.y + 50});
  const size_t atOnce = box->SelectionLength();
  turn(4);
  const size_t slowly = box->SelectionLength() - atOnce;
  EXPECT_GT(slowly, 0u);
  input->MouseMove({corner.x + 6, corner.y + 300});
  turn(4);
  const size_t fast = box->SelectionLength() - atOnce - slowly;
  EXPECT_GT(fast, 2 * slowly) << "farther outside it goes faster";
  turn(60);
  EXPECT_EQ(box->SelectionLength(), lines.size());
  // Back inside, and after the release, it rests.
  input->MouseMove({corner.x + 6, corner.y + 20});
  const std::string rest = Marked();
  turn(4);
  EXPECT_EQ(Marked(), rest);
  input->MouseMove({corner.x + 6, corner.y - 100});
  input->MouseUp(MouseButton::Left, {corner.x + 6, corner.y - 100});
  const std::string released = Marked();
  turn(4);
  EXPECT_EQ(Marked(), released);

  Show("Width=\"80\"", "|a line that is longer than its box");
  input->MouseDown(MouseButton::Left, {corner.x + 6, corner.y + 6}, 1);
  input->MouseMove({corner.x + 300, corner.y + 6});
  EXPECT_LT(box->SelectionLength(), box->GetText().size());
  turn(30);
  EXPECT_EQ(box->SelectionLength(), box->GetText().size());
}

TEST_F(TextBoxTest, BlinksForAWhileAndOnlyWithTheFocus) {
  Show(Plain, "a|");
  const auto turn = [this] {
    now += 530;
    Dispatcher::Current().RunDue();
    const auto list = FrameRecorder(nullptr).Record(*root, {200, 400}, 1).list;
    return list->Entries().size();
  };
  const size_t first = turn(), second = turn();
  EXPECT_NE(first, second);
  EXPECT_EQ(turn(), first);
  for (int i = 0; i < 60; ++i) turn();
  EXPECT_FALSE(Dispatcher::Current().HasWork()) << "an idle box must let the program sleep";
  Run("'b'");
  EXPECT_TRUE(Dispatcher::Current().HasWork());
  Run("Tab");
  root->FindName<TextBox>("Next")->SetValue(UIElement::VisibilityProperty, Visibility::Collapsed);
  input->SetFocus(nullptr);
  EXPECT_FALSE(Dispatcher::Current().HasWork());
}

} // namespace
} // namespace Toolkit
