#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace Toolkit {

inline constexpr char32_t ReplacementCharacter = 0xFFFD;

/// One character of a UTF-8 text. A byte that belongs to no valid sequence is a character of its own, U+FFFD, one
/// byte long, so that every byte of any input belongs to exactly one character.
struct DecodedCharacter {
  char32_t character;
  uint32_t length;
};

/// Decodes the character that starts at byte `index`, which must be less than the text's size.
DecodedCharacter DecodeCharacter(std::string_view text, size_t index);

/// The start of the character that the byte `index` belongs to; `index` may equal the text's size.
size_t CharacterStart(std::string_view text, size_t index);

/// A text as characters with the byte offset of each; `offsets` has one entry more, the text's size.
struct DecodedText {
  std::vector<char32_t> characters;
  std::vector<uint32_t> offsets;

  void Assign(std::string_view text);
  size_t Count() const { return characters.size(); }
};

} // namespace Toolkit
