#pragma once

#include <cstdint>
#include <string_view>

namespace Tesselor {

/// The number that is written for a text. For a text that begins with none it is 0, and the user is told.
int32_t WrittenInteger(std::string_view text);
double WrittenDouble(std::string_view text);

} // namespace Tesselor
