#include "toolkit/controls/Shapes.h"

#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"
#include "toolkit/render/PathGeometry.h"

#include <algorithm>
#include <charconv>
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

std::vector<float> Shape::Dashes() const {
  std::vector<float> dashes;
  const std::string_view text = GetString(StrokeDashArrayProperty);
  const char *at = text.data(), *end = at + text.size();
  while (at != end) {
    if (*at == ' ' || *at == ',') {
      ++at;
      continue;
    }
    float value = 0;
    const auto [next, error] = std::from_chars(at, end, value);
    if (error != std::errc()) return {};
    dashes.push_back(value);
    at = next;
  }
  return dashes;
}

TOOLKIT_TYPE_IMPL(Rectangle, Shape, "Rectangle")
void Rectangle::Describe(TypeBuilder<Rectangle>& type) {
  RadiusXProperty = type.Property<float>("RadiusX", 0, DependencyProperty::AffectsRender);
  RadiusYProperty = type.Property<float>("RadiusY", 0, DependencyProperty::AffectsRender);
}

void Rectangle::OnRender(Painter& painter) {
  const float radius = Get<float>(RadiusXProperty);
  painter.DrawRectangle({0, 0, ActualWidth(), ActualHeight()}, {radius, radius, radius, radius}, GetFill(), GetStroke(),
                        Thickness::Uniform(GetStroke() ? GetStrokeThickness() : 0));
}

bool Rectangle::HitTestSelf(Point point) const {
  return !GetValue(FillProperty).IsNone() && Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point);
}

TOOLKIT_TYPE_IMPL(Ellipse, Shape, "Ellipse")
void Ellipse::Describe(TypeBuilder<Ellipse>&) {}

void Ellipse::OnRender(Painter& painter) {
  // The stroke lies inside of the element, as that of a rectangle does.
  const float inset = GetStroke() ? GetStrokeThickness() * 0.5f : 0;
  painter.DrawEllipse({inset, inset, ActualWidth() - 2 * inset, ActualHeight() - 2 * inset}, GetFill(), GetStroke(),
                      GetStrokeThickness());
}

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

void Line::OnRender(Painter& painter) {
  painter.DrawLine({Get<float>(X1Property), Get<float>(Y1Property)}, {Get<float>(X2Property), Get<float>(Y2Property)},
                   GetStroke(), GetStrokeThickness(), Dashes());
}

Rect Line::DrawnBounds() const {
  const float x1 = Get<float>(X1Property), y1 = Get<float>(Y1Property);
  const float x2 = Get<float>(X2Property), y2 = Get<float>(Y2Property);
  const float reach = GetStrokeThickness();
  return {std::min(x1, x2) - reach, std::min(y1, y2) - reach, std::abs(x2 - x1) + 2 * reach,
          std::abs(y2 - y1) + 2 * reach};
}

TOOLKIT_TYPE_IMPL(Path, Shape, "Path")
void Path::Describe(TypeBuilder<Path>& type) {
  DataProperty = type.Property<PathGeometry*>("Data", nullptr, DependencyProperty::AffectsMeasure);
}

PathGeometry* Path::GetData() const { return static_cast<PathGeometry*>(GetValue(DataProperty).AsObject()); }

Size Path::MeasureOverride(Size) {
  const PathGeometry* geometry = GetData();
  if (!geometry) return {};
  const Rect bounds = geometry->Bounds();
  const float half = GetValue(StrokeProperty).IsNone() ? 0 : Get<float>(StrokeThicknessProperty) * 0.5f;
  return {std::max(0.0f, bounds.Right() + half), std::max(0.0f, bounds.Bottom() + half)};
}

namespace {
/// A thin path is hit from this far.
constexpr float HitReach = 2;

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

void Path::OnRender(Painter& painter) {
  if (const PathGeometry* geometry = GetData())
    painter.DrawPath(*geometry, GetFill(), GetStroke(), GetStrokeThickness(), Dashes());
}

Rect Path::DrawnBounds() const {
  const PathGeometry* geometry = GetData();
  if (!geometry) return {};
  const Rect bounds = geometry->Bounds();
  const float reach = std::max(HitReach, GetStrokeThickness() * 0.5f);
  return {bounds.x - reach, bounds.y - reach, bounds.width + 2 * reach, bounds.height + 2 * reach};
}

bool Path::HitTestSelf(Point point) const {
  const PathGeometry* geometry = GetData();
  if (!geometry) return false;
  if (!DrawnBounds().Contains(point)) return false;
  const Rect bounds = geometry->Bounds();
  const float reach = std::max(HitReach, GetStrokeThickness() * 0.5f);
  if (!GetValue(FillProperty).IsNone() && bounds.Contains(point)) return true;
  if (GetValue(StrokeProperty).IsNone()) return false;
  constexpr int Steps = 24;
  for (const Ptr<PathFigure>& figure : geometry->Figures()) {
    Point at = figure->GetStartPoint();
    for (const Ptr<PathSegment>& segment : figure->Segments()) {
      const auto* curve = DynamicCast<BezierSegment>(segment);
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
