#include "toolkit/render/TileCells.h"

#include <algorithm>
#include <cmath>

namespace Toolkit {

namespace {

int Wrap(int value, int size) {
  value %= size;
  return value < 0 ? value + size : value;
}

Pixel Mix(Pixel a, Pixel b, uint32_t weight) {
  // Two channels at once, each with room for the product.
  const uint32_t low = ((a & 0xff00ff) * (256 - weight) + (b & 0xff00ff) * weight + 0x800080) >> 8 & 0xff00ff;
  const uint32_t high = ((a >> 8 & 0xff00ff) * (256 - weight) + (b >> 8 & 0xff00ff) * weight + 0x800080) & 0xff00ff00;
  return low | high;
}

} // namespace

const Bitmap::Level& LevelFor(const Bitmap& bitmap, float reduction) {
  const std::vector<Bitmap::Level>& levels = bitmap.Levels();
  size_t level = 0;
  for (; level + 1 < levels.size() && reduction > 1.5f; reduction /= 2) ++level;
  return levels[level];
}

Pixel SampleImage(const Bitmap::Level& level, float x, float y, ImageEdge edge) {
  // Far outside, the fractions no longer matter; the limits keep the numbers in range.
  x = std::min(std::max(x - 0.5f, -1e6f), 1e6f);
  y = std::min(std::max(y - 0.5f, -1e6f), 1e6f);
  const float left = std::floor(x), top = std::floor(y);
  const auto weightX = static_cast<uint32_t>((x - left) * 256), weightY = static_cast<uint32_t>((y - top) * 256);
  int x0 = static_cast<int>(left), y0 = static_cast<int>(top), x1 = x0 + 1, y1 = y0 + 1;
  if (edge == ImageEdge::Repeat) {
    x0 = Wrap(x0, level.width);
    x1 = Wrap(x1, level.width);
    y0 = Wrap(y0, level.height);
    y1 = Wrap(y1, level.height);
  } else {
    x0 = std::clamp(x0, 0, level.width - 1);
    x1 = std::clamp(x1, 0, level.width - 1);
    y0 = std::clamp(y0, 0, level.height - 1);
    y1 = std::clamp(y1, 0, level.height - 1);
  }
  const Pixel* upper = level.Row(y0);
  const Pixel* lower = level.Row(y1);
  return Mix(Mix(upper[x0], upper[x1], weightX), Mix(lower[x0], lower[x1], weightX), weightY);
}

const TileCells::Cell& TileCells::Find(const std::shared_ptr<const Bitmap>& source, float width, float height) {
  const int columns = static_cast<int>(std::ceil(width)), rows = static_cast<int>(std::ceil(height));
  for (const auto& cell : cells) {
    if (cell->source != source || cell->width != columns || cell->height != rows) continue;
    cell->lastUse = ++uses;
    return *cell;
  }
  auto cell = std::make_unique<Cell>();
  cell->source = source;
  cell->width = columns;
  cell->height = rows;
  cell->lastUse = ++uses;
  const float scaleX = static_cast<float>(source->Width()) / static_cast<float>(columns);
  const float scaleY = static_cast<float>(source->Height()) / static_cast<float>(rows);
  const Bitmap::Level& level = LevelFor(*source, std::min(scaleX, scaleY));
  const float stepX = static_cast<float>(level.width) / static_cast<float>(columns);
  const float stepY = static_cast<float>(level.height) / static_cast<float>(rows);
  cell->pixels.reserve(static_cast<size_t>(columns) * static_cast<size_t>(rows));
  for (int y = 0; y < rows; ++y)
    for (int x = 0; x < columns; ++x)
      cell->pixels.push_back(SampleImage(level, (static_cast<float>(x) + 0.5f) * stepX,
                                         (static_cast<float>(y) + 0.5f) * stepY, ImageEdge::Repeat));
  cells.push_back(std::move(cell));
  return *cells.back();
}

void TileCells::BeginFrame() {
  constexpr size_t kept = 4;
  while (cells.size() > kept)
    cells.erase(std::min_element(cells.begin(), cells.end(),
                                 [](const auto& a, const auto& b) { return a->lastUse < b->lastUse; }));
}

} // namespace Toolkit
