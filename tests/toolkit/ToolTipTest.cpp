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
  std::string Shown() const { return Shows("first") ? "first" : Shows("second") ? "second" : ""; }
};

TEST_F(ToolTipTest, ComesAfterRestAndGoesWithTheMouse) {
  const std::pair<const char*, const char*> steps[] = {
      {"move:A wait:400", ""},
      {"move:201,20 wait:400", ""},
      {"wait:101", "first"},
      // It takes no input and stays while the mouse moves on its owner.
      {"move:210,25", "first"},
      // The next one comes sooner.
      {"move:B", ""},
      {"wait:101", "second"},
      {"move:C wait:600", ""},
      {"move:B wait:101", ""},
      {"wait:400", "second"},
      {"wait:10000", ""},
      // Not again before the mouse has been elsewhere.
      {"move:203,60 wait:1000", ""},
  };
  ShowRows();
  for (const auto& [script, shown] : steps) {
    Run(script);
    EXPECT_EQ(Shown(), shown) << script;
    if (!*shown) continue;
    const Rect tip = BoxOf(*window->Popups().VisualChild(0));
    EXPECT_FALSE(tip.Contains(Input().MousePosition()));
    EXPECT_LT(tip.y - Input().MousePosition().y, 40);
    EXPECT_EQ(window->HitTest({tip.x + 1, tip.y + 1})->GetType().Name(), "Border");
  }
}

TEST_F(ToolTipTest, GoesByAnyOtherInput) {
  ShowRows();
  for (const char* script : {"press:A", "Ctrl", "wheel:A:1", "leave", "resize"}) {
    SCOPED_TRACE(script);
    Resize({400, 300});
    Input().ReleaseAll();
    Run("move:C move:A wait:600");
    ASSERT_EQ(Shown(), "first");
    if (std::string_view(script) == "resize")
      Resize({400, 250});
    else
      Run(script);
    EXPECT_EQ(Shown(), "");
    Wait(1000);
    EXPECT_EQ(Shown(), "");
  }
  // None while a button is held.
  Input().ReleaseAll();
  Run("press:C move:A wait:1000");
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
      Run("move:10,290 move:A wait:600");
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
    Run("move:D move:C wait:600");
    ASSERT_EQ(OpenPopups(), 1u);
    EXPECT_LE(text->ActualWidth(), 150);
    EXPECT_GT(text->ActualHeight(), 60);
  }
}

} // namespace
} // namespace Toolkit
