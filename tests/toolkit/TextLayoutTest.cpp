#include <string>

#include <gtest/gtest.h>

#include "TextTestFonts.h"

namespace Toolkit {

namespace {

class TextLayoutTest : public testing::Test {
protected:
  TextTestFonts text;

  TextLayoutOptions Wrapped(float width) { return {width, TextWrapping::Wrap}; }
  std::vector<std::string> LineTexts(const TextLayout& layout) {
    std::vector<std::string> lines;
    for (const LayoutLine& line : layout.Lines())
      lines.push_back(layout.Text().substr(line.textStart, line.textEnd - line.textStart));
    return lines;
  }
};

using Strings = std::vector<std::string>;

const char* const Hebrew = "\u05D0\u05D1\u05D2"; // alef, bet, gimel: two bytes each

} // namespace

TEST_F(TextLayoutTest, GrowsWithSizeAndWeightAndCountsLineEnds) {
  const TextSize normal = text.Layout("Quest giver").Size();
  const TextSize twice = text.Layout("Quest giver", {}, {24}).Size();
  EXPECT_GT(normal.width, 40);
  EXPECT_NEAR(twice.width, 2 * normal.width, 2 * TextStep);
  EXPECT_NEAR(twice.height, 2 * normal.height, 2 * TextStep);
  EXPECT_GT(text.Layout("Quest giver", {}, {12, FontWeight::Bold}).Size().width, normal.width);
  EXPECT_EQ(text.Layout("").Size(), (TextSize{0, normal.height}));

  struct Case {
    const char* text;
    Strings lines;
  };
  const Case cases[] = {{"a\nb", {"a", "b"}}, {"a\r\nb", {"a", "b"}}, {"a\rb", {"a", "b"}},
                        {"a\n", {"a", ""}},   {"\n\n", {"", "", ""}}, {"a\n\r\nb", {"a", "", "b"}}};
  for (const Case& each : cases) {
    const TextLayout layout = text.Layout(each.text, Wrapped(100));
    EXPECT_EQ(LineTexts(layout), each.lines);
    EXPECT_EQ(layout.Size().height, normal.height * static_cast<float>(each.lines.size()));
  }
}

TEST_F(TextLayoutTest, WrapsAtSpacesAndCutsOnlyWordsThatDoNotFit) {
  const std::string sentence = "one two three";
  const float whole = text.Layout(sentence).Size().width;
  const float firstTwo = text.Layout("one two").Size().width;
  EXPECT_EQ(LineTexts(text.Layout(sentence, Wrapped(whole))), (Strings{sentence}));
  EXPECT_EQ(LineTexts(text.Layout(sentence, Wrapped(firstTwo))), (Strings{"one two ", "three"}));
  EXPECT_EQ(LineTexts(text.Layout(sentence, Wrapped(firstTwo - 1))), (Strings{"one ", "two ", "three"}));
  // The blank at the break takes no part in the width.
  EXPECT_EQ(text.Layout(sentence, Wrapped(firstTwo)).Size().width, firstTwo);

  const TextLayout cut = text.Layout("mmmmmm", Wrapped(text.Layout("mm").Size().width));
  EXPECT_EQ(LineTexts(cut), (Strings{"mm", "mm", "mm"}));
  // A grapheme is never cut, and each line takes one at least.
  EXPECT_EQ(LineTexts(text.Layout("e\u0301e\u0301", Wrapped(1))), (Strings{"e\u0301", "e\u0301"}));
  // Nor where the mark comes from another face than its base.
  EXPECT_EQ(LineTexts(text.Layout("(\u05C7(", Wrapped(1))), (Strings{"(\u05C7", "("}));
  EXPECT_EQ(LineTexts(text.Layout("\u4F60\u597D", Wrapped(1))), (Strings{"\u4F60", "\u597D"}));
}

TEST_F(TextLayoutTest, TrimsWithAnEllipsisThatFits) {
  const std::string title = "A rather long node title";
  const float whole = text.Layout(title).Size().width;
  TextLayoutOptions options;
  options.trimming = TextTrimming::CharacterEllipsis;
  options.maxWidth = whole;
  EXPECT_FALSE(text.Layout(title, options).Lines()[0].isTrimmed);

  options.maxWidth = whole / 2;
  const TextLayout trimmed = text.Layout(title, options);
  EXPECT_TRUE(trimmed.Lines()[0].isTrimmed);
  EXPECT_LE(trimmed.Size().width, options.maxWidth + TextStep);
  EXPECT_GT(trimmed.Size().width, options.maxWidth / 2);
  const LayoutRun& last = trimmed.Runs().back();
  EXPECT_TRUE(last.isEllipsis);
  EXPECT_EQ(trimmed.Glyphs().back().id, text.fonts.Face(last.face.face).GlyphFor(0x2026));
  // The caret goes no further than the ellipsis, wherever it is asked for.
  EXPECT_LE(trimmed.CaretPosition(title.size()).x, options.maxWidth + TextStep);
  EXPECT_EQ(trimmed.CaretPosition(title.size() - 1).x, last.x);

  options.maxWidth = 0;
  EXPECT_EQ(text.Layout(title, options).Glyphs().size(), 1u);
}

TEST_F(TextLayoutTest, AlignsLinesAndTheirGlyphs) {
  for (const auto& [alignment, share] : {std::pair{TextAlignment::Center, 0.5f}, {TextAlignment::Right, 1.0f}}) {
    const TextLayout layout = text.Layout("wide line\nw", {200, TextWrapping::NoWrap, TextTrimming::None, alignment});
    for (const LayoutLine& line : layout.Lines()) {
      EXPECT_FLOAT_EQ(line.x, (200 - line.width) * share);
      EXPECT_FLOAT_EQ(layout.Glyphs()[layout.Runs()[line.firstRun].firstGlyph].x, line.x);
    }
    EXPECT_FLOAT_EQ(layout.CaretPosition(0).x, layout.Lines()[0].x);
  }
}

TEST_F(TextLayoutTest, PutsTabsOnStops) {
  const TextStyle style{10};
  const float stop = 20;
  EXPECT_FLOAT_EQ(text.Layout("\t", {}, style).Size().width, stop);
  EXPECT_FLOAT_EQ(text.Layout("i\t", {}, style).Size().width, stop);
  EXPECT_FLOAT_EQ(text.Layout("\t\t", {}, style).Size().width, 2 * stop);
  EXPECT_FLOAT_EQ(text.Layout("mmm\tx", {}, style).CaretPosition(4).x, 2 * stop);
}

TEST_F(TextLayoutTest, CaretAndHitTestAgreeAtEveryGrapheme) {
  const std::string texts[] = {"Hello",
                               "fi ffi office",
                               "a\tb",
                               "e\u0301\u0302x",
                               "one\ntwo\n",
                               "wrap this sentence up",
                               "\xFF"
                               "a\xC3",
                               "\U0001F1E9\U0001F1EA!"};
  for (const std::string& each : texts) {
    const TextLayout layout = text.Layout(each, Wrapped(60));
    float previousX = -1;
    float previousY = 0;
    for (size_t index = 0;; index = NextGrapheme(each, index)) {
      const CaretGeometry caret = layout.CaretPosition(index);
      if (caret.y == previousY) {
        EXPECT_GT(caret.x, previousX) << each << " at " << index;
      }
      previousX = caret.x;
      previousY = caret.y;
      EXPECT_EQ(layout.HitTest(caret.x + 0.01f, caret.y + 1), index) << each;
      if (index == each.size()) break;
    }
    EXPECT_EQ(layout.HitTest(-5, -5), 0u);
    EXPECT_EQ(layout.HitTest(1e6f, 1e6f), each.size());
  }
}

TEST_F(TextLayoutTest, KeepsTheEndOfAWrappedLineOnThatLine) {
  const TextLayout layout = text.Layout("one two three", Wrapped(text.Layout("one two").Size().width));
  EXPECT_EQ(layout.LineEnd(1), 7u);
  EXPECT_EQ(layout.LineStart(9), 8u);
  EXPECT_EQ(layout.LineEnd(9), 13u);
  EXPECT_EQ(layout.HitTest(1000, 1), 7u);
  EXPECT_EQ(layout.CaretPosition(8).y, layout.LineHeight());
}

TEST_F(TextLayoutTest, LaysRightToLeftTextOutInVisualOrder) {
  const std::string mixed = std::string("ab ") + Hebrew + " cd";
  const TextLayout layout = text.Layout(mixed);
  ASSERT_EQ(layout.Runs().size(), 3u);
  EXPECT_TRUE(layout.Runs()[1].isRightToLeft);
  const float runLeft = layout.Runs()[1].x;
  const float runRight = runLeft + layout.Runs()[1].width;
  // Before alef is the run's right edge; each following letter lies further left.
  EXPECT_FLOAT_EQ(layout.CaretPosition(3).x, runRight);
  EXPECT_LT(layout.CaretPosition(5).x, runRight);
  EXPECT_LT(layout.CaretPosition(7).x, layout.CaretPosition(5).x);
  EXPECT_FLOAT_EQ(layout.CaretPosition(9).x, runRight); // the blank behind the word, back in the line's direction
  EXPECT_EQ(layout.HitTest(runLeft + 0.5f, 1), 9u);
  EXPECT_EQ(layout.HitTest(runRight - 0.5f, 1), 3u);

  // At the text's end the caret stands behind the last letter, which is leftmost; blanks there go to the right.
  EXPECT_FLOAT_EQ(text.Layout(Hebrew).CaretPosition(6).x, 0);
  const TextLayout trailing = text.Layout(std::string(Hebrew) + " ");
  EXPECT_FLOAT_EQ(trailing.CaretPosition(7).x, trailing.Lines()[0].width);

  // A range across the direction change is two pieces on the screen.
  EXPECT_EQ(layout.SelectionRectangles(0, 5).size(), 2u);
  EXPECT_EQ(layout.SelectionRectangles(0, mixed.size()).size(), 1u);
}

TEST_F(TextLayoutTest, OrdersEachLineOfWrappedRightToLeftTextByItself) {
  const std::string word = Hebrew;
  const float width = text.Layout(word).Size().width;
  const TextLayout layout = text.Layout(word + " " + word + " " + word, Wrapped(width));
  ASSERT_EQ(layout.Lines().size(), 3u);
  EXPECT_EQ(layout.Size().width, width);
  for (const LayoutLine& line : layout.Lines()) {
    const std::string shown = layout.Text().substr(line.textStart, line.textEnd - line.textStart);
    // The word begins at its right edge and ends at the line's left one; the blank behind it hangs over on the right.
    EXPECT_NEAR(layout.CaretPosition(line.textStart).x, width, TextStep) << shown;
    EXPECT_EQ(layout.HitTest(0.5f, line.y + 1), line.textStart + word.size()) << shown;
    uint32_t glyphs = 0;
    for (uint32_t run = line.firstRun; run < line.endRun; ++run)
      glyphs += layout.Runs()[run].endGlyph - layout.Runs()[run].firstGlyph;
    EXPECT_EQ(glyphs, shown.size() == word.size() ? 3u : 4u) << shown;
  }
  // A tab separates two stretches that stand in the line's own order.
  const TextLayout tabbed = text.Layout(word + "\t" + word);
  EXPECT_LT(tabbed.CaretPosition(0).x, tabbed.CaretPosition(word.size() + 1).x);
}

TEST_F(TextLayoutTest, NumbersInsideRightToLeftTextKeepTheirOrder) {
  const TextLayout layout = text.Layout(std::string(Hebrew) + " 12 " + Hebrew);
  EXPECT_LT(layout.CaretPosition(7).x, layout.CaretPosition(8).x);
  EXPECT_GT(layout.CaretPosition(0).x, layout.CaretPosition(12).x);
}

TEST_F(TextLayoutTest, StaysLinearForLongTexts) {
  const std::string words = [] {
    std::string result;
    while (result.size() < 100000) result += "word ";
    return result;
  }();
  const std::string tabs(100000, '\t');
  for (const std::string& each :
       {words, std::string(100000, 'x'), tabs, std::string(100000, '\n'), std::string(100000, '\xFF')}) {
    const TextLayout wrapped = text.Layout(each, Wrapped(200));
    EXPECT_EQ(wrapped.Lines().back().nextStart, each.size());
    // Blanks hang over the edge, however many there are.
    EXPECT_EQ(wrapped.Lines().size() > 100, each != tabs);
    const TextLayout single = text.Layout(each);
    EXPECT_LE(single.HitTest(1e9f, 1e9f), each.size());
    EXPECT_GE(single.CaretPosition(each.size()).x, 0);
  }
}

} // namespace Toolkit
