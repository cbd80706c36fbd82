#include "Expected.h"
#include "TextTestFonts.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

namespace Toolkit {
namespace {

const std::string Hebrew = "\u05D0\u05D1\u05D2"; // alef, bet, gimel: two bytes each

class TextLayoutTest : public testing::Test {
protected:
  TextLayoutOptions Wrapped(float width) { return {width, TextWrapping::Wrap}; }
  float WidthOf(const std::string& shown) { return text.Layout(shown).Size().width; }

  TextTestFonts text;
};

/// Without a negative zero.
float Rounded(float value) { return std::round(value * 10) / 10 + 0.0f; }

/// The lines of a layout with their runs and the carets at their graphemes, by byte.
std::string Dump(const TextLayout& layout) {
  std::ostringstream out;
  out << Rounded(layout.Size().width) << " x " << Rounded(layout.Size().height) << "\n";
  for (const LayoutLine& line : layout.Lines()) {
    out << "  line " << line.textStart << "-" << line.textEnd << " at " << Rounded(line.x) << "," << Rounded(line.y)
        << " width " << Rounded(line.width) << " caret end " << layout.LineEnd(line.textStart)
        << (line.isWrapped ? " wrapped" : "") << (line.isTrimmed ? " trimmed" : "") << "\n";
    for (uint32_t i = line.firstRun; i < line.endRun; ++i) {
      const LayoutRun& run = layout.Runs()[i];
      out << "    run " << run.textStart << "-" << run.textEnd << " at " << Rounded(run.x) << " width "
          << Rounded(run.width) << " face " << run.face.face << " glyphs at";
      for (uint32_t glyph = run.firstGlyph; glyph < run.endGlyph; ++glyph)
        out << " " << Rounded(layout.Glyphs()[glyph].x);
      out << (run.isRightToLeft ? " right to left" : "") << (run.isEllipsis ? " ellipsis" : "") << "\n";
    }
  }
  out << "  carets";
  for (size_t index = 0;; index = NextGrapheme(layout.Text(), index)) {
    const CaretGeometry caret = layout.CaretPosition(index);
    out << " " << index << "=" << Rounded(caret.x) << "," << Rounded(caret.y);
    if (index == layout.Text().size()) break;
  }
  for (const TextRectangle& part : layout.SelectionRectangles(0, layout.Text().size() / 2))
    out << "\n  first half " << Rounded(part.x) << "," << Rounded(part.y) << " width " << Rounded(part.width);
  out << "\n";
  return out.str();
}

TEST_F(TextLayoutTest, PlacesLinesRunsAndCarets) {
  const std::string title = "A rather long node title", words = "one two three";
  const TextLayoutOptions trimmed{WidthOf(title) / 2, TextWrapping::NoWrap, TextTrimming::CharacterEllipsis};
  const struct {
    const char* name;
    std::string text;
    TextLayoutOptions options = {};
    TextStyle style = {};
  } cases[] = {
      {"plain", "Quest giver"},
      {"twice as large", "Quest giver", {}, {24}},
      {"bold", "Quest giver", {}, {12, FontWeight::Bold}},
      {"empty", ""},
      {"line ends", "a\nb\r\nc\rd\n\r\n", Wrapped(100)},
      {"fits", words, Wrapped(WidthOf(words))},
      // The blank at the break takes no part in the width.
      {"wrapped", words, Wrapped(WidthOf("one two"))},
      {"wrapped once more", words, Wrapped(WidthOf("one two") - 1)},
      {"words that do not fit are cut", "mmmmmm", Wrapped(WidthOf("mm"))},
      // A grapheme is never cut, and each line takes one at least.
      {"graphemes", "e\u0301e\u0301", Wrapped(1)},
      {"mark of another face than its base", "(\u05C7(", Wrapped(1)},
      {"no blanks", "\u4F60\u597D", Wrapped(1)},
      {"trimmed", title, trimmed},
      {"not trimmed", title, {WidthOf(title), TextWrapping::NoWrap, TextTrimming::CharacterEllipsis}},
      {"trimmed to nothing", title, {0, TextWrapping::NoWrap, TextTrimming::CharacterEllipsis}},
      {"centred", "wide line\nw", {200, TextWrapping::NoWrap, TextTrimming::None, TextAlignment::Center}},
      {"to the right", "wide line\nw", {200, TextWrapping::NoWrap, TextTrimming::None, TextAlignment::Right}},
      {"tabs", "\ti\t\tmmm\tx", {}, {10}},
      {"right to left inside", "ab " + Hebrew + " cd"},
      {"right to left alone", Hebrew + " "},
      // Each line is ordered by itself; the blank behind a word hangs over on the right.
      {"right to left wrapped", Hebrew + " " + Hebrew + " " + Hebrew, Wrapped(WidthOf(Hebrew))},
      // A tab separates two stretches that stand in the line's own order.
      {"right to left with a tab", Hebrew + "\t" + Hebrew},
      {"numbers keep their order", Hebrew + " 12 " + Hebrew},
  };
  std::string dump;
  for (const auto& c : cases) dump += std::string(c.name) + ": " + Dump(text.Layout(c.text, c.options, c.style));
  TestSupport::ExpectText("TextLayouts", dump);
}

TEST_F(TextLayoutTest, CaretAndHitTestAgreeAtEveryGrapheme) {
  for (const std::string& each :
       {std::string("Hello"), std::string("fi ffi office"), std::string("a\tb"), std::string("e\u0301\u0302x"),
        std::string("one\ntwo\n"), std::string("wrap this sentence up"), std::string("\xFF") + "a\xC3",
        std::string("\U0001F1E9\U0001F1EA!")}) {
    const TextLayout layout = text.Layout(each, Wrapped(60));
    CaretGeometry previous{-1, 0, 0};
    for (size_t index = 0;; index = NextGrapheme(each, index)) {
      const CaretGeometry caret = layout.CaretPosition(index);
      EXPECT_TRUE(caret.y > previous.y || caret.x > previous.x) << each << " at " << index;
      previous = caret;
      EXPECT_EQ(layout.HitTest(caret.x + 0.01f, caret.y + 1), index) << each;
      if (index == each.size()) break;
    }
    EXPECT_EQ(layout.HitTest(-5, -5), 0u);
    EXPECT_EQ(layout.HitTest(1e6f, 1e6f), each.size());
  }
  // Right of a line is its end, before the blank at which it was wrapped.
  EXPECT_EQ(text.Layout("one two three", Wrapped(WidthOf("one two"))).HitTest(1000, 1), 7u);
  // Among letters that run the other way, the left edge is the end.
  const TextLayout mixed = text.Layout("ab " + Hebrew + " cd");
  const LayoutRun& run = mixed.Runs().at(1);
  EXPECT_EQ(mixed.HitTest(run.x + 0.5f, 1), 9u);
  EXPECT_EQ(mixed.HitTest(run.x + run.width - 0.5f, 1), 3u);
}

TEST_F(TextLayoutTest, StaysLinearForLongTexts) {
  std::string words;
  while (words.size() < 100000) words += "word ";
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

TEST_F(TextLayoutTest, ShapesLongTextsInPiecesThatDoNotShow) {
  // Kerning and marks at each character, a direction against the paragraph's, and signs of several characters.
  const std::string flag = "\U0001F1E9\U0001F1EA";
  for (const std::string& part : {std::string("AVTo"), std::string("e\u0301V\u0300A"), Hebrew, flag}) {
    std::string repeated;
    while (repeated.size() < 200000) repeated += part;
    const TextLayout sample = text.Layout(part + part + part), all = text.Layout(repeated);
    const size_t period = sample.Glyphs().size() / 3;
    const std::vector<LayoutGlyph>& glyphs = all.Glyphs();
    ASSERT_EQ(glyphs.size(), repeated.size() / part.size() * period) << part;
    size_t different = 0;
    for (size_t i = period; i + period < glyphs.size(); ++i) {
      const LayoutGlyph& expected = sample.Glyphs()[period + i % period];
      if (glyphs[i].id != expected.id || glyphs[i].advance != expected.advance) ++different;
    }
    EXPECT_EQ(different, 0u) << part;
    // Carets stand in each piece where a click finds them again.
    for (size_t index = 0; index < repeated.size(); index += part.size() * 997) {
      const float inside = all.Runs().front().isRightToLeft ? -1.0f : 1.0f;
      EXPECT_EQ(all.HitTest(all.CaretPosition(index).x + inside, 1), index) << part;
    }
  }
  const TextLayout wrapped = text.Layout(std::string(50000, 'x'), Wrapped(200));
  const uint32_t onLine = wrapped.Lines().front().textEnd;
  for (const LayoutLine& line : wrapped.Lines())
    EXPECT_EQ(line.textEnd, std::min(line.textStart + onLine, 50000u)) << line.textStart;
}

} // namespace
} // namespace Toolkit
