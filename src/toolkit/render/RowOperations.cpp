#include "toolkit/render/RowOperations.h"

#include <cmath>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace Toolkit {

namespace {

void BlendColor(Pixel* row, int count, Pixel color) {
  const uint32_t rest = 255 - AlphaOf(color);
  for (int i = 0; i < count; ++i) row[i] = color + ScalePixel(row[i], rest);
}

void BlendColorMask(Pixel* row, const uint8_t* mask, int count, Pixel color) {
  for (int i = 0; i < count; ++i)
    if (mask[i] != 0) row[i] = BlendPixel(row[i], ScalePixel(color, mask[i]));
}

void BlendPixels(Pixel* row, const Pixel* source, int count) {
  for (int i = 0; i < count; ++i) row[i] = BlendPixel(row[i], source[i]);
}

void BlendPixelsMask(Pixel* row, const Pixel* source, const uint8_t* mask, int count) {
  for (int i = 0; i < count; ++i)
    if (mask[i] != 0) row[i] = BlendPixel(row[i], ScalePixel(source[i], mask[i]));
}

float Unit(float value) { return std::min(std::max(value, 0.0f), 1.0f); }

void CoverSegment(uint8_t* mask, int count, int x, int y, const StrokeSegment& s) {
  const float dy = static_cast<float>(y) + 0.5f - s.y;
  for (int i = 0; i < count; ++i) {
    const float dx = static_cast<float>(x + i) + 0.5f - s.x;
    const float across = dy * s.directionX - dx * s.directionY;
    const float along = dx * s.directionX + dy * s.directionY;
    const float beyond = along - std::min(std::max(along, 0.0f), s.length);
    const float distance = std::sqrt(across * across + beyond * beyond);
    const float coverage = Unit(s.reach - distance);
    const int value = static_cast<int>(coverage * 255.0f + 0.5f);
    if (value > mask[i]) mask[i] = static_cast<uint8_t>(value);
  }
}

/// A segment with a flat end is a box.
void CoverFlatSegment(uint8_t* mask, int count, int x, int y, const StrokeSegment& s) {
  const float dy = static_cast<float>(y) + 0.5f - s.y;
  for (int i = 0; i < count; ++i) {
    const float dx = static_cast<float>(x + i) + 0.5f - s.x;
    const float across = dy * s.directionX - dx * s.directionY;
    const float along = dx * s.directionX + dy * s.directionY;
    float coverage = 1;
    float beyond = 0;
    if (s.flatStart)
      coverage = Unit(along + 0.5f);
    else
      beyond = std::min(along, 0.0f);
    if (s.flatEnd)
      coverage = std::min(coverage, Unit(s.length - along + 0.5f));
    else
      beyond += std::max(along - s.length, 0.0f);
    coverage = std::min(coverage, Unit(s.reach - std::sqrt(across * across + beyond * beyond)));
    const int value = static_cast<int>(coverage * 255.0f + 0.5f);
    if (value > mask[i]) mask[i] = static_cast<uint8_t>(value);
  }
}

void CoverSegmentPlain(uint8_t* mask, int count, int x, int y, const StrokeSegment& s) {
  (s.flatStart || s.flatEnd ? CoverFlatSegment : CoverSegment)(mask, count, x, y, s);
}

#if defined(__SSE2__)

/// 16-bit lanes: `a * b / 255`, rounded.
inline __m128i Multiply255(__m128i a, __m128i b) {
  const __m128i product = _mm_add_epi16(_mm_mullo_epi16(a, b), _mm_set1_epi16(128));
  return _mm_srli_epi16(_mm_add_epi16(product, _mm_srli_epi16(product, 8)), 8);
}

/// The alpha of both pixels, in all of their lanes.
inline __m128i SpreadAlpha(__m128i pixels) {
  return _mm_shufflehi_epi16(_mm_shufflelo_epi16(pixels, _MM_SHUFFLE(3, 3, 3, 3)), _MM_SHUFFLE(3, 3, 3, 3));
}

inline __m128i Load4(const Pixel* at) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at)); }
inline void Store4(Pixel* at, __m128i value) { _mm_storeu_si128(reinterpret_cast<__m128i*>(at), value); }

inline uint32_t Load4Bytes(const uint8_t* at) {
  uint32_t value;
  __builtin_memcpy(&value, at, 4);
  return value;
}

/// Two pixels in 16-bit lanes, over two others.
inline __m128i Over(__m128i below, __m128i source) {
  const __m128i rest = _mm_sub_epi16(_mm_set1_epi16(255), SpreadAlpha(source));
  return _mm_add_epi16(source, Multiply255(below, rest));
}

void BlendColorWide(Pixel* row, int count, Pixel color) {
  const __m128i zero = _mm_setzero_si128();
  const __m128i source = _mm_set1_epi32(static_cast<int>(color));
  const __m128i rest = _mm_set1_epi16(static_cast<short>(255 - AlphaOf(color)));
  int i = 0;
  for (; i + 4 <= count; i += 4) {
    const __m128i below = Load4(row + i);
    const __m128i low = Multiply255(_mm_unpacklo_epi8(below, zero), rest);
    const __m128i high = Multiply255(_mm_unpackhi_epi8(below, zero), rest);
    Store4(row + i, _mm_add_epi8(source, _mm_packus_epi16(low, high)));
  }
  BlendColor(row + i, count - i, color);
}

/// The mask's four bytes, spread over the lanes of the lower or the upper two pixels.
inline __m128i SpreadMask(uint32_t mask, bool upper) {
  const __m128i bytes = _mm_cvtsi32_si128(static_cast<int>(mask));
  const __m128i twice = _mm_unpacklo_epi8(bytes, bytes);
  const __m128i four = _mm_unpacklo_epi16(twice, twice);
  const __m128i zero = _mm_setzero_si128();
  return upper ? _mm_unpackhi_epi8(four, zero) : _mm_unpacklo_epi8(four, zero);
}

void BlendColorMaskWide(Pixel* row, const uint8_t* mask, int count, Pixel color) {
  const __m128i zero = _mm_setzero_si128();
  const __m128i source = _mm_unpacklo_epi8(_mm_set1_epi32(static_cast<int>(color)), zero);
  int i = 0;
  for (; i + 4 <= count; i += 4) {
    const uint32_t four = Load4Bytes(mask + i);
    if (four == 0) continue;
    if (four == 0xffffffff && AlphaOf(color) == 255) {
      Store4(row + i, _mm_set1_epi32(static_cast<int>(color)));
      continue;
    }
    const __m128i below = Load4(row + i);
    const __m128i low = Over(_mm_unpacklo_epi8(below, zero), Multiply255(source, SpreadMask(four, false)));
    const __m128i high = Over(_mm_unpackhi_epi8(below, zero), Multiply255(source, SpreadMask(four, true)));
    Store4(row + i, _mm_packus_epi16(low, high));
  }
  BlendColorMask(row + i, mask + i, count - i, color);
}

void BlendPixelsWide(Pixel* row, const Pixel* source, int count) {
  const __m128i zero = _mm_setzero_si128();
  int i = 0;
  for (; i + 4 <= count; i += 4) {
    const __m128i above = Load4(source + i), below = Load4(row + i);
    const __m128i low = Over(_mm_unpacklo_epi8(below, zero), _mm_unpacklo_epi8(above, zero));
    const __m128i high = Over(_mm_unpackhi_epi8(below, zero), _mm_unpackhi_epi8(above, zero));
    Store4(row + i, _mm_packus_epi16(low, high));
  }
  BlendPixels(row + i, source + i, count - i);
}

void BlendPixelsMaskWide(Pixel* row, const Pixel* source, const uint8_t* mask, int count) {
  const __m128i zero = _mm_setzero_si128();
  int i = 0;
  for (; i + 4 <= count; i += 4) {
    const uint32_t four = Load4Bytes(mask + i);
    if (four == 0) continue;
    const __m128i above = Load4(source + i), below = Load4(row + i);
    const __m128i lowSource = Multiply255(_mm_unpacklo_epi8(above, zero), SpreadMask(four, false));
    const __m128i highSource = Multiply255(_mm_unpackhi_epi8(above, zero), SpreadMask(four, true));
    Store4(row + i, _mm_packus_epi16(Over(_mm_unpacklo_epi8(below, zero), lowSource),
                                     Over(_mm_unpackhi_epi8(below, zero), highSource)));
  }
  BlendPixelsMask(row + i, source + i, mask + i, count - i);
}

void CoverSegmentWide(uint8_t* mask, int count, int x, int y, const StrokeSegment& s) {
  if (s.flatStart || s.flatEnd) return CoverFlatSegment(mask, count, x, y, s);
  const __m128 zero = _mm_setzero_ps(), one = _mm_set1_ps(1), half = _mm_set1_ps(0.5f);
  const float dy = static_cast<float>(y) + 0.5f - s.y;
  const __m128 acrossY = _mm_set1_ps(dy * s.directionX), alongY = _mm_set1_ps(dy * s.directionY);
  const __m128 directionX = _mm_set1_ps(s.directionX), directionY = _mm_set1_ps(s.directionY);
  const __m128 length = _mm_set1_ps(s.length), reach = _mm_set1_ps(s.reach), startX = _mm_set1_ps(s.x);
  int i = 0;
  for (; i + 4 <= count; i += 4) {
    const __m128i column = _mm_add_epi32(_mm_set1_epi32(x + i), _mm_set_epi32(3, 2, 1, 0));
    const __m128 dx = _mm_sub_ps(_mm_add_ps(_mm_cvtepi32_ps(column), half), startX);
    const __m128 across = _mm_sub_ps(acrossY, _mm_mul_ps(dx, directionY));
    const __m128 along = _mm_add_ps(_mm_mul_ps(dx, directionX), alongY);
    const __m128 beyond = _mm_sub_ps(along, _mm_min_ps(_mm_max_ps(along, zero), length));
    const __m128 distance = _mm_sqrt_ps(_mm_add_ps(_mm_mul_ps(across, across), _mm_mul_ps(beyond, beyond)));
    const __m128 coverage = _mm_min_ps(_mm_max_ps(_mm_sub_ps(reach, distance), zero), one);
    const __m128i value = _mm_cvttps_epi32(_mm_add_ps(_mm_mul_ps(coverage, _mm_set1_ps(255)), half));
    const __m128i words = _mm_packs_epi32(value, value);
    const __m128i bytes = _mm_packus_epi16(words, words);
    const __m128i before = _mm_cvtsi32_si128(static_cast<int>(Load4Bytes(mask + i)));
    const int after = _mm_cvtsi128_si32(_mm_max_epu8(bytes, before));
    __builtin_memcpy(mask + i, &after, 4);
  }
  CoverSegment(mask + i, count - i, x + i, y, s);
}

#endif

} // namespace

const RowOperations& RowOperations::Plain() {
  static const RowOperations operations{BlendColor, BlendColorMask, BlendPixels, BlendPixelsMask, CoverSegmentPlain};
  return operations;
}

const RowOperations& RowOperations::Fastest() {
#if defined(__SSE2__)
  static const RowOperations operations{BlendColorWide, BlendColorMaskWide, BlendPixelsWide, BlendPixelsMaskWide,
                                        CoverSegmentWide};
  return operations;
#else
  return Plain();
#endif
}

} // namespace Toolkit
