#pragma once

#include "toolkit/base/Color.h"

#include <optional>
#include <string_view>

namespace Tesselor {

/// The colour of a name that schemas may use; names are in lower case.
std::optional<Toolkit::Color> FindNamedColor(std::string_view name);

/// The colour of three whole numbers from 0 to 255, separated by commas ("255,128,0"). Blanks before a number and any
/// text behind it are passed over. Nothing unless there are exactly three parts and each begins with a number.
std::optional<Toolkit::Color> ParseNumericColor(std::string_view text);

} // namespace Tesselor
