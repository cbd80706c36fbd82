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
  return std::search(text.begin(), text.end(), upperText.begin(), upperText.end(),
                     [](char character, char upper) { return UpperCase(character) == upper; }) != text.end() ||
         upperText.empty();
}

} // namespace Tesselor
