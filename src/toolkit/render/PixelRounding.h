#pragma once

namespace Toolkit {

/// Whole pixels from places in pixels, held within [low, high]; what is not a number counts as `low`. Every entry of a
/// list needs several of these, and the standard functions are calls on processors without a rounding instruction.
inline int FloorPixel(float value, int low, int high) {
  if (!(value > static_cast<float>(low))) return low;
  if (value >= static_cast<float>(high)) return high;
  const int whole = static_cast<int>(value);
  return whole - (value < static_cast<float>(whole) ? 1 : 0);
}

inline int CeilPixel(float value, int low, int high) {
  if (!(value > static_cast<float>(low))) return low;
  if (value >= static_cast<float>(high)) return high;
  const int whole = static_cast<int>(value);
  return whole + (value > static_cast<float>(whole) ? 1 : 0);
}

/// No picture is as large; converts exactly.
inline constexpr int FarPixel = 1 << 24;

} // namespace Toolkit
