#pragma once

#include "toolkit/render/Bitmap.h"

#include <memory>
#include <vector>

namespace Toolkit {

/// Images that fill areas as tiles, scaled beforehand to the size that they have on the screen. A few are kept.
class TileCells {
public:
  struct Cell {
    std::shared_ptr<const Bitmap> source;
    int width = 0, height = 0;
    std::vector<Pixel> pixels;
    uint64_t lastUse = 0;
  };
  /// Larger cells are not worth keeping.
  static constexpr float MaximumSize = 1024;

  /// A cell as large as the tile, rounded up; the tile's size is in pixels and at least one. Valid until the next
  /// `BeginFrame`.
  const Cell& Find(const std::shared_ptr<const Bitmap>& source, float width, float height);
  void BeginFrame();

private:
  std::vector<std::unique_ptr<Cell>> cells;
  uint64_t uses = 0;
};

/// The copy of the image that is nearest to, and not much smaller than, its size on the screen; `reduction` is how
/// many pixels of the image fall on one of the screen.
const Bitmap::Level& LevelFor(const Bitmap& bitmap, float reduction);

/// The pixel at a place in `level`, mixed from the four around it. Outside, the image repeats or its border goes on.
enum class ImageEdge { Repeat, Extend };
Pixel SampleImage(const Bitmap::Level& level, float x, float y, ImageEdge edge);

} // namespace Toolkit
