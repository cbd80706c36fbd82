#pragma once

#include "toolkit/base/Geometry.h"

#include <cstdint>
#include <vector>

namespace Toolkit {

class PathGeometry;

/// The plain form of a path that drawing works on. `points` holds one point for a move or a line, three for a curve
/// and none for a close.
struct PathOutline {
  enum class Verb : uint8_t { Move, Line, Curve, Close };
  std::vector<Verb> verbs;
  std::vector<Point> points;

  void MoveTo(Point p);
  void LineTo(Point p);
  void CurveTo(Point p, Point q, Point r);
  void Close() { verbs.push_back(Verb::Close); }

  static PathOutline FromGeometry(const PathGeometry& geometry);
  static PathOutline Ellipse(const Rect& box);

  /// The box around all points, control points included; not a number where a point is not.
  Rect Bounds() const;
};

} // namespace Toolkit
