#include "toolkit/controls/Shapes.h"

#include "toolkit/render/Brush.h"
#include "toolkit/render/PathGeometry.h"

#include <algorithm>
#include <cmath>

namespace Toolkit {

TOOLKIT_TYPE_IMPL(Shape, FrameworkElement, "Shape")
void Shape::Describe(TypeBuilder<Shape>& type) {
  using P = DependencyProperty;
  FillProperty = type.Property<Brush*>("Fill", nullptr, P::AffectsRender);
  StrokeProperty = type.Property<Brush*>("Stroke", nullptr, P::AffectsRender);
  StrokeThicknessProperty = type.Property<float>("StrokeThickness", 1.0f, P::AffectsMeasure);
  StrokeDashArrayProperty = type.Property<SharedString>("StrokeDashArray", SharedString(), P::AffectsRender);
  StretchProperty = type.Property<Stretch>("Stretch", Stretch::None, P::AffectsMeasure);
}

Brush* Shape::GetStroke() const { return static_cast<Brush*>(GetValue(StrokeProperty).AsObject()); }
void Shape::SetStroke(Brush* brush) { SetValue(StrokeProperty, brush); }

TOOLKIT_TYPE_IMPL(Rectangle, Shape, "Rectangle")
void Rectangle::Describe(TypeBuilder<Rectangle>& type) {
  RadiusXProperty = type.Property<float>("RadiusX", 0, DependencyProperty::AffectsRender);
  RadiusYProperty = type.Property<float>("RadiusY", 0, DependencyProperty::AffectsRender);
}

bool Rectangle::HitTestSelf(Point point) const {
  return !GetValue(FillProperty).IsNone() && Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point);
}

TOOLKIT_TYPE_IMPL(Ellipse, Shape, "Ellipse")
void Ellipse::Describe(TypeBuilder<Ellipse>&) {}

bool Ellipse::HitTestSelf(Point point) const {
  const float rx = ActualWidth() * 0.5f, ry = ActualHeight() * 0.5f;
  if (GetValue(FillProperty).IsNone() || rx <= 0 || ry <= 0) return false;
  const float x = (point.x - rx) / rx, y = (point.y - ry) / ry;
  return x * x + y * y <= 1;
}

TOOLKIT_TYPE_IMPL(Line, Shape, "Line")
void Line::Describe(TypeBuilder<Line>& type) {
  const uint32_t measures = DependencyProperty::AffectsMeasure;
  X1Property = type.Property<float>("X1", 0, measures);
  Y1Property = type.Property<float>("Y1", 0, measures);
  X2Property = type.Property<float>("X2", 0, measures);
  Y2Property = type.Property<float>("Y2", 0, measures);
}

Size Line::MeasureOverride(Size) {
  return {std::max(Get<float>(X1Property), Get<float>(X2Property)),
          std::max(Get<float>(Y1Property), Get<float>(Y2Property))};
}

TOOLKIT_TYPE_IMPL(Path, Shape, "Path")
void Path::Describe(TypeBuilder<Path>& type) {
  DataProperty = type.Property<PathGeometry*>("Data", nullptr, DependencyProperty::AffectsMeasure);
}

void Path::SetData(PathGeometry* geometry) { SetValue(DataProperty, geometry); }
PathGeometry* Path::GetData() const { return static_cast<PathGeometry*>(GetValue(DataProperty).AsObject()); }

Size Path::MeasureOverride(Size) {
  const PathGeometry* geometry = GetData();
  if (!geometry) return {};
  const Rect bounds = geometry->Bounds();
  const float half = GetValue(StrokeProperty).IsNone() ? 0 : Get<float>(StrokeThicknessProperty) * 0.5f;
  return {std::max(0.0f, bounds.Right() + half), std::max(0.0f, bounds.Bottom() + half)};
}

namespace {
float SquaredDistanceToSegment(Point p, Point a, Point b) {
  const Point ab = b - a, ap = p - a;
  const float length = ab.x * ab.x + ab.y * ab.y;
  const float t = length > 0 ? std::clamp((ap.x * ab.x + ap.y * ab.y) / length, 0.0f, 1.0f) : 0;
  const float dx = ap.x - ab.x * t, dy = ap.y - ab.y * t;
  return dx * dx + dy * dy;
}

Point OnCurve(Point p0, Point p1, Point p2, Point p3, float t) {
  const float u = 1 - t;
  const float a = u * u * u, b = 3 * u * u * t, c = 3 * u * t * t, d = t * t * t;
  return {a * p0.x + b * p1.x + c * p2.x + d * p3.x, a * p0.y + b * p1.y + c * p2.y + d * p3.y};
}
} // namespace

bool Path::HitTestSelf(Point point) const {
  const PathGeometry* geometry = GetData();
  if (!geometry) return false;
  const Rect bounds = geometry->Bounds();
  const float reach = std::max(2.0f, Get<float>(StrokeThicknessProperty) * 0.5f);
  const Rect around{bounds.x - reach, bounds.y - reach, bounds.width + 2 * reach, bounds.height + 2 * reach};
  if (!around.Contains(point)) return false;
  if (!GetValue(FillProperty).IsNone() && bounds.Contains(point)) return true;
  if (GetValue(StrokeProperty).IsNone()) return false;
  constexpr int Steps = 24;
  for (const Ptr<PathFigure>& figure : geometry->Figures()) {
    Point at = figure->GetStartPoint();
    for (const Ptr<PathSegment>& segment : figure->Segments()) {
      const auto* curve = DynamicCast<BezierSegment>(segment.Get());
      const Point start = at;
      for (int i = 1; i <= (curve ? Steps : 1); ++i) {
        const Point next = curve ? OnCurve(start, curve->GetPoint1(), curve->GetPoint2(), curve->GetPoint3(),
                                           static_cast<float>(i) / Steps)
                                 : segment->EndPoint();
        if (SquaredDistanceToSegment(point, at, next) <= reach * reach) return true;
        at = next;
      }
    }
  }
  return false;
}

} // namespace Toolkit
