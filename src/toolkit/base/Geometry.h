#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

namespace Toolkit {

inline constexpr float Infinity = std::numeric_limits<float>::infinity();
/// Stands for "not set" in lengths such as `Width`.
inline constexpr float Auto = std::numeric_limits<float>::quiet_NaN();
inline bool IsAuto(float length) { return std::isnan(length); }

/// All lengths are device-independent pixels.
struct Point {
  float x = 0, y = 0;
  friend constexpr bool operator==(const Point&, const Point&) = default;
  friend constexpr Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
  friend constexpr Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
};

struct Size {
  float width = 0, height = 0;
  friend constexpr bool operator==(const Size&, const Size&) = default;
};

struct Rect {
  float x = 0, y = 0, width = 0, height = 0;
  constexpr float Right() const { return x + width; }
  constexpr float Bottom() const { return y + height; }
  constexpr bool Contains(Point p) const { return p.x >= x && p.x < Right() && p.y >= y && p.y < Bottom(); }
  constexpr bool Intersects(const Rect& o) const {
    return x < o.Right() && o.x < Right() && y < o.Bottom() && o.y < Bottom();
  }
  /// The box around both; one without an extent counts for nothing.
  constexpr Rect Union(const Rect& o) const {
    if (o.width <= 0 && o.height <= 0) return *this;
    if (width <= 0 && height <= 0) return o;
    const float left = std::min(x, o.x), top = std::min(y, o.y);
    return {left, top, std::max(Right(), o.Right()) - left, std::max(Bottom(), o.Bottom()) - top};
  }
  friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

struct Thickness {
  float left = 0, top = 0, right = 0, bottom = 0;
  static constexpr Thickness Uniform(float value) { return {value, value, value, value}; }
  constexpr float Horizontal() const { return left + right; }
  constexpr float Vertical() const { return top + bottom; }
  friend constexpr bool operator==(const Thickness&, const Thickness&) = default;
};

struct CornerRadius {
  float topLeft = 0, topRight = 0, bottomRight = 0, bottomLeft = 0;
  friend constexpr bool operator==(const CornerRadius&, const CornerRadius&) = default;
};

enum class GridUnit { Auto, Pixel, Star };

struct GridLength {
  float value = 1;
  GridUnit unit = GridUnit::Star;
  friend constexpr bool operator==(const GridLength&, const GridLength&) = default;
};

/// An affine map: (x, y) goes to (x*m11 + y*m21 + dx, x*m12 + y*m22 + dy).
struct Matrix {
  float m11 = 1, m12 = 0, m21 = 0, m22 = 1, dx = 0, dy = 0;

  static constexpr Matrix Translation(float x, float y) { return {1, 0, 0, 1, x, y}; }
  static constexpr Matrix Scale(float x, float y) { return {x, 0, 0, y, 0, 0}; }
  constexpr Point Map(Point p) const { return {p.x * m11 + p.y * m21 + dx, p.x * m12 + p.y * m22 + dy}; }
  /// The upright box around the mapped one.
  constexpr Rect MapBounds(const Rect& r) const {
    const Point a = Map({r.x, r.y}), b = Map({r.Right(), r.y}), c = Map({r.x, r.Bottom()});
    const Point d = b + c - a;
    const float left = std::min({a.x, b.x, c.x, d.x}), top = std::min({a.y, b.y, c.y, d.y});
    return {left, top, std::max({a.x, b.x, c.x, d.x}) - left, std::max({a.y, b.y, c.y, d.y}) - top};
  }
  /// First this map, then `next`.
  constexpr Matrix Then(const Matrix& next) const {
    return {m11 * next.m11 + m12 * next.m21,         m11 * next.m12 + m12 * next.m22,
            m21 * next.m11 + m22 * next.m21,         m21 * next.m12 + m22 * next.m22,
            dx * next.m11 + dy * next.m21 + next.dx, dx * next.m12 + dy * next.m22 + next.dy};
  }
  /// The inverse map; the identity if there is none.
  constexpr Matrix Inverse() const {
    const float determinant = m11 * m22 - m12 * m21;
    if (determinant == 0) return {};
    const float f = 1 / determinant;
    Matrix r{m22 * f, -m12 * f, -m21 * f, m11 * f, 0, 0};
    r.dx = -(dx * r.m11 + dy * r.m21);
    r.dy = -(dx * r.m12 + dy * r.m22);
    return r;
  }
  friend constexpr bool operator==(const Matrix&, const Matrix&) = default;
};

} // namespace Toolkit
