#include "toolkit/controls/ToolTip.h"
#include "toolkit/MarkupTest.h"
#include "toolkit/controls/TextBlock.h"

namespace Toolkit {
namespace {

class ToolTipTest : public StageTest {
protected:
  void ShowRows() {
    Show("<StackPanel><Border x:Name=\"A\" Background=\"Red\" Height=\"40\" ToolTip=\"first\"/>"
         "<Border x:Name=\"B\" Background=\"Red\" Height=\"40\" ToolTip=\"second\"/>"
         "<Border x:Name=\"C\" Background=\"Red\" Height=\"40\"/>"
         "<Border x:Name=\"D\" Background=\"Red\" Height=\"40\" ToolTip=\"\"/></StackPanel>");
  }
  Point At(const char* name) { return MiddleOf(Find(name)); }
};

TEST_F(ToolTipTest, ComesAfterRestAndGoesWithTheMouse) {
  ShowRows();
  MoveTo(At("A"));
  Wait(400);
  MoveTo(At("A") + Point{1, 0});
  Wait(400);
  EXPECT_FALSE(Shows("first"));
  Wait(101);
  ASSERT_TRUE(Shows("first"));
  const Rect tip = BoxOf(*window->Popups().VisualChild(0));
  EXPECT_FALSE(tip.Contains(Input().MousePosition()));
  EXPECT_LT(tip.y - Input().MousePosition().y, 40);
  // It takes no input and stays while the mouse moves on its owner.
  MoveTo(At("A") + Point{10, 5});
  EXPECT_TRUE(Shows("first"));
  EXPECT_EQ(window->HitTest({tip.x + 1, tip.y + 1})->GetType().Name(), "Border");
  // The next one comes sooner.
  MoveTo(At("B"));
  EXPECT_FALSE(Shows("first"));
  Wait(101);
  EXPECT_TRUE(Shows("second"));
  MoveTo(At("C"));
  Wait(600);
  EXPECT_EQ(OpenPopups(), 0u);
  MoveTo(At("B"));
  Wait(101);
  EXPECT_FALSE(Shows("second"));
  Wait(400);
  EXPECT_TRUE(Shows("second"));
  Wait(10000);
  EXPECT_FALSE(Shows("second"));
  // Not again before the mouse has been elsewhere.
  MoveTo(At("B") + Point{3, 0});
  Wait(1000);
  EXPECT_FALSE(Shows("second"));
}

TEST_F(ToolTipTest, GoesByAnyOtherInput) {
  ShowRows();
  const std::pair<const char*, std::function<void()>> inputs[] = {
      {"press", [&] { Press(At("A")); }},      {"key", [&] { KeyDown(Key::LeftCtrl); }},
      {"wheel", [&] { Wheel(At("A"), 1); }},   {"leave", [&] { Leave(); }},
      {"resize", [&] { Resize({400, 250}); }},
  };
  for (const auto& [name, act] : inputs) {
    SCOPED_TRACE(name);
    Resize({400, 300});
    Input().ReleaseAll();
    MoveTo(At("C"));
    MoveTo(At("A"));
    Wait(600);
    ASSERT_TRUE(Shows("first"));
    act();
    EXPECT_FALSE(Shows("first"));
    Wait(1000);
    EXPECT_FALSE(Shows("first"));
  }
  // None while a button is held.
  Input().ReleaseAll();
  Press(At("C"));
  MoveTo(At("A"));
  Wait(1000);
  EXPECT_EQ(OpenPopups(), 0u);
}

TEST_F(ToolTipTest, ShowsWhatThereIsToRead) {
  const std::string description =
      "<ToolTip Style=\"{StaticResource DescriptionToolTipStyle}\" Content=\"{Binding Text}\"/>";
  const struct {
    const char* name;
    std::string tip;
    const char* text;
    bool shown;
  } cases[] = {
      {"bound", description, "bound text", true},
      {"bound to nothing", description, "", false},
      {"plain", "<ToolTip Content=\"plain\"/>", "", true},
      {"empty", "<ToolTip/>", "", false},
      {"element", "<TextBlock Text=\"{Binding Text}\"/>", "in an element", true},
      {"empty element", "<TextBlock/>", "", false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Show("<Border x:Name=\"A\" Background=\"Red\" Height=\"40\"><Border.ToolTip>" + c.tip +
         "</Border.ToolTip></Border>");
    Find("A").SetDataContext(MakePtr<TestData>(c.text).Get());
    for (int round = 0; round < 2; ++round) {
      MoveTo({10, 290});
      MoveTo(At("A"));
      Wait(600);
      EXPECT_EQ(OpenPopups(), c.shown ? 1u : 0u);
      EXPECT_TRUE(!c.shown || !*c.text || Shows(c.text));
    }
  }
}

TEST_F(ToolTipTest, WrapsLongTextsAndKeepsAnElementForTheNextTime) {
  ShowRows();
  auto text = MakePtr<TextBlock>();
  std::string words;
  for (int i = 0; i < 60; ++i) words += "word ";
  text->SetText(words);
  text->SetValue(TextBlock::TextWrappingProperty, TextWrapping::Wrap);
  text->SetValue(FrameworkElement::MaxWidthProperty, 150.0f);
  Find("C").SetValue(FrameworkElement::ToolTipProperty, Value(text));
  for (int round = 0; round < 3; ++round) {
    MoveTo(At("D"));
    MoveTo(At("C"));
    Wait(600);
    ASSERT_EQ(OpenPopups(), 1u);
    EXPECT_LE(text->ActualWidth(), 150);
    EXPECT_GT(text->ActualHeight(), 60);
  }
}

} // namespace
} // namespace Toolkit
