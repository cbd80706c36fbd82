#pragma once

#include "toolkit/base/Geometry.h"

#include <algorithm>
#include <cmath>

namespace Toolkit {

/// A box by its edges, for culling.
struct Extent {
  float left = 0, top = 0, right = 0, bottom = 0;
  /// Not for what is not a number.
  bool Meets(float l, float t, float r, float b) const { return l <= right && r >= left && t <= bottom && b >= top; }
};

/// How many straight pieces bring a cubic curve within `tolerance` pixels.
inline float CurvePieces(Point a, Point b, Point c, Point d, float tolerance) {
  const Point first{a.x - 2 * b.x + c.x, a.y - 2 * b.y + c.y}, second{b.x - 2 * c.x + d.x, b.y - 2 * c.y + d.y};
  const float bend = std::max(first.x * first.x + first.y * first.y, second.x * second.x + second.y * second.y);
  return std::sqrt(0.75f / tolerance * std::sqrt(bend));
}

inline Point CurvePoint(Point a, Point b, Point c, Point d, float t) {
  const float s = 1 - t;
  const float wa = s * s * s, wb = 3 * s * s * t, wc = 3 * s * t * t, wd = t * t * t;
  return {a.x * wa + b.x * wb + c.x * wc + d.x * wd, a.y * wa + b.y * wb + c.y * wc + d.y * wd};
}

/// Calls `emit(from, to)` for straight pieces of a cubic curve, from its start to its end. Of parts that `meets(left,
/// top, right, bottom)` turns down, only `skip(from, to)` is called, so a long curve costs what is visible of it. What
/// is cut off never changes the pieces that remain.
template <class Meets, class Emit, class Skip>
void FlattenCurve(Point a, Point b, Point c, Point d, float tolerance, const Meets& meets, const Emit& emit,
                  const Skip& skip, int depth = 0) {
  constexpr int maximumDepth = 20;
  constexpr float piecesAtOnce = 8;
  if (!meets(std::min(std::min(a.x, b.x), std::min(c.x, d.x)), std::min(std::min(a.y, b.y), std::min(c.y, d.y)),
             std::max(std::max(a.x, b.x), std::max(c.x, d.x)), std::max(std::max(a.y, b.y), std::max(c.y, d.y)))) {
    skip(a, d);
    return;
  }
  const float pieces = CurvePieces(a, b, c, d, tolerance);
  if (!(pieces > piecesAtOnce) || depth == maximumDepth) {
    const int count = pieces > 1 ? static_cast<int>(std::ceil(std::min(pieces, piecesAtOnce))) : 1;
    Point from = a;
    for (int i = 1; i <= count; ++i) {
      const Point to = i == count ? d : CurvePoint(a, b, c, d, static_cast<float>(i) / static_cast<float>(count));
      emit(from, to);
      from = to;
    }
    return;
  }
  const auto middle = [](Point p, Point q) { return Point{(p.x + q.x) / 2, (p.y + q.y) / 2}; };
  const Point ab = middle(a, b), bc = middle(b, c), cd = middle(c, d);
  const Point abc = middle(ab, bc), bcd = middle(bc, cd), center = middle(abc, bcd);
  FlattenCurve(a, ab, abc, center, tolerance, meets, emit, skip, depth + 1);
  FlattenCurve(center, bcd, cd, d, tolerance, meets, emit, skip, depth + 1);
}

} // namespace Toolkit
