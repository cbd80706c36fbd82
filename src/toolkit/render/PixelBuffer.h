#pragma once

#include <algorithm>
#include <cstdint>

namespace Toolkit {

/// A premultiplied pixel, 0xAARRGGBB; in memory blue, green, red, alpha on little-endian machines.
using Pixel = uint32_t;

inline constexpr uint32_t AlphaOf(Pixel pixel) { return pixel >> 24; }

/// Whole pixels, half-open.
struct PixelRect {
  int left = 0, top = 0, right = 0, bottom = 0;
  constexpr int Width() const { return right - left; }
  constexpr int Height() const { return bottom - top; }
  constexpr bool IsEmpty() const { return left >= right || top >= bottom; }
  constexpr PixelRect Intersect(const PixelRect& o) const {
    return {std::max(left, o.left), std::max(top, o.top), std::min(right, o.right), std::min(bottom, o.bottom)};
  }
  constexpr PixelRect Unite(const PixelRect& o) const {
    if (IsEmpty()) return o;
    if (o.IsEmpty()) return *this;
    return {std::min(left, o.left), std::min(top, o.top), std::max(right, o.right), std::max(bottom, o.bottom)};
  }
  constexpr bool Contains(const PixelRect& o) const {
    return left <= o.left && top <= o.top && right >= o.right && bottom >= o.bottom;
  }
  friend constexpr bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// Pixels that someone else owns. `stride` counts pixels from one row to the next.
struct PixelBuffer {
  Pixel* pixels = nullptr;
  int width = 0, height = 0;
  int stride = 0;
  PixelRect Bounds() const { return {0, 0, width, height}; }
};

} // namespace Toolkit
