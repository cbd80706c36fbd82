#include "editor/CaseInsensitiveText.h"

#include <algorithm>

namespace Tesselor {

namespace {
char UpperCase(char character) {
  return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}
} // namespace

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  for (char& character : upper) character = UpperCase(character);
  return upper;
}

bool ContainsUpperCase(std::string_view text, std::string_view upperText) {
  return std::search(text.begin(), text.end(), upperText.begin(), upperText.end(),
                     [](char character, char upper) { return UpperCase(character) == upper; }) != text.end() ||
         upperText.empty();
}

} // namespace Tesselor
