#include "fields/NumberFilter.h"

#include "fields/NumberText.h"

#include <cmath>
#include <utility>

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

/// Whether digits behind the text, and for a fraction a point, can make a number within the bounds of it. Both bounds
/// are on the side of 0 that the text's sign tells, or beyond it.
bool CanGrowInto(std::string_view text, double min, double max) {
  size_t at = text.find_first_not_of(" \t\n\v\f\r");
  if (at == std::string_view::npos) at = text.size();
  bool isNegative = false;
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) isNegative = text[at++] == '-';
  if (isNegative) min = std::exchange(max, -min) * -1;
  const std::string_view digits = text.substr(at);
  const size_t point = digits.find('.');
  // What is written in another way than by digits and a point ends where it ends.
  if (digits.find_first_not_of("0123456789.") != std::string_view::npos || digits.rfind('.') != point) return false;
  const double number = digits.empty() || digits == "." ? 0 : ReadDoublePrefix(digits).value;
  if (point != std::string_view::npos) {
    const double room = std::pow(10.0, -static_cast<double>(digits.size() - point - 1));
    return number <= max && number + room > min;
  }
  // With k more digits: from number * 10^k on, less than (number + 1) * 10^k.
  for (double scale = 1; number * scale <= max && scale < 1e300; scale *= 10)
    if ((number + 1) * scale > min) return true;
  return false;
}

std::optional<std::string> IfDifferent(std::string text, std::string_view current) {
  return text == current ? std::nullopt : std::optional(std::move(text));
}

} // namespace

std::optional<std::string> FilterIntegerText(std::string_view text, int32_t min, int32_t max, NumberEntry entry) {
  const NumberPrefix<int32_t> number = ReadIntegerPrefix(text);
  if (number.length != text.size()) return IfDifferent(WithoutForeignCharacters(text, "0123456789-"), text);
  if (min > max || (number.value <= max && number.value >= min)) return std::nullopt;
  if (entry == NumberEntry::Growing && CanGrowInto(text, min, max)) return std::nullopt;
  return std::to_string(number.value > max ? max : min);
}

std::optional<std::string> FilterFloatText(std::string_view text, double min, double max, NumberEntry entry) {
  const NumberPrefix<double> number = ReadDoublePrefix(text);
  if (number.length != text.size()) return IfDifferent(WithoutForeignCharacters(text, "0123456789-."), text);
  if (!(min <= max) || !(number.value > max || number.value < min)) return std::nullopt;
  if (entry == NumberEntry::Growing && CanGrowInto(text, min, max)) return std::nullopt;
  return FixedText(number.value > max ? max : min);
}

std::optional<std::string> FinishIntegerText(std::string_view text, int32_t min, int32_t max) {
  const NumberPrefix<int32_t> number = ReadIntegerPrefix(text);
  const bool isWhole = number.IsNumber() && number.length == text.size();
  const std::string shown = isWhole ? std::string(text) : std::to_string(number.value);
  return IfDifferent(FilterIntegerText(shown, min, max, NumberEntry::Complete).value_or(shown), text);
}

std::optional<std::string> FinishFloatText(std::string_view text, double min, double max) {
  const NumberPrefix<double> number = ReadDoublePrefix(text);
  const bool isWhole = number.IsNumber() && number.length == text.size();
  const std::string shown = isWhole ? std::string(text) : FloatText(number.length > 0 ? number.value : 0);
  return IfDifferent(FilterFloatText(shown, min, max, NumberEntry::Complete).value_or(shown), text);
}

} // namespace Tesselor
