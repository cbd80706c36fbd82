#pragma once

#include "toolkit/base/Geometry.h"
#include "toolkit/render/PixelBuffer.h"

namespace Toolkit {

/// A rectangle with rounded corners, in pixels or, if it is turned, in coordinates of its own, and how much of each
/// pixel it covers.
struct CoverageBox {
  float left = 0, top = 0, right = 0, bottom = 0;
  /// In the unit of the edges. Two that share an edge are no longer than that edge.
  CornerRadius radii;
  /// The edges are not those of pixels: `toBox` maps a pixel's place to the box's coordinates, of which one takes
  /// `scale` pixels.
  bool isTurned = false;
  Matrix toBox;
  float scale = 1;

  /// The box of `rect` with a map that may turn it. Radii that are too long are reduced.
  static CoverageBox Map(const Rect& rect, const CornerRadius& radii, const Matrix& toPixels);
  /// The box inside a border, whose sides are in the unit of the edges.
  CoverageBox Inset(const Thickness& border) const;

  /// The pixels that the box touches; and some that it covers wholly, perhaps none. Both lie within `limit`.
  PixelRect Touched(const PixelRect& limit) const;
  PixelRect Covered(const PixelRect& limit) const;
  /// True if all of `area` is covered wholly.
  bool Covers(const PixelRect& area) const;

  /// The signed distance in pixels from the edge, negative inside, at a place in pixels.
  float Distance(float x, float y) const;
};

/// The coverage along one row of pixels.
class CoverageRow {
public:
  CoverageRow(const CoverageBox& box, int y);
  /// 0 to 1.
  float At(int x) const;
  /// The pixels whose coverage is `Run()`; perhaps none.
  int RunStart() const { return runStart; }
  int RunEnd() const { return runEnd; }
  float Run() const { return height; }

private:
  const CoverageBox& box;
  float center;
  /// The covered part of the row's height.
  float height;
  int runStart = 0, runEnd = 0;
  /// The circle of the corner that the row cuts at either side; the radius is zero where it cuts none.
  float leftRadius = 0, leftX = 0, leftDistance = 0;
  float rightRadius = 0, rightX = 0, rightDistance = 0;
};

} // namespace Toolkit
