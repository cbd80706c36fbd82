#pragma once

#include "toolkit/render/FramePlan.h"
#include "toolkit/render/TilePainter.h"
#include "toolkit/render/WorkerPool.h"

#include <memory>
#include <span>
#include <vector>

namespace Toolkit {

/// Draws display lists into pixels on the processor. The pixels are the same for any number of threads, any division
/// into redrawn parts and either form of the row operations.
class TileRasterizer {
public:
  /// `threads` counts the calling one; 0 takes as many as the machine has processors, 4 at most. The fonts must
  /// outlive the rasteriser.
  explicit TileRasterizer(int threads = 0, FontCollection& fonts = FontCollection::Instance(),
                          const RowOperations& operations = RowOperations::Fastest());

  /// Redraws the damaged parts of the target on `background`; pixels outside of them stay as they are. `toPixels` maps
  /// the list's coordinates to pixels.
  void Draw(const DisplayList& list, const PixelBuffer& target, const Matrix& toPixels,
            std::span<const PixelRect> damage, Pixel background = 0);
  /// Redraws all of the target.
  void Draw(const DisplayList& list, const PixelBuffer& target, float scale = 1, Pixel background = 0);

  const GlyphAtlas& Glyphs() const { return glyphs; }

private:
  struct Tile {
    PixelRect bounds;
    bool isDamaged = false;
    std::vector<BinEntry> bin;
  };

  void LayTiles(const PixelBuffer& target, std::span<const PixelRect> damage);
  void FillBins();
  void PutSegments(uint32_t index, const PlanItem& item);
  template <class Put> void ForTiles(const PixelRect& bounds, const Put& put);

  GlyphAtlas glyphs;
  TileCells cells;
  FramePlan plan;
  WorkerPool workers;
  std::vector<std::unique_ptr<TilePainter>> painters;
  int columns = 0, rows = 0;
  std::vector<Tile> tiles;
  std::vector<int> damagedTiles;
};

} // namespace Toolkit
