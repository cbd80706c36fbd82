#include "workspace/ColorNames.h"

#include <array>
#include <charconv>
#include <utility>

namespace Tesselor {

namespace {

constexpr std::pair<std::string_view, Toolkit::Color> namedColors[] = {
    {"darkpink", Toolkit::Color::FromBytes(105, 17, 73)},   {"pink", Toolkit::Color::FromBytes(132, 71, 105)},
    {"magenta", Toolkit::Color::FromBytes(124, 28, 130)},   {"lightpurple", Toolkit::Color::FromBytes(84, 73, 112)},
    {"purple", Toolkit::Color::FromBytes(81, 56, 147)},     {"blue", Toolkit::Color::FromBytes(37, 67, 174)},
    {"grey", Toolkit::Color::FromBytes(92, 107, 120)},      {"gray", Toolkit::Color::FromBytes(92, 107, 120)},
    {"lightblue", Toolkit::Color::FromBytes(48, 111, 163)}, {"aqua", Toolkit::Color::FromBytes(6, 125, 118)},
    {"green", Toolkit::Color::FromBytes(42, 103, 38)},      {"olive", Toolkit::Color::FromBytes(108, 119, 22)},
    {"yellow", Toolkit::Color::FromBytes(151, 117, 0)},     {"orange", Toolkit::Color::FromBytes(146, 77, 14)},
    {"red", Toolkit::Color::FromBytes(120, 40, 30)},        {"darkblue", Toolkit::Color::FromBytes(10, 10, 108)},
};

/// The number that `text` begins with, behind white space and one sign.
std::optional<int> LeadingNumber(std::string_view text) {
  const size_t start = text.find_first_not_of(" \t\n\v\f\r");
  if (start == std::string_view::npos) return std::nullopt;
  text.remove_prefix(start);
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return std::nullopt;
  }
  int number = 0;
  if (std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc()) return std::nullopt;
  return number;
}

} // namespace

std::optional<Toolkit::Color> FindNamedColor(std::string_view name) {
  for (const auto& [known, color] : namedColors)
    if (known == name) return color;
  return std::nullopt;
}

std::optional<Toolkit::Color> ParseNumericColor(std::string_view text) {
  std::array<int, 3> parts{};
  for (size_t i = 0; i < parts.size(); ++i) {
    const size_t comma = text.find(',');
    const bool isLast = i + 1 == parts.size();
    if ((comma == std::string_view::npos) != isLast) return std::nullopt;
    const std::optional<int> number = LeadingNumber(text.substr(0, comma));
    if (!number) return std::nullopt;
    parts[i] = *number;
    if (!isLast) text.remove_prefix(comma + 1);
  }
  return Toolkit::Color::FromBytes(parts[0], parts[1], parts[2]);
}

} // namespace Tesselor
