#pragma once

#include "toolkit/render/PixelBuffer.h"

namespace Toolkit {

/// `value / 255`, rounded, for values up to 255 * 255.
inline constexpr uint32_t Divide255(uint32_t value) {
  value += 128;
  return (value + (value >> 8)) >> 8;
}

/// All channels times `coverage / 255`.
inline constexpr Pixel ScalePixel(Pixel pixel, uint32_t coverage) {
  if (coverage == 255) return pixel;
  // Two channels at once, each in 16 bits.
  uint32_t even = (pixel & 0xff00ff) * coverage + 0x800080, odd = (pixel >> 8 & 0xff00ff) * coverage + 0x800080;
  even = (even + (even >> 8 & 0xff00ff)) >> 8 & 0xff00ff;
  odd = (odd + (odd >> 8 & 0xff00ff)) & 0xff00ff00;
  return even | odd;
}

/// `source` over `below`.
inline constexpr Pixel BlendPixel(Pixel below, Pixel source) {
  return source + ScalePixel(below, 255 - AlphaOf(source));
}

/// A straight piece of a stroke in pixels.
struct StrokeSegment {
  float x = 0, y = 0;
  /// The unit direction.
  float directionX = 1, directionY = 0;
  float length = 0;
  /// Half the thickness plus half a pixel: the distance from the middle at which the coverage is zero.
  float reach = 0;
  /// The ends are cut straight; else they are round.
  bool flatStart = false, flatEnd = false;
};

/// The inner loops over one row of pixels. The forms for a processor's wide registers give the same pixels as the
/// plain ones.
struct RowOperations {
  /// `color` over each pixel.
  void (*blendColor)(Pixel* row, int count, Pixel color);
  /// `color` times the mask over each pixel.
  void (*blendColorMask)(Pixel* row, const uint8_t* mask, int count, Pixel color);
  void (*blendPixels)(Pixel* row, const Pixel* source, int count);
  void (*blendPixelsMask)(Pixel* row, const Pixel* source, const uint8_t* mask, int count);
  /// Raises the mask, whose first pixel stands at (x, y), to the segment's coverage.
  void (*coverSegment)(uint8_t* mask, int count, int x, int y, const StrokeSegment& segment);

  static const RowOperations& Plain();
  /// The best that this build has.
  static const RowOperations& Fastest();
};

} // namespace Toolkit
