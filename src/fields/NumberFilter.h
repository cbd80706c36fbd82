#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Tesselor {

/// Whether more of a text may follow.
enum class NumberEntry {
  /// It is all there is.
  Complete,
  /// It is being typed: a number beyond a bound may stand if further digits could bring it within.
  Growing,
};

/// What a number box makes of its text at each change: one step, which the box repeats until nothing comes back.
/// A whole number beyond a bound gives the bound's text; a text that is no whole number loses characters that can't
/// be part of one. The empty text counts as 0. Bounds that contradict each other (`min` above `max`) are not applied,
/// since each would undo the other for ever.
std::optional<std::string> FilterIntegerText(std::string_view text, int32_t min, int32_t max, NumberEntry entry);
std::optional<std::string> FilterFloatText(std::string_view text, double min, double max, NumberEntry entry);

/// What a number box shows once it is left, if that is another text: the number that a save takes from it, within the
/// bounds; 0 or the nearer bound for a text without one.
std::optional<std::string> FinishIntegerText(std::string_view text, int32_t min, int32_t max);
std::optional<std::string> FinishFloatText(std::string_view text, double min, double max);

} // namespace Tesselor
