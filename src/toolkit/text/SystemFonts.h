#pragma once

#include <optional>
#include <string>

#include "toolkit/text/TextEnums.h"

namespace Toolkit {

struct FontFile {
  std::string path;
  int index = 0;
};

/// Asks the system for a font that has the character. The first call of a process scans the font configuration,
/// which can take long; call it only for a character that no embedded face has. Nothing if no font has it.
std::optional<FontFile> FindSystemFont(char32_t character, FontWeight weight, FontStyle style);

} // namespace Toolkit
