#include <string>

#include <gtest/gtest.h>

#include "TextTestFonts.h"
#include "ToolkitWarnings.h"

namespace Toolkit {

TEST(FontCollection, ChoosesTheNearestFaceAndSaysWhatIsMissing) {
  TextTestFonts text;
  struct Case {
    FontWeight weight;
    FontStyle style;
    FaceChoice choice;
  };
  const Case cases[] = {
      {FontWeight::Normal, FontStyle::Normal, {0, false, false}},
      {FontWeight::Bold, FontStyle::Normal, {1, false, false}},
      {FontWeight::SemiBold, FontStyle::Normal, {1, false, false}},
      {FontWeight::Normal, FontStyle::Italic, {2, false, false}},
      {FontWeight::Bold, FontStyle::Italic, {1, false, true}},
  };
  for (const Case& each : cases) EXPECT_EQ(text.fonts.Choose({12, each.weight, each.style}), each.choice);
  EXPECT_EQ(text.fonts.FindFamily("inter"), 0);
  EXPECT_EQ(text.fonts.FindFamily("Nothing"), 0);
}

TEST(FontCollection, AsksTheSystemOncePerCharacterAndOnlyForWhatIsMissing) {
  TextTestFonts text;
  text.Layout("Plain text, \u00E9\u00DF\u0416 \u20AC \u2026 \t\x01\u200B");
  EXPECT_EQ(text.askedForFallback, 0);
  text.Layout("\u4F60\u597D\u4F60");
  EXPECT_EQ(text.askedForFallback, 2);
  text.Layout("\u4F60");
  EXPECT_EQ(text.askedForFallback, 2);
  // Without any font the sign for a missing glyph still takes its place.
  EXPECT_GT(text.Layout("\u4F60").Size().width, 0);
}

TEST(FontCollection, TakesASystemFontForAMissingCharacter) {
  TextTestFonts text;
  int found = 0;
  for (const char32_t character : {0x05D0, 0x0E01, 0x2603, 0x4F60, 0x1D538}) {
    if (text.fonts.Face(0).HasGlyph(character) || !FindSystemFont(character, FontWeight::Normal, FontStyle::Normal))
      continue;
    ++found;
    text.fonts.SetFallbackFinder(FindSystemFont);
    const FaceChoice choice = text.fonts.ChooseFor(character, {});
    EXPECT_NE(choice.face, 0);
    EXPECT_TRUE(text.fonts.Face(choice.face).HasGlyph(character));
    EXPECT_NE(text.fonts.Face(choice.face).OutlineFace(), nullptr);
  }
  EXPECT_GT(found, 0) << "the package fonts-dejavu-core has some of these";
}

TEST(FontCollection, DoesNotTakeAFallbackThatLacksTheCharacter) {
  TextTestFonts text;
  text.fonts.SetFallbackFinder([](char32_t, FontWeight, FontStyle) { return FontFile{TESSELOR_TEST_FONT, 0}; });
  EXPECT_EQ(text.fonts.ChooseFor(0x4F60, {}).face, 0);
  text.fonts.SetFallbackFinder([](char32_t, FontWeight, FontStyle) { return FontFile{"/no/such/font", 0}; });
  EXPECT_EQ(text.fonts.ChooseFor(0x4F60, {}).face, 0);
}

TEST(FontCollection, RefusesBytesThatAreNoFont) {
  TestSupport::ToolkitWarnings warnings;
  FontCollection fonts;
  const unsigned char garbage[] = {'n', 'o', ' ', 'f', 'o', 'n', 't'};
  EXPECT_FALSE(fonts.Register("Broken", FontWeight::Normal, FontStyle::Normal, garbage));
  EXPECT_TRUE(fonts.IsEmpty());
  EXPECT_EQ(warnings.Take().size(), 1u);
}

TEST(TextCache, MeasuresWhatALayoutHas) {
  TextTestFonts text;
  TextCache cache(text.fonts);
  for (const char* each :
       {"", "AVAToffice", "x y z", "12.50", "a\nbb", "tab\tbed", "\u00E9t\u00E9", "\xFF\xFE", "{\"a\": 1}"})
    for (const TextStyle& style :
         {TextStyle{12}, TextStyle{11.5f, FontWeight::Bold}, TextStyle{16, FontWeight::Normal, FontStyle::Italic}})
      EXPECT_EQ(cache.MeasureText(each, style), text.Layout(each, {}, style).Size()) << each;
}

TEST(TextCache, MeasuresEveryPairOfAsciiCharactersAsALayoutHasIt) {
  TextTestFonts text;
  TextCache cache(text.fonts);
  for (char first = ' '; first <= '~'; ++first) {
    std::string all;
    for (char second = ' '; second <= '~'; ++second) (all += first) += second;
    EXPECT_EQ(cache.MeasureText(all, {12}), text.Layout(all).Size()) << all;
  }
}

TEST(TextCache, GivesTheSameLayoutAgainAndTellsStylesAndWidthsApart) {
  TextTestFonts text;
  TextCache cache(text.fonts);
  const auto first = cache.Layout("shared", {12});
  EXPECT_EQ(cache.Layout("shared", {12}), first);
  EXPECT_NE(cache.Layout("shared", {13}), first);
  EXPECT_NE(cache.Layout("shared", {12, FontWeight::Bold}), first);
  EXPECT_NE(cache.Layout("shared", {12}, {50}), first);
  EXPECT_NE(cache.Layout("shared", {12}, {50, TextWrapping::Wrap}), cache.Layout("shared", {12}, {50}));
  EXPECT_EQ(cache.LayoutStatistics().hits, 2u);

  cache.MeasureText("shared", {12});
  cache.MeasureText("shared", {12});
  EXPECT_EQ(cache.SizeStatistics().hits, 1u);
  EXPECT_EQ(cache.SizeStatistics().misses, 1u);
}

TEST(TextCache, ForgetsOldTextsAndKeepsUsedOnes) {
  TextTestFonts text;
  TextCache cache(text.fonts);
  const auto used = cache.Layout("used", {12});
  const std::weak_ptr<const TextLayout> forgotten = cache.Layout("forgotten", {12});
  for (int i = 0; i < 400; ++i) {
    cache.Layout(std::string(2000, 'x') + std::to_string(i), {12});
    EXPECT_EQ(cache.Layout("used", {12}), used);
  }
  EXPECT_TRUE(forgotten.expired());
}

} // namespace Toolkit
