#include "platform/AsciiCase.h"

namespace Tesselor {

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  for (char& character : upper) character = UpperCase(character);
  return upper;
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  for (char& character : lower) character = LowerCase(character);
  return lower;
}

bool ContainsUpperCase(std::string_view text, std::string_view upperText) {
  return FindUpperCase(text, upperText) != std::string_view::npos;
}

size_t FindUpperCase(std::string_view text, std::string_view upperText) {
  if (upperText.empty()) return 0;
  const char first = upperText.front(), lowerFirst = LowerCase(first);
  for (size_t at = 0; at + upperText.size() <= text.size(); ++at) {
    if (text[at] != first && text[at] != lowerFirst) continue;
    size_t length = 1;
    while (length < upperText.size() && UpperCase(text[at + length]) == upperText[length]) ++length;
    if (length == upperText.size()) return at;
  }
  return std::string_view::npos;
}

} // namespace Tesselor
