#include "toolkit/render/TilePainter.h"

#include "toolkit/render/PaintRow.h"

#include <cmath>
#include <cstring>

namespace Toolkit {

TilePainter::Ink TilePainter::InkOf(Pixel color, uint32_t paint) const {
  return {color, paint != 0 ? &plan->paints[paint] : nullptr};
}

void TilePainter::UseClips(uint32_t index) {
  clips.clear();
  for (; index != 0; index = plan->clips[index].outer)
    if (!plan->clips[index].box.Covers(area)) clips.push_back(&plan->clips[index].box);
}

bool TilePainter::IsRowClipped(int y, int left, int right) const {
  for (const CoverageBox* box : clips) {
    const CoverageRow row(*box, y);
    if (row.Run() < 1 || left < row.RunStart() || right > row.RunEnd()) return true;
  }
  return false;
}

bool TilePainter::ClipMask(int y, int left, int right, uint8_t* coverage) const {
  bool isClipped = false;
  for (const CoverageBox* box : clips) {
    const CoverageRow row(*box, y);
    if (row.Run() >= 1 && left >= row.RunStart() && right <= row.RunEnd()) continue;
    isClipped = true;
    for (int x = left; x < right; ++x)
      if (coverage[x - left] != 0)
        coverage[x - left] =
            static_cast<uint8_t>(Divide255(coverage[x - left] * static_cast<uint32_t>(row.At(x) * 255 + 0.5f)));
  }
  return isClipped;
}

void TilePainter::PaintRun(int y, int left, int right, int coverage) {
  if (coverage == 0) return;
  if (!clips.empty() && IsRowClipped(y, left, right)) {
    uint8_t values[TileWidth];
    std::memset(values, coverage, static_cast<size_t>(right - left));
    return PaintMask(y, left, right, values);
  }
  Pixel* row = surfaces.back().At(left, y);
  const int count = right - left;
  if (!ink.paint) {
    const Pixel color = ScalePixel(ink.color, static_cast<uint32_t>(coverage));
    if (AlphaOf(color) == 255)
      std::fill_n(row, count, color);
    else if (count == 1)
      *row = BlendPixel(*row, color);
    else if (AlphaOf(color) != 0)
      operations.blendColor(row, count, color);
    return;
  }
  if (coverage == 255 && ink.paint->isOpaque) return MakePaintRow(*ink.paint, left, y, count, row);
  Pixel pixels[TileWidth];
  MakePaintRow(*ink.paint, left, y, count, pixels);
  if (coverage != 255)
    for (int i = 0; i < count; ++i) pixels[i] = ScalePixel(pixels[i], static_cast<uint32_t>(coverage));
  operations.blendPixels(row, pixels, count);
}

void TilePainter::PaintMask(int y, int left, int right, const uint8_t* coverage) {
  uint8_t clipped[TileWidth];
  const int count = right - left;
  if (!clips.empty()) {
    std::memcpy(clipped, coverage, static_cast<size_t>(count));
    if (ClipMask(y, left, right, clipped)) coverage = clipped;
  }
  Pixel* row = surfaces.back().At(left, y);
  if (!ink.paint) {
    if (AlphaOf(ink.color) != 0) operations.blendColorMask(row, coverage, count, ink.color);
    return;
  }
  Pixel pixels[TileWidth];
  MakePaintRow(*ink.paint, left, y, count, pixels);
  operations.blendPixelsMask(row, pixels, coverage, count);
}

void TilePainter::PaintPixels(int y, int left, int right, const Pixel* pixels) {
  Pixel* row = surfaces.back().At(left, y);
  if (clips.empty() || !IsRowClipped(y, left, right)) return operations.blendPixels(row, pixels, right - left);
  uint8_t values[TileWidth];
  std::memset(values, 255, static_cast<size_t>(right - left));
  ClipMask(y, left, right, values);
  operations.blendPixelsMask(row, pixels, values, right - left);
}

const Pixel* TilePainter::InkRow(const Ink& source, int y, int left, int right, Pixel* row) const {
  if (source.paint)
    MakePaintRow(*source.paint, left, y, right - left, row);
  else
    std::fill_n(row, right - left, source.color);
  return row;
}

} // namespace Toolkit
