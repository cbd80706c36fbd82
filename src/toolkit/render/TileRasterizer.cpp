#include "toolkit/render/TileRasterizer.h"

#include "toolkit/base/Diagnostics.h"
#include "toolkit/render/PixelRounding.h"

#include <cmath>

namespace Toolkit {

namespace {
constexpr int TileWidth = TilePainter::TileWidth, TileHeight = TilePainter::TileHeight;
}

TileRasterizer::TileRasterizer(int threads, FontCollection& fonts, const RowOperations& operations)
    : glyphs(fonts), plan(glyphs, cells), workers(threads) {
  for (int i = 0; i < workers.ThreadCount(); ++i) painters.push_back(std::make_unique<TilePainter>(operations));
}

void TileRasterizer::Draw(const DisplayList& list, const PixelBuffer& target, float scale, Pixel background) {
  const PixelRect all = target.Bounds();
  Draw(list, target, Matrix::Scale(scale, scale), {&all, 1}, background);
}

void TileRasterizer::Draw(const DisplayList& list, const PixelBuffer& target, const Matrix& toPixels,
                          std::span<const PixelRect> damage, Pixel background) {
  TOOLKIT_ASSERT(target.stride >= target.width);
  PixelRect visible;
  for (const PixelRect& part : damage) visible = visible.Unite(part.Intersect(target.Bounds()));
  if (visible.IsEmpty()) return;
  glyphs.BeginFrame();
  cells.BeginFrame();
  plan.Build(list, toPixels, visible, target.Bounds());
  LayTiles(target, damage);
  FillBins();
  workers.Run(static_cast<int>(damagedTiles.size()), [&](int piece, int thread) {
    const Tile& tile = tiles[static_cast<size_t>(damagedTiles[static_cast<size_t>(piece)])];
    for (const PixelRect& part : damage)
      if (const PixelRect clip = part.Intersect(tile.bounds); !clip.IsEmpty())
        painters[static_cast<size_t>(thread)]->Draw(plan, tile.bin, target, tile.bounds.left, tile.bounds.top, clip,
                                                    background);
  });
}

void TileRasterizer::LayTiles(const PixelBuffer& target, std::span<const PixelRect> damage) {
  columns = (target.width + TileWidth - 1) / TileWidth;
  rows = (target.height + TileHeight - 1) / TileHeight;
  tiles.resize(static_cast<size_t>(columns) * static_cast<size_t>(rows));
  damagedTiles.clear();
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      const int index = row * columns + column;
      Tile& tile = tiles[static_cast<size_t>(index)];
      tile.bounds =
          PixelRect{column * TileWidth, row * TileHeight, (column + 1) * TileWidth, (row + 1) * TileHeight}.Intersect(
              target.Bounds());
      tile.bin.clear();
      tile.isDamaged = std::any_of(damage.begin(), damage.end(),
                                   [&](const PixelRect& part) { return !part.Intersect(tile.bounds).IsEmpty(); });
      if (tile.isDamaged) damagedTiles.push_back(index);
    }
  }
}

template <class Put> void TileRasterizer::ForTiles(const PixelRect& bounds, const Put& put) {
  if (bounds.IsEmpty()) return;
  const int lastColumn = (bounds.right - 1) / TileWidth, lastRow = (bounds.bottom - 1) / TileHeight;
  for (int row = bounds.top / TileHeight; row <= lastRow; ++row)
    for (int column = bounds.left / TileWidth; column <= lastColumn; ++column)
      if (Tile& tile = tiles[static_cast<size_t>(row * columns + column)]; tile.isDamaged) put(tile);
}

void TileRasterizer::FillBins() {
  for (uint32_t i = 0; i < plan.items.size(); ++i) {
    const PlanItem& item = plan.items[i];
    if (item.kind == PlanItem::Kind::Stroke) {
      PutSegments(i, item);
      continue;
    }
    const PixelRect hidden = plan.HiddenBy(item);
    ForTiles(item.bounds, [&](Tile& tile) {
      if (hidden.Contains(tile.bounds)) tile.bin.clear();
      tile.bin.push_back({i, item.first, item.end});
    });
  }
}

void TileRasterizer::PutSegments(uint32_t index, const PlanItem& item) {
  const PixelRect& limit = item.bounds;
  for (uint32_t i = item.first; i < item.end; ++i) {
    const StrokeSegment& s = plan.segments[i];
    const float endX = s.x + s.directionX * s.length, endY = s.y + s.directionY * s.length;
    const PixelRect bounds{FloorPixel(std::min(s.x, endX) - s.reach, limit.left, limit.right),
                           FloorPixel(std::min(s.y, endY) - s.reach, limit.top, limit.bottom),
                           CeilPixel(std::max(s.x, endX) + s.reach, limit.left, limit.right),
                           CeilPixel(std::max(s.y, endY) + s.reach, limit.top, limit.bottom)};
    ForTiles(bounds, [&](Tile& tile) {
      if (!tile.bin.empty() && tile.bin.back().item == index && tile.bin.back().end == i)
        tile.bin.back().end = i + 1;
      else
        tile.bin.push_back({index, i, i + 1});
    });
  }
}

} // namespace Toolkit
