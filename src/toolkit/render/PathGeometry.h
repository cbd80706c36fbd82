#pragma once

#include "toolkit/base/DependencyObject.h"

#include <string_view>
#include <vector>

namespace Toolkit {

class PathSegment : public DependencyObject {
  TOOLKIT_TYPE(PathSegment)
public:
  /// Where the segment ends.
  virtual Point EndPoint() const { return {}; }

protected:
  PathSegment() = default;
};

class LineSegment : public PathSegment {
  TOOLKIT_TYPE(LineSegment)
public:
  static inline const DependencyProperty* PointProperty = nullptr;
  LineSegment() = default;
  Point EndPoint() const override { return Get<Point>(PointProperty); }
};

/// A cubic curve: two control points and the end.
class BezierSegment : public PathSegment {
  TOOLKIT_TYPE(BezierSegment)
public:
  static inline const DependencyProperty* Point1Property = nullptr;
  static inline const DependencyProperty* Point2Property = nullptr;
  static inline const DependencyProperty* Point3Property = nullptr;
  BezierSegment() = default;
  void SetPoint1(Point p) { SetValue(Point1Property, p); }
  void SetPoint2(Point p) { SetValue(Point2Property, p); }
  void SetPoint3(Point p) { SetValue(Point3Property, p); }
  Point GetPoint1() const { return Get<Point>(Point1Property); }
  Point GetPoint2() const { return Get<Point>(Point2Property); }
  Point GetPoint3() const { return Get<Point>(Point3Property); }
  Point EndPoint() const override { return GetPoint3(); }
};

class PathFigure : public DependencyObject {
  TOOLKIT_TYPE(PathFigure)
public:
  static inline const DependencyProperty* StartPointProperty = nullptr;
  static inline const DependencyProperty* IsClosedProperty = nullptr;
  PathFigure() = default;
  void SetStartPoint(Point p) { SetValue(StartPointProperty, p); }
  Point GetStartPoint() const { return Get<Point>(StartPointProperty); }
  bool IsClosed() const { return Get<bool>(IsClosedProperty); }
  void SetIsClosed(bool value) { SetValue(IsClosedProperty, value); }
  void AddSegment(PathSegment* segment) { segments.emplace_back(segment); }
  const std::vector<Ptr<PathSegment>>& Segments() const { return segments; }

private:
  std::vector<Ptr<PathSegment>> segments;
};

/// Figures of lines and curves, in the coordinates of the shape that shows them.
class PathGeometry : public DependencyObject {
  TOOLKIT_TYPE(PathGeometry)
public:
  PathGeometry() = default;
  void AddFigure(PathFigure* figure) { figures.emplace_back(figure); }
  const std::vector<Ptr<PathFigure>>& Figures() const { return figures; }
  /// The box around all points, control points included.
  Rect Bounds() const;
  /// Reads the path mini-language with absolute and relative M, L, H, V, C and Z. Null if the text is malformed.
  static Ptr<PathGeometry> Parse(std::string_view data);

private:
  std::vector<Ptr<PathFigure>> figures;
};

} // namespace Toolkit
