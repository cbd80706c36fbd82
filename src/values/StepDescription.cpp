#include "values/StepDescription.h"

namespace Tesselor {

std::string QuotedForUser(std::string_view text) {
  constexpr size_t LongestInBytes = 40;
  std::string line;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    const bool beginsCharacter = (byte & 0xc0) != 0x80;
    if (beginsCharacter && line.size() >= LongestInBytes) return "\"" + line + "...\"";
    line += byte < ' ' ? ' ' : c;
  }
  return "\"" + line + "\"";
}

} // namespace Tesselor
