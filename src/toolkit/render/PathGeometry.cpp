#include "toolkit/render/PathGeometry.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace Toolkit {

TOOLKIT_TYPE_IMPL(PathSegment, DependencyObject, "PathSegment")
void PathSegment::Describe(TypeBuilder<PathSegment>&) {}

TOOLKIT_TYPE_IMPL(LineSegment, PathSegment, "LineSegment")
void LineSegment::Describe(TypeBuilder<LineSegment>& type) { PointProperty = type.Property<Point>("Point"); }

TOOLKIT_TYPE_IMPL(BezierSegment, PathSegment, "BezierSegment")
void BezierSegment::Describe(TypeBuilder<BezierSegment>& type) {
  Point1Property = type.Property<Point>("Point1");
  Point2Property = type.Property<Point>("Point2");
  Point3Property = type.Property<Point>("Point3");
}

TOOLKIT_TYPE_IMPL(PathFigure, DependencyObject, "PathFigure")
void PathFigure::Describe(TypeBuilder<PathFigure>& type) {
  StartPointProperty = type.Property<Point>("StartPoint");
  IsClosedProperty = type.Property<bool>("IsClosed");
  type.List<&PathFigure::AddSegment>("Segments");
  type.Content("Segments");
}

TOOLKIT_TYPE_IMPL(PathGeometry, DependencyObject, "PathGeometry")
void PathGeometry::Describe(TypeBuilder<PathGeometry>& type) {
  type.List<&PathGeometry::AddFigure>("Figures");
  type.Content("Figures");
}

Rect PathGeometry::Bounds() const {
  float left = Infinity, top = Infinity, right = -Infinity, bottom = -Infinity;
  auto include = [&](Point p) {
    left = std::min(left, p.x);
    top = std::min(top, p.y);
    right = std::max(right, p.x);
    bottom = std::max(bottom, p.y);
  };
  for (const Ptr<PathFigure>& figure : figures) {
    include(figure->GetStartPoint());
    for (const Ptr<PathSegment>& segment : figure->Segments()) {
      if (const auto* curve = DynamicCast<BezierSegment>(segment)) {
        include(curve->GetPoint1());
        include(curve->GetPoint2());
      }
      include(segment->EndPoint());
    }
  }
  if (left > right) return {};
  return {left, top, right - left, bottom - top};
}

namespace {
class PathReader {
public:
  explicit PathReader(std::string_view text) : text(text) {}
  bool AtEnd() {
    SkipSpace();
    return position >= text.size();
  }
  bool AtNumber() {
    SkipSpace();
    return position < text.size() && (std::isdigit(static_cast<unsigned char>(text[position])) ||
                                      text[position] == '-' || text[position] == '.' || text[position] == '+');
  }
  char Letter() { return text[position++]; }
  bool Number(float& value) {
    SkipSpace();
    if (position < text.size() && text[position] == '+') ++position;
    const auto result = std::from_chars(text.data() + position, text.data() + text.size(), value);
    if (result.ec != std::errc()) return false;
    position = static_cast<size_t>(result.ptr - text.data());
    return true;
  }
  bool ReadPoint(Point& p) { return Number(p.x) && Number(p.y); }

private:
  void SkipSpace() {
    while (position < text.size() &&
           (std::isspace(static_cast<unsigned char>(text[position])) || text[position] == ','))
      ++position;
  }
  std::string_view text;
  size_t position = 0;
};
} // namespace

Ptr<PathGeometry> PathGeometry::Parse(std::string_view data) {
  auto geometry = MakePtr<PathGeometry>();
  PathReader reader(data);
  Ptr<PathFigure> figure;
  Point at, start;
  char command = 0;
  auto line = [&](Point to) {
    auto segment = MakePtr<LineSegment>();
    segment->SetValue(LineSegment::PointProperty, to);
    figure->AddSegment(segment.Get());
    at = to;
  };
  while (!reader.AtEnd()) {
    if (!reader.AtNumber()) command = reader.Letter();
    const bool relative = std::islower(static_cast<unsigned char>(command));
    const Point origin = relative ? at : Point();
    const char kind = static_cast<char>(std::toupper(static_cast<unsigned char>(command)));
    if (kind != 'M' && kind != 'F' && !figure) return nullptr;
    Point p, q, r;
    switch (kind) {
    case 'F': {
      float rule;
      if (!reader.Number(rule)) return nullptr;
      break;
    }
    case 'M':
      if (!reader.ReadPoint(p)) return nullptr;
      figure = MakePtr<PathFigure>();
      geometry->AddFigure(figure.Get());
      at = start = origin + p;
      figure->SetStartPoint(at);
      command = relative ? 'l' : 'L';
      break;
    case 'L':
      if (!reader.ReadPoint(p)) return nullptr;
      line(origin + p);
      break;
    case 'H':
      if (!reader.Number(p.x)) return nullptr;
      line({origin.x + p.x, at.y});
      break;
    case 'V':
      if (!reader.Number(p.y)) return nullptr;
      line({at.x, origin.y + p.y});
      break;
    case 'C': {
      if (!reader.ReadPoint(p) || !reader.ReadPoint(q) || !reader.ReadPoint(r)) return nullptr;
      auto segment = MakePtr<BezierSegment>();
      segment->SetPoint1(origin + p);
      segment->SetPoint2(origin + q);
      segment->SetPoint3(origin + r);
      figure->AddSegment(segment.Get());
      at = origin + r;
      break;
    }
    case 'Z':
      figure->SetIsClosed(true);
      at = start;
      if (reader.AtNumber()) return nullptr;
      break;
    default: return nullptr;
    }
  }
  return geometry;
}

} // namespace Toolkit
