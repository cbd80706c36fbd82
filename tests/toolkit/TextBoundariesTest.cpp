#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "toolkit/text/DecodedText.h"
#include "toolkit/text/TextBoundaries.h"

namespace Toolkit {

TEST(DecodedText, GivesEveryByteOfAnyInputToOneCharacter) {
  const std::pair<std::string, std::u32string> cases[] = {
      {"a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", U"a\u00E9\u20AC\U0001F600"},
      {"\xC3", U"\uFFFD"},
      {"\xE2\x82x", U"\uFFFD\uFFFDx"},
      {"\xC0\xAF", U"\uFFFD\uFFFD"},                     // overlong
      {"\xED\xA0\x80", U"\uFFFD\uFFFD\uFFFD"},           // surrogate
      {"\xF4\x90\x80\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD"}, // beyond the last character
      {"\x80\xFF", U"\uFFFD\uFFFD"},
  };
  for (const auto& [text, characters] : cases) {
    DecodedText decoded;
    decoded.Assign(text);
    EXPECT_EQ(std::u32string(decoded.characters.begin(), decoded.characters.end()), characters);
    EXPECT_EQ(decoded.offsets.back(), text.size());
    for (size_t i = 0; i < decoded.Count(); ++i)
      for (size_t byte = decoded.offsets[i]; byte < decoded.offsets[i + 1]; ++byte)
        EXPECT_EQ(CharacterStart(text, byte), decoded.offsets[i]) << "byte " << byte;
  }
}

TEST(TextBoundaries, StepsOverWholeGraphemesInBothDirections) {
  const std::vector<std::vector<std::string>> cases = {
      {"a", "b"},
      {"e\u0301", "x"},
      {"a", "\r\n", "b"},
      {"\U0001F468\u200D\U0001F469\u200D\U0001F467", "!"},
      {"\U0001F44D\U0001F3FD", "\U0001F44D"},
      {"\U0001F1E9\U0001F1EA", "\U0001F1EB\U0001F1F7", "\U0001F1E9"},
      {"\u1112\u1161\u11AB", "a"},
      {"\xFF", "\xFE"},
      {"\n", "\u0301"},
  };
  for (const auto& graphemes : cases) {
    std::string text;
    std::vector<size_t> boundaries = {0};
    for (const std::string& grapheme : graphemes) boundaries.push_back((text += grapheme).size());
    for (size_t i = 0; i + 1 < boundaries.size(); ++i) {
      EXPECT_EQ(NextGrapheme(text, boundaries[i]), boundaries[i + 1]) << text;
      EXPECT_EQ(PreviousGrapheme(text, boundaries[i + 1]), boundaries[i]) << text;
    }
    EXPECT_EQ(NextGrapheme(text, text.size()), text.size());
    EXPECT_EQ(PreviousGrapheme(text, 0), 0u);
  }
}

TEST(TextBoundaries, MovesByWords) {
  const std::string text = "one  two_3, (four)";
  const std::vector<size_t> starts = {0, 5, 10, 12, 13, 17, 18};
  for (size_t i = 0; i + 1 < starts.size(); ++i) {
    EXPECT_EQ(NextWord(text, starts[i]), starts[i + 1]);
    EXPECT_EQ(PreviousWord(text, starts[i + 1]), starts[i]);
  }
  EXPECT_EQ(WordAt(text, 6), (TextRange{5, 10}));
  EXPECT_EQ(WordAt(text, 3), (TextRange{3, 5}));
  EXPECT_EQ(WordAt(text, text.size()), (TextRange{17, 18}));
  EXPECT_EQ(WordAt("", 0), (TextRange{0, 0}));
}

} // namespace Toolkit
