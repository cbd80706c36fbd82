#include "graph/CutLineGeometry.h"

#include <algorithm>
#include <cmath>

namespace Tesselor {

using Toolkit::Point;

namespace {

constexpr int CurveSegments = 20;
/// A cross product up to this counts as zero: the point lies on the line.
constexpr double OnLine = 0.0001;
/// More than the rounding of points on a canvas of this size can move a curve out of the box of its four points.
constexpr float BoxSlack = 4;

/// Twice the area of the triangle; its sign tells on which side of the line from `a` to `b` the point `p` lies.
double Cross(Point a, Point b, Point p) {
  const double abx = static_cast<double>(b.x) - a.x, aby = static_cast<double>(b.y) - a.y;
  const double apx = static_cast<double>(p.x) - a.x, apy = static_cast<double>(p.y) - a.y;
  return abx * apy - aby * apx;
}

bool AreOpposite(double a, double b) { return (a > 0 && b < 0) || (a < 0 && b > 0); }

bool IsInBox(Point p, Point a, Point b) {
  return p.x >= std::min(a.x, b.x) && p.x <= std::max(a.x, b.x) && p.y >= std::min(a.y, b.y) &&
         p.y <= std::max(a.y, b.y);
}

bool Touches(double cross, Point p, Point a, Point b) { return std::abs(cross) < OnLine && IsInBox(p, a, b); }

Point OnCurve(const std::array<Point, 4>& curve, double t) {
  const double u = 1 - t;
  const double f0 = u * u * u, f1 = 3 * u * u * t, f2 = 3 * u * t * t, f3 = t * t * t;
  return {static_cast<float>(f0 * curve[0].x + f1 * curve[1].x + f2 * curve[2].x + f3 * curve[3].x),
          static_cast<float>(f0 * curve[0].y + f1 * curve[1].y + f2 * curve[2].y + f3 * curve[3].y)};
}

float SquaredDistanceToSegment(Point p, Point a, Point b) {
  const Point ab = b - a, ap = p - a;
  const float length = ab.x * ab.x + ab.y * ab.y;
  const float t = length > 0 ? std::clamp((ap.x * ab.x + ap.y * ab.y) / length, 0.0f, 1.0f) : 0;
  const float dx = ap.x - ab.x * t, dy = ap.y - ab.y * t;
  return dx * dx + dy * dy;
}

/// False only if no point of the curve can come near the line.
bool BoxesMeet(Point a, Point b, const std::array<Point, 4>& curve) {
  const auto [left, right] = std::minmax({curve[0].x, curve[1].x, curve[2].x, curve[3].x});
  const auto [top, bottom] = std::minmax({curve[0].y, curve[1].y, curve[2].y, curve[3].y});
  return std::min(a.x, b.x) <= right + BoxSlack && std::max(a.x, b.x) >= left - BoxSlack &&
         std::min(a.y, b.y) <= bottom + BoxSlack && std::max(a.y, b.y) >= top - BoxSlack;
}

} // namespace

bool SegmentsMeet(Point a, Point b, Point p, Point q) {
  const double pSide = Cross(a, b, p), qSide = Cross(a, b, q);
  const double aSide = Cross(p, q, a), bSide = Cross(p, q, b);
  if (AreOpposite(pSide, qSide) && AreOpposite(aSide, bSide)) return true;
  return Touches(pSide, p, a, b) || Touches(qSide, q, a, b) || Touches(aSide, a, p, q) || Touches(bSide, b, p, q);
}

bool CutLineMeetsCurve(Point a, Point b, const std::array<Point, 4>& curve) {
  if (!BoxesMeet(a, b, curve)) return false;
  Point previous = curve[0];
  for (int i = 1; i <= CurveSegments; ++i) {
    const Point next = OnCurve(curve, static_cast<double>(i) / CurveSegments);
    if (SegmentsMeet(a, b, previous, next)) return true;
    previous = next;
  }
  return false;
}

bool IsNearCurve(Point point, const std::array<Point, 4>& curve, float reach) {
  Point previous = curve[0];
  for (int i = 1; i <= CurveSegments; ++i) {
    const Point next = OnCurve(curve, static_cast<double>(i) / CurveSegments);
    if (SquaredDistanceToSegment(point, previous, next) <= reach * reach) return true;
    previous = next;
  }
  return false;
}

} // namespace Tesselor
