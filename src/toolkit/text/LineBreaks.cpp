#include "toolkit/text/LineBreaks.h"

extern "C" {
#include <linebreak.h>
}

namespace Toolkit {

namespace {

constexpr utf32_t Ideograph = 0x4E00;
constexpr utf32_t CombiningMark = 0x0301;

/// The characters as the line breaking library can take them: it stops the program at the halves of flags and takes
/// U+FFFF for the end of the text. A flag counts as one ideograph.
std::vector<utf32_t> BreakableCharacters(const DecodedText& text, size_t first, size_t end) {
  std::vector<utf32_t> characters(text.characters.begin() + static_cast<std::ptrdiff_t>(first),
                                  text.characters.begin() + static_cast<std::ptrdiff_t>(end));
  bool isSecondHalf = false;
  for (utf32_t& c : characters) {
    const bool isFlagHalf = c >= 0x1F1E6 && c <= 0x1F1FF;
    if (isFlagHalf) {
      c = isSecondHalf ? CombiningMark : Ideograph;
    } else if (c == 0xFFFF) {
      c = ReplacementCharacter;
    }
    isSecondHalf = isFlagHalf && !isSecondHalf;
  }
  return characters;
}

} // namespace

std::vector<Paragraph> SplitParagraphs(const DecodedText& text) {
  std::vector<Paragraph> paragraphs;
  const auto count = static_cast<uint32_t>(text.Count());
  Paragraph current;
  for (uint32_t i = 0; i < count; ++i) {
    const char32_t c = text.characters[i];
    if (c != '\n' && c != '\r') continue;
    current.end = i;
    if (c == '\r' && i + 1 < count && text.characters[i + 1] == '\n') ++i;
    current.next = i + 1;
    paragraphs.push_back(current);
    current.first = i + 1;
  }
  current.end = current.next = count;
  paragraphs.push_back(current);
  return paragraphs;
}

std::vector<bool> FindBreakOpportunities(const DecodedText& text, size_t first, size_t end) {
  static const bool initialised = (init_linebreak(), true);
  static_cast<void>(initialised);
  std::vector<bool> result(end - first, false);
  if (result.empty()) return result;
  std::vector<char> breaks(result.size());
  const std::vector<utf32_t> characters = BreakableCharacters(text, first, end);
  set_linebreaks_utf32(characters.data(), characters.size(), "en", breaks.data());
  for (size_t i = 0; i < result.size(); ++i)
    result[i] = breaks[i] == LINEBREAK_ALLOWBREAK || breaks[i] == LINEBREAK_MUSTBREAK;
  return result;
}

} // namespace Toolkit
