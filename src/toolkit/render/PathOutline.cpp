#include "toolkit/render/PathOutline.h"

#include "toolkit/render/PathGeometry.h"

#include <algorithm>

namespace Toolkit {

void PathOutline::MoveTo(Point p) {
  verbs.push_back(Verb::Move);
  points.push_back(p);
}

void PathOutline::LineTo(Point p) {
  verbs.push_back(Verb::Line);
  points.push_back(p);
}

void PathOutline::CurveTo(Point p, Point q, Point r) {
  verbs.push_back(Verb::Curve);
  points.insert(points.end(), {p, q, r});
}

PathOutline PathOutline::FromGeometry(const PathGeometry& geometry) {
  PathOutline outline;
  for (const Ptr<PathFigure>& figure : geometry.Figures()) {
    outline.MoveTo(figure->GetStartPoint());
    for (const Ptr<PathSegment>& segment : figure->Segments()) {
      if (const auto* curve = DynamicCast<BezierSegment>(segment))
        outline.CurveTo(curve->GetPoint1(), curve->GetPoint2(), curve->GetPoint3());
      else
        outline.LineTo(segment->EndPoint());
    }
    if (figure->IsClosed()) outline.Close();
  }
  return outline;
}

PathOutline PathOutline::Ellipse(const Rect& box) {
  // The distance of the control points that brings a cubic nearest to a quarter of a circle.
  constexpr float kappa = 0.5522847f;
  const float rx = box.width / 2, ry = box.height / 2;
  const Point c{box.x + rx, box.y + ry};
  PathOutline outline;
  outline.MoveTo({c.x + rx, c.y});
  outline.CurveTo({c.x + rx, c.y + ry * kappa}, {c.x + rx * kappa, c.y + ry}, {c.x, c.y + ry});
  outline.CurveTo({c.x - rx * kappa, c.y + ry}, {c.x - rx, c.y + ry * kappa}, {c.x - rx, c.y});
  outline.CurveTo({c.x - rx, c.y - ry * kappa}, {c.x - rx * kappa, c.y - ry}, {c.x, c.y - ry});
  outline.CurveTo({c.x + rx * kappa, c.y - ry}, {c.x + rx, c.y - ry * kappa}, {c.x + rx, c.y});
  outline.Close();
  return outline;
}

Rect PathOutline::Bounds() const {
  if (points.empty()) return {};
  float left = Infinity, top = Infinity, right = -Infinity, bottom = -Infinity;
  float sum = 0;
  for (const Point& p : points) {
    left = std::min(left, p.x);
    top = std::min(top, p.y);
    right = std::max(right, p.x);
    bottom = std::max(bottom, p.y);
    sum += p.x * 0 + p.y * 0;
  }
  // Comparisons pass over what is not a number; the sum keeps it.
  return {left + sum, top + sum, right - left + sum, bottom - top + sum};
}

} // namespace Toolkit
