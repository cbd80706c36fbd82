#pragma once

#include "toolkit/render/CoverageBox.h"
#include "toolkit/render/DisplayList.h"
#include "toolkit/render/GlyphAtlas.h"
#include "toolkit/render/PixelBuffer.h"
#include "toolkit/render/RowOperations.h"
#include "toolkit/render/TileCells.h"

#include <cstdint>
#include <vector>

namespace Toolkit {

/// A paint in pixels.
struct PlanPaint {
  PaintKind kind = PaintKind::None;
  /// Every pixel is opaque.
  bool isOpaque = false;
  uint32_t opacity = 255;
  /// A gradient: the place along it is x * alongX + y * alongY + along, 0 to 255.
  const GradientRamp* ramp = nullptr;
  float alongX = 0, alongY = 0, along = 0;
  /// An image: the map from pixels to those of `level`.
  const Bitmap::Level* level = nullptr;
  Matrix toImage;
  bool isTiled = false, clampsImage = false;
  /// Tiles drawn beforehand, each `cellWidth` by `cellHeight` pixels, the first one's corner at (cellX, cellY).
  const TileCells::Cell* cell = nullptr;
  float cellX = 0, cellY = 0, cellWidth = 0, cellHeight = 0;
};

struct PlanGlyph {
  const GlyphMask* mask = nullptr;
  /// The pixel of the origin.
  int x = 0, y = 0;
};

struct PlanEdge {
  Point from, to;
};

/// A clip whose edge is not that of pixels, and the next outer one; 0 is none.
struct PlanClip {
  CoverageBox box;
  uint32_t outer = 0;
};

struct PlanBox {
  CoverageBox outer, inner;
};

/// One thing to draw, in pixels.
struct PlanItem {
  enum class Kind : uint8_t { Rectangle, Box, Stroke, Area, Glyphs, Shadow, GroupStart, GroupEnd };
  Kind kind = Kind::Rectangle;
  /// Of a group, 0 to 255.
  uint8_t opacity = 255;
  bool hasBorder = false;
  /// Its fill is opaque and not clipped, so that it hides what is below.
  bool hides = false;
  /// Nothing outside of it is drawn.
  PixelRect bounds;
  /// A solid colour where the paint is 0; a transparent one paints nothing.
  Pixel color = 0, borderColor = 0;
  uint32_t paint = 0, borderPaint = 0;
  uint32_t clip = 0;
  /// Half-open: segments, edges or glyphs; else `first` is the box.
  uint32_t first = 0, end = 0;
  /// A rectangle's edges; a shadow's softness in `left`.
  float left = 0, top = 0, right = 0, bottom = 0;
};

/// Turns a display list into things to draw at one scale, leaving out what does not show: the part of a frame that one
/// thread does before the tiles are drawn. Its tables keep their memory from frame to frame.
class FramePlan {
public:
  FramePlan(GlyphAtlas& glyphs, TileCells& cells) : glyphAtlas(glyphs), tileCells(cells) {}

  /// `visible` is where anything is going to be drawn; `target` all of the picture.
  void Build(const DisplayList& list, const Matrix& toPixels, const PixelRect& visible, const PixelRect& target);

  /// Pixels that the item hides wholly; often none.
  PixelRect HiddenBy(const PlanItem& item) const;

  std::vector<PlanItem> items;
  /// The first entry of paints and of clips stands for none.
  std::vector<PlanPaint> paints;
  std::vector<PlanClip> clips;
  std::vector<PlanBox> boxes;
  std::vector<StrokeSegment> segments;
  std::vector<PlanEdge> edges;
  std::vector<PlanGlyph> glyphs;

private:
  struct State {
    Matrix matrix;
    float scale = 1;
    bool isUpright = true;
    PixelRect clipBounds;
    uint32_t clip = 0;
    int depth = 0;
  };
  /// A paint for one item.
  struct Ink {
    Pixel color = 0;
    uint32_t paint = 0;
    bool IsNone() const { return AlphaOf(color) == 0 && paint == 0; }
  };

  static State Transformed(const State& state, const Matrix& matrix);
  void AddList(const DisplayList& list, const State& state);
  void AddEntries(const DisplayList& list, const State& state, size_t first, size_t end);
  void AddGroup(const DisplayList& list, const State& state, size_t entry);
  /// Lets a single item show through by itself, which is cheaper than a group of one; false if it cannot.
  bool Fade(PlanItem& item, uint8_t opacity);
  bool Clip(const DisplayList& list, const DisplayEntry& entry, State& state);
  void AddRectangle(const DisplayList& list, const DisplayEntry& entry, const State& state);
  void AddBox(const DisplayList& list, const DisplayEntry& entry, const State& state);
  void AddShadow(const DisplayList& list, const DisplayEntry& entry, const State& state);
  void AddPath(const DisplayList& list, const DisplayEntry& entry, const State& state);
  void AddArea(const PathOutline& outline, const Matrix& matrix, const PixelRect& bounds, const Ink& ink,
               const State& state);
  void AddStroke(const DisplayList::PathShape& shape, const PixelRect& bounds, Ink ink, const State& state);
  void AddDashes(Point from, Point to, const DisplayList::PathShape& shape, float scale, double& phase, float reach,
                 const PixelRect& bounds);
  void AddSegment(Point from, Point to, float reach);
  void AddText(const DisplayList& list, const DisplayEntry& entry, const State& state);
  void AddTextBar(const TextLayout& layout, size_t line, Point origin, const Ink& ink, const State& state);
  void AddGlyphOutlines(const TextLayout& layout, size_t line, Point origin, const Ink& ink, const State& state);

  bool IsOpaque(const Ink& ink) const {
    return AlphaOf(ink.color) == 255 || (ink.paint != 0 && paints[ink.paint].isOpaque);
  }
  PixelRect PixelBounds(const Rect& rect, const State& state) const;
  Ink InkFor(const DisplayList& list, uint16_t paint, const State& state);
  PlanItem& Add(PlanItem::Kind kind, const PixelRect& bounds, const Ink& ink, const State& state);

  GlyphAtlas& glyphAtlas;
  TileCells& tileCells;
  PixelRect target;
};

} // namespace Toolkit
