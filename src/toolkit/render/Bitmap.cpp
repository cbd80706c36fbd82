#include "toolkit/render/Bitmap.h"

#include "toolkit/base/Diagnostics.h"

namespace Toolkit {

namespace {

Pixel Average4(Pixel a, Pixel b, Pixel c, Pixel d) {
  Pixel result = 0;
  for (int shift = 0; shift < 32; shift += 8) {
    const uint32_t sum = (a >> shift & 255) + (b >> shift & 255) + (c >> shift & 255) + (d >> shift & 255);
    result |= (sum + 2) / 4 << shift;
  }
  return result;
}

Bitmap::Level Halve(const Bitmap::Level& from) {
  Bitmap::Level to;
  to.width = std::max(1, from.width / 2);
  to.height = std::max(1, from.height / 2);
  to.pixels.reserve(static_cast<size_t>(to.width) * static_cast<size_t>(to.height));
  for (int y = 0; y < to.height; ++y) {
    const Pixel* upper = from.Row(std::min(2 * y, from.height - 1));
    const Pixel* lower = from.Row(std::min(2 * y + 1, from.height - 1));
    for (int x = 0; x < to.width; ++x) {
      const int left = std::min(2 * x, from.width - 1), right = std::min(2 * x + 1, from.width - 1);
      to.pixels.push_back(Average4(upper[left], upper[right], lower[left], lower[right]));
    }
  }
  return to;
}

} // namespace

Bitmap::Bitmap(int width, int height, std::vector<Pixel> pixels) {
  TOOLKIT_ASSERT(width > 0 && height > 0 && pixels.size() == static_cast<size_t>(width) * static_cast<size_t>(height));
  for (const Pixel pixel : pixels) opaque = opaque && AlphaOf(pixel) == 255;
  levels.push_back({width, height, std::move(pixels)});
  while (levels.back().width > 1 || levels.back().height > 1) levels.push_back(Halve(levels.back()));
}

} // namespace Toolkit
