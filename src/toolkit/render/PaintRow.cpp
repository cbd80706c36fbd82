#include "toolkit/render/PaintRow.h"

#include "toolkit/render/PixelRounding.h"

#include <cmath>
#include <cstring>

namespace Toolkit {

namespace {

void MakeGradientRow(const PlanPaint& paint, int x, int y, int count, Pixel* row) {
  const auto& colors = paint.ramp->Colors();
  const float start = (static_cast<float>(y) + 0.5f) * paint.alongY + paint.along;
  const auto at = [&](float place) {
    return colors[static_cast<size_t>(std::min(std::max(place, 0.0f), 255.0f) + 0.5f)];
  };
  if (paint.alongX == 0) {
    std::fill(row, row + count, at(start));
    return;
  }
  for (int i = 0; i < count; ++i) row[i] = at((static_cast<float>(x + i) + 0.5f) * paint.alongX + start);
}

/// The tiles along one axis begin at whole pixels, so that a pattern's lines stay sharp.
struct TileSteps {
  float origin, size;
  int Start(int index) const {
    return FloorPixel(origin + static_cast<float>(index) * size + 0.5f, -FarPixel, FarPixel);
  }
  int IndexAt(int place) const {
    int index = FloorPixel((static_cast<float>(place) + 0.5f - origin) / size, -FarPixel, FarPixel);
    while (Start(index) > place) --index;
    while (Start(index + 1) <= place) ++index;
    return index;
  }
};

void MakeTileRow(const PlanPaint& paint, int x, int y, int count, Pixel* row) {
  const TileCells::Cell& cell = *paint.cell;
  const TileSteps columns{paint.cellX, paint.cellWidth};
  const int line = CellLineAt(paint, y);
  const Pixel* source = cell.pixels.data() + static_cast<size_t>(line) * static_cast<size_t>(cell.width);
  int index = columns.IndexAt(x), start = columns.Start(index);
  for (int i = 0; i < count;) {
    const int end = columns.Start(++index);
    const int from = std::min(x + i - start, cell.width - 1);
    const int length = std::min(std::min(end - (x + i), count - i), cell.width - from);
    std::memcpy(row + i, source + from, static_cast<size_t>(length) * sizeof(Pixel));
    i += length;
    // A tile may be a pixel wider than its cell where rounding falls so.
    for (; i < count && x + i < end; ++i) row[i] = source[cell.width - 1];
    start = end;
  }
}

void MakeImageRow(const PlanPaint& paint, int x, int y, int count, Pixel* row) {
  const Bitmap::Level& level = *paint.level;
  const float width = static_cast<float>(level.width), height = static_cast<float>(level.height);
  const ImageEdge edge = paint.isTiled ? ImageEdge::Repeat : ImageEdge::Extend;
  const bool endsAtEdge = !paint.isTiled && !paint.clampsImage;
  for (int i = 0; i < count; ++i) {
    const Point p = paint.toImage.Map({static_cast<float>(x + i) + 0.5f, static_cast<float>(y) + 0.5f});
    const bool isOutside = endsAtEdge && !(p.x >= 0 && p.y >= 0 && p.x < width && p.y < height);
    row[i] = isOutside ? 0 : SampleImage(level, p.x, p.y, edge);
  }
}

} // namespace

int CellLineAt(const PlanPaint& paint, int y) {
  const TileSteps rows{paint.cellY, paint.cellHeight};
  return std::min(y - rows.Start(rows.IndexAt(y)), paint.cell->height - 1);
}

void MakePaintRow(const PlanPaint& paint, int x, int y, int count, Pixel* row) {
  if (paint.kind == PaintKind::Linear) return MakeGradientRow(paint, x, y, count, row);
  if (paint.cell)
    MakeTileRow(paint, x, y, count, row);
  else
    MakeImageRow(paint, x, y, count, row);
  if (paint.opacity < 255)
    for (int i = 0; i < count; ++i) row[i] = ScalePixel(row[i], paint.opacity);
}

} // namespace Toolkit
