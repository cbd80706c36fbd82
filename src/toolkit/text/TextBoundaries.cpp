#include "toolkit/text/TextBoundaries.h"

#include <hb.h>

#include "toolkit/text/DecodedText.h"

namespace Toolkit {

namespace {

constexpr char32_t ZeroWidthJoiner = 0x200D;

bool IsRegionalIndicator(char32_t c) { return c >= 0x1F1E6 && c <= 0x1F1FF; }

hb_unicode_general_category_t Category(char32_t c) {
  return hb_unicode_general_category(hb_unicode_funcs_get_default(), c);
}

/// True for a character that never starts a grapheme: marks, joiners, variation selectors, skin tones, tags, and the
/// vowels and finals of decomposed Hangul.
bool Extends(char32_t c) {
  if (c < 0x300) return false;
  if (c == ZeroWidthJoiner || c == 0x200C) return true;
  if ((c >= 0x1F3FB && c <= 0x1F3FF) || (c >= 0xE0020 && c <= 0xE007F)) return true;
  if ((c >= 0x1160 && c <= 0x11FF) || (c >= 0xD7B0 && c <= 0xD7FB)) return true;
  const hb_unicode_general_category_t category = Category(c);
  return category == HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK ||
         category == HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK || category == HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK;
}

/// True for the pictures that a zero width joiner may tie together.
bool IsPicture(char32_t c) { return (c >= 0x2190 && c <= 0x2BFF) || (c >= 0x1F000 && c <= 0x1FAFF); }

/// How many flags' halves stand right before `index` and not before `start`; an odd count means that a flag is half
/// complete there.
size_t RegionalIndicatorsBefore(std::string_view text, size_t index, size_t start) {
  size_t count = 0;
  while (index >= start + 4) {
    const DecodedCharacter before = DecodeCharacter(text, index - 4);
    if (before.length != 4 || !IsRegionalIndicator(before.character)) break;
    ++count;
    index -= 4;
  }
  return count;
}

/// True if a grapheme ends between the character before `index` and the one at it; both exist. Flags are counted from
/// `start`, which no flag's middle may be.
bool IsBoundary(std::string_view text, size_t beforeIndex, size_t index, size_t start = 0) {
  const char32_t before = DecodeCharacter(text, beforeIndex).character;
  const char32_t after = DecodeCharacter(text, index).character;
  if (before == '\r' && after == '\n') return false;
  if (before < 0x20) return true;
  if (Extends(after)) return false;
  if (before == ZeroWidthJoiner && IsPicture(after)) return false;
  if (IsRegionalIndicator(after) && IsRegionalIndicator(before))
    return RegionalIndicatorsBefore(text, index, start) % 2 == 0;
  return true;
}

enum class WordClass { Blank, Word, Sign };

WordClass ClassAt(std::string_view text, size_t index) {
  const char32_t c = DecodeCharacter(text, index).character;
  if (c == ' ' || (c >= '\t' && c <= '\r') || c == 0xA0 || c == 0x3000) return WordClass::Blank;
  if (c == '_') return WordClass::Word;
  switch (Category(c)) {
  case HB_UNICODE_GENERAL_CATEGORY_LOWERCASE_LETTER:
  case HB_UNICODE_GENERAL_CATEGORY_UPPERCASE_LETTER:
  case HB_UNICODE_GENERAL_CATEGORY_TITLECASE_LETTER:
  case HB_UNICODE_GENERAL_CATEGORY_MODIFIER_LETTER:
  case HB_UNICODE_GENERAL_CATEGORY_OTHER_LETTER:
  case HB_UNICODE_GENERAL_CATEGORY_DECIMAL_NUMBER:
  case HB_UNICODE_GENERAL_CATEGORY_LETTER_NUMBER:
  case HB_UNICODE_GENERAL_CATEGORY_OTHER_NUMBER: return WordClass::Word;
  case HB_UNICODE_GENERAL_CATEGORY_SPACE_SEPARATOR: return WordClass::Blank;
  default: return WordClass::Sign;
  }
}

} // namespace

size_t NextGrapheme(std::string_view text, size_t index) {
  size_t before = CharacterStart(text, index);
  if (before >= text.size()) return text.size();
  size_t at = before + DecodeCharacter(text, before).length;
  while (at < text.size() && !IsBoundary(text, before, at)) {
    before = at;
    at += DecodeCharacter(text, at).length;
  }
  return at;
}

size_t GraphemeEnd(std::string_view text, size_t start) {
  if (start >= text.size()) return text.size();
  size_t before = start;
  size_t at = start + DecodeCharacter(text, start).length;
  while (at < text.size() && !IsBoundary(text, before, at, start)) {
    before = at;
    at += DecodeCharacter(text, at).length;
  }
  return at;
}

size_t PreviousGrapheme(std::string_view text, size_t index) {
  size_t at = CharacterStart(text, index);
  if (at == 0) return 0;
  at = CharacterStart(text, at - 1);
  while (at > 0) {
    const size_t before = CharacterStart(text, at - 1);
    if (IsBoundary(text, before, at)) break;
    at = before;
  }
  return at;
}

size_t NextWord(std::string_view text, size_t index) {
  index = CharacterStart(text, index);
  if (index >= text.size()) return text.size();
  const WordClass first = ClassAt(text, index);
  while (index < text.size() && first != WordClass::Blank && ClassAt(text, index) == first)
    index = NextGrapheme(text, index);
  while (index < text.size() && ClassAt(text, index) == WordClass::Blank) index = NextGrapheme(text, index);
  return index;
}

size_t PreviousWord(std::string_view text, size_t index) {
  index = CharacterStart(text, index);
  const auto before = [&] { return PreviousGrapheme(text, index); };
  while (index > 0 && ClassAt(text, before()) == WordClass::Blank) index = before();
  if (index == 0) return 0;
  const WordClass wanted = ClassAt(text, before());
  while (index > 0 && ClassAt(text, before()) == wanted) index = before();
  return index;
}

TextRange WordAt(std::string_view text, size_t index) {
  if (text.empty()) return {};
  index = CharacterStart(text, index);
  if (index == text.size()) index = PreviousGrapheme(text, index);
  const WordClass wanted = ClassAt(text, index);
  TextRange range{index, index};
  while (range.start > 0) {
    const size_t before = PreviousGrapheme(text, range.start);
    if (ClassAt(text, before) != wanted) break;
    range.start = before;
  }
  while (range.end < text.size() && ClassAt(text, range.end) == wanted) range.end = NextGrapheme(text, range.end);
  return range;
}

} // namespace Toolkit
