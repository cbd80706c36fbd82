#pragma once

#include "toolkit/render/FramePlan.h"
#include "toolkit/render/RowOperations.h"

#include <array>
#include <memory>
#include <span>
#include <vector>

namespace Toolkit {

/// An item to draw in a tile; of a stroke, those of its segments that reach the tile.
struct BinEntry {
  uint32_t item = 0;
  uint32_t first = 0, end = 0;
};

/// Draws the items of one tile after the other; one painter per thread. What a pixel becomes depends neither on the
/// tile nor on the part of it that is redrawn.
class TilePainter {
public:
  static constexpr int TileWidth = 256, TileHeight = 64;

  explicit TilePainter(const RowOperations& operations);

  /// Draws `clip`, a part of the tile that begins at (tileX, tileY), on `background`.
  void Draw(const FramePlan& plan, std::span<const BinEntry> bin, const PixelBuffer& target, int tileX, int tileY,
            const PixelRect& clip, Pixel background);

private:
  /// Where pixels go: the target, or a group's own.
  struct Surface {
    Pixel* pixels;
    int stride;
    int x, y;
    Pixel* At(int atX, int atY) const { return pixels + static_cast<ptrdiff_t>(atY - y) * stride + (atX - x); }
  };
  using Layer = std::array<Pixel, TileWidth * TileHeight>;
  /// A solid colour, or where that is absent, a paint of the plan.
  struct Ink {
    Pixel color;
    const PlanPaint* paint;
  };

  void DrawItem(const PlanItem& item);
  void DrawRectangle(const PlanItem& item);
  void DrawBox(const PlanItem& item);
  void DrawShadow(const PlanItem& item);
  void DrawGlyphs(const PlanItem& item);
  size_t DrawStroke(std::span<const BinEntry> bin, size_t at);
  void CoverSegment(const StrokeSegment& segment);
  /// Makes the runs those of the present ink; nothing is known of another one.
  void UseFullRuns();
  void ForgetFullRuns() { fullColor = 0; }
  void ExtendFullRun(size_t row, int left, int right, const uint8_t* coverage);
  void DrawArea(const PlanItem& item);
  void AddEdge(Point from, Point to);
  void BeginGroup();
  void EndGroup(const PlanItem& item);

  void UseClips(uint32_t clip);
  /// False if no clip touches these pixels; else the mask, which holds the coverage without clips, is reduced.
  bool ClipMask(int y, int left, int right, uint8_t* coverage) const;
  bool IsRowClipped(int y, int left, int right) const;

  void PaintRun(int y, int left, int right, int coverage);
  void PaintMask(int y, int left, int right, const uint8_t* coverage);
  void PaintPixels(int y, int left, int right, const Pixel* pixels);
  const Pixel* InkRow(const Ink& ink, int y, int left, int right, Pixel* row) const;
  Ink InkOf(Pixel color, uint32_t paint) const;

  const RowOperations& operations;
  const FramePlan* plan = nullptr;
  int tileX = 0, tileY = 0;
  PixelRect clip;
  /// The part of the clip that the present item may touch.
  PixelRect area;
  Ink ink{};
  std::vector<const CoverageBox*> clips;
  std::vector<Surface> surfaces;
  std::vector<std::unique_ptr<Layer>> layers;

  /// The coverage of the present stroke, all zero between two; and which part of each row is not.
  std::array<uint8_t, TileWidth * TileHeight> mask{};
  std::array<int, TileHeight> maskLeft{}, maskRight{};
  /// In each row a run of pixels that are known to be of `fullColor`, which is opaque: more strokes of that colour
  /// leave them as they are. Where thousands of connections leave one pin, nearly all of them are of this kind.
  std::array<int, TileHeight> fullLeft{}, fullRight{};
  Pixel fullColor = 0;
  /// Differences of the covered area from one pixel to the next, all zero between two items.
  std::vector<float> areas;
};

} // namespace Toolkit
