#include "fields/NumberFilter.h"

#include "fields/NumberText.h"

namespace Tesselor {

namespace {

/// The bytes of the UTF-8 character at `at`; 1 for a stray byte. Characters go as a whole, so that a text box never
/// holds half of one.
size_t CharacterLength(std::string_view text, size_t at) {
  const auto lead = static_cast<unsigned char>(text[at]);
  const size_t wanted = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : lead >= 0xc0 ? 2 : 1;
  size_t length = 1;
  while (length < wanted && at + length < text.size() && (static_cast<unsigned char>(text[at + length]) & 0xc0) == 0x80)
    ++length;
  return length;
}

void RemoveAll(std::string& text, const std::string& character) {
  if (character.size() == 1) {
    std::erase(text, character[0]);
    return;
  }
  std::string kept;
  size_t from = 0;
  for (size_t at; (at = text.find(character, from)) != std::string::npos; from = at + character.size())
    kept.append(text, from, at - from);
  kept.append(text, from);
  text.swap(kept);
}

/// Walks the text once. What slides into the place of a removed character is not looked at in the same walk.
std::string WithoutForeignCharacters(std::string_view text, std::string_view allowed) {
  std::string copy(text);
  for (size_t at = 0; at < copy.size();) {
    if (allowed.find(copy[at]) == std::string_view::npos) RemoveAll(copy, copy.substr(at, CharacterLength(copy, at)));
    if (at < copy.size()) at += CharacterLength(copy, at);
  }
  return copy;
}

std::optional<std::string> IfDifferent(std::string text, std::string_view current) {
  return text == current ? std::nullopt : std::optional(std::move(text));
}

} // namespace

std::optional<std::string> FilterIntegerText(std::string_view text, int32_t min, int32_t max) {
  const NumberPrefix<int32_t> number = ReadIntegerPrefix(text);
  if (number.length != text.size()) return IfDifferent(WithoutForeignCharacters(text, "0123456789-"), text);
  if (min <= max && number.value > max) return std::to_string(max);
  if (min <= max && number.value < min) return std::to_string(min);
  return std::nullopt;
}

std::optional<std::string> FilterFloatText(std::string_view text, double min, double max) {
  const NumberPrefix<double> number = ReadDoublePrefix(text);
  if (number.length != text.size()) return IfDifferent(WithoutForeignCharacters(text, "0123456789-."), text);
  if (min <= max && number.value > max) return FixedText(max);
  if (min <= max && number.value < min) return FixedText(min);
  return std::nullopt;
}

} // namespace Tesselor
