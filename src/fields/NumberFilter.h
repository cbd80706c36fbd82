#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Tesselor {

/// What a number box makes of its text at each change: one step, which the box repeats until nothing comes back.
/// A whole number beyond a bound gives the bound's text; a text that is no whole number loses characters that can't
/// be part of one. The empty text counts as 0. Bounds that contradict each other (`min` above `max`) are not applied,
/// since each would undo the other for ever.
std::optional<std::string> FilterIntegerText(std::string_view text, int32_t min, int32_t max);
std::optional<std::string> FilterFloatText(std::string_view text, double min, double max);

} // namespace Tesselor
