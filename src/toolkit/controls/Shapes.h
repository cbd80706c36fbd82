#pragma once

#include "toolkit/visual/FrameworkElement.h"

#include <vector>

namespace Toolkit {

class Brush;
class PathGeometry;

/// A drawn outline with a fill.
class Shape : public FrameworkElement {
  TOOLKIT_TYPE(Shape)
public:
  static inline const DependencyProperty* FillProperty = nullptr;
  static inline const DependencyProperty* StrokeProperty = nullptr;
  static inline const DependencyProperty* StrokeThicknessProperty = nullptr;
  /// Lengths of dashes and gaps, in multiples of the thickness: "5,3".
  static inline const DependencyProperty* StrokeDashArrayProperty = nullptr;
  static inline const DependencyProperty* StretchProperty = nullptr;

  Brush* GetStroke() const;

protected:
  Shape() = default;
  Brush* GetFill() const { return Get<Brush*>(FillProperty); }
  float GetStrokeThickness() const { return Get<float>(StrokeThicknessProperty); }
  /// The dashes as numbers; empty if there are none or the text is not one of numbers.
  std::vector<float> Dashes() const;
};

class Rectangle : public Shape {
  TOOLKIT_TYPE(Rectangle)
public:
  static inline const DependencyProperty* RadiusXProperty = nullptr;
  static inline const DependencyProperty* RadiusYProperty = nullptr;
  Rectangle() = default;

protected:
  void OnRender(Painter& painter) override;
  bool HitTestSelf(Point point) const override;
};

class Ellipse : public Shape {
  TOOLKIT_TYPE(Ellipse)
public:
  Ellipse() = default;

protected:
  void OnRender(Painter& painter) override;
  bool HitTestSelf(Point point) const override;
};

class Line : public Shape {
  TOOLKIT_TYPE(Line)
public:
  static inline const DependencyProperty* X1Property = nullptr;
  static inline const DependencyProperty* Y1Property = nullptr;
  static inline const DependencyProperty* X2Property = nullptr;
  static inline const DependencyProperty* Y2Property = nullptr;
  Line() = default;
  Rect DrawnBounds() const override;

protected:
  void OnRender(Painter& painter) override;
  Size MeasureOverride(Size available) override;
};

/// A geometry in its own coordinates, which are those of the element.
class Path : public Shape {
  TOOLKIT_TYPE(Path)
public:
  static inline const DependencyProperty* DataProperty = nullptr;
  Path() = default;
  PathGeometry* GetData() const;
  Rect DrawnBounds() const override;

protected:
  void OnRender(Painter& painter) override;
  Size MeasureOverride(Size available) override;
  /// True within half the stroke's width of the outline, or inside a filled figure's box.
  bool HitTestSelf(Point point) const override;
};

} // namespace Toolkit
