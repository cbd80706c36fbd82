#include "toolkit/text/DecodedText.h"

namespace Toolkit {

DecodedCharacter DecodeCharacter(std::string_view text, size_t index) {
  const auto byteAt = [&](size_t at) -> uint32_t { return static_cast<unsigned char>(text[at]); };
  const uint32_t first = byteAt(index);
  if (first < 0x80) return {first, 1};
  uint32_t length = 0;
  char32_t value = 0;
  char32_t smallest = 0;
  if (first >= 0xC2 && first <= 0xDF) {
    length = 2, value = first & 0x1F, smallest = 0x80;
  } else if (first >= 0xE0 && first <= 0xEF) {
    length = 3, value = first & 0x0F, smallest = 0x800;
  } else if (first >= 0xF0 && first <= 0xF4) {
    length = 4, value = first & 0x07, smallest = 0x10000;
  }
  if (length == 0 || index + length > text.size()) return {ReplacementCharacter, 1};
  for (uint32_t i = 1; i < length; ++i) {
    const uint32_t next = byteAt(index + i);
    if ((next & 0xC0) != 0x80) return {ReplacementCharacter, 1};
    value = (value << 6) | (next & 0x3F);
  }
  const bool isSurrogate = value >= 0xD800 && value <= 0xDFFF;
  if (value < smallest || value > 0x10FFFF || isSurrogate) return {ReplacementCharacter, 1};
  return {value, length};
}

size_t CharacterStart(std::string_view text, size_t index) {
  if (index >= text.size()) return text.size();
  // A character is at most four bytes long, so at most three starts before the byte can reach it.
  for (size_t back = 3; back > 0; --back) {
    if (back > index) continue;
    const size_t start = index - back;
    if (start + DecodeCharacter(text, start).length > index) return start;
  }
  return index;
}

void DecodedText::Assign(std::string_view text) {
  characters.clear();
  offsets.clear();
  characters.reserve(text.size());
  offsets.reserve(text.size() + 1);
  for (size_t index = 0; index < text.size();) {
    const DecodedCharacter next = DecodeCharacter(text, index);
    characters.push_back(next.character);
    offsets.push_back(static_cast<uint32_t>(index));
    index += next.length;
  }
  offsets.push_back(static_cast<uint32_t>(text.size()));
}

} // namespace Toolkit
