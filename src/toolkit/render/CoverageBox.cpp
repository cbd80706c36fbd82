#include "toolkit/render/CoverageBox.h"

#include "toolkit/render/PixelRounding.h"

#include <cmath>

namespace Toolkit {

namespace {

float Unit(float value) { return std::min(std::max(value, 0.0f), 1.0f); }

/// How much of the pixel that begins at `start` lies between two edges.
float Overlap(float start, float low, float high) {
  return std::max(0.0f, std::min(start + 1, high) - std::max(start, low));
}

} // namespace

CoverageBox CoverageBox::Map(const Rect& rect, const CornerRadius& radii, const Matrix& toPixels) {
  CoverageBox box;
  const bool isUpright = toPixels.m12 == 0 && toPixels.m21 == 0 && toPixels.m11 > 0 && toPixels.m22 > 0;
  const float scale = std::sqrt(std::abs(toPixels.m11 * toPixels.m22 - toPixels.m12 * toPixels.m21));
  float unit = 1;
  if (isUpright) {
    box.left = rect.x * toPixels.m11 + toPixels.dx;
    box.top = rect.y * toPixels.m22 + toPixels.dy;
    box.right = rect.Right() * toPixels.m11 + toPixels.dx;
    box.bottom = rect.Bottom() * toPixels.m22 + toPixels.dy;
    unit = scale;
  } else {
    box.left = rect.x;
    box.top = rect.y;
    box.right = rect.Right();
    box.bottom = rect.Bottom();
    box.isTurned = true;
    box.toBox = toPixels.Inverse();
    box.scale = scale;
  }
  const float width = box.right - box.left, height = box.bottom - box.top;
  const auto fit = [&](float a, float b, float edge) { return a + b > edge ? edge / (a + b) : 1.0f; };
  const CornerRadius r{radii.topLeft * unit, radii.topRight * unit, radii.bottomRight * unit, radii.bottomLeft * unit};
  const float factor = std::min(std::min(fit(r.topLeft, r.topRight, width), fit(r.bottomLeft, r.bottomRight, width)),
                                std::min(fit(r.topLeft, r.bottomLeft, height), fit(r.topRight, r.bottomRight, height)));
  box.radii = {r.topLeft * factor, r.topRight * factor, r.bottomRight * factor, r.bottomLeft * factor};
  return box;
}

CoverageBox CoverageBox::Inset(const Thickness& border) const {
  CoverageBox inner = *this;
  inner.left += border.left;
  inner.top += border.top;
  inner.right = std::max(inner.left, inner.right - border.right);
  inner.bottom = std::max(inner.top, inner.bottom - border.bottom);
  const auto reduce = [](float radius, float a, float b) { return std::max(0.0f, radius - std::max(a, b)); };
  inner.radii = {reduce(radii.topLeft, border.left, border.top), reduce(radii.topRight, border.right, border.top),
                 reduce(radii.bottomRight, border.right, border.bottom),
                 reduce(radii.bottomLeft, border.left, border.bottom)};
  return inner;
}

PixelRect CoverageBox::Touched(const PixelRect& limit) const {
  if (isTurned) {
    const Matrix toPixels = toBox.Inverse();
    const Point corners[] = {toPixels.Map({left, top}), toPixels.Map({right, top}), toPixels.Map({left, bottom}),
                             toPixels.Map({right, bottom})};
    Point low = corners[0], high = corners[0];
    for (const Point& corner : corners) {
      low = {std::min(low.x, corner.x), std::min(low.y, corner.y)};
      high = {std::max(high.x, corner.x), std::max(high.y, corner.y)};
    }
    return {FloorPixel(low.x - 1, limit.left, limit.right), FloorPixel(low.y - 1, limit.top, limit.bottom),
            CeilPixel(high.x + 1, limit.left, limit.right), CeilPixel(high.y + 1, limit.top, limit.bottom)};
  }
  return {FloorPixel(left, limit.left, limit.right), FloorPixel(top, limit.top, limit.bottom),
          CeilPixel(right, limit.left, limit.right), CeilPixel(bottom, limit.top, limit.bottom)};
}

PixelRect CoverageBox::Covered(const PixelRect& limit) const {
  if (isTurned) return {};
  // The band between the upper and the lower corners.
  const float upper = std::max(radii.topLeft, radii.topRight), lower = std::max(radii.bottomLeft, radii.bottomRight);
  return {CeilPixel(left, limit.left, limit.right), CeilPixel(top + upper, limit.top, limit.bottom),
          FloorPixel(right, limit.left, limit.right), FloorPixel(bottom - lower, limit.top, limit.bottom)};
}

bool CoverageBox::Covers(const PixelRect& area) const {
  if (isTurned || !(left <= static_cast<float>(area.left)) || !(right >= static_cast<float>(area.right)) ||
      !(top <= static_cast<float>(area.top)) || !(bottom >= static_cast<float>(area.bottom)))
    return false;
  if (radii == CornerRadius()) return true;
  const float upper = std::max(radii.topLeft, radii.topRight), lower = std::max(radii.bottomLeft, radii.bottomRight);
  if (top + upper <= static_cast<float>(area.top) && bottom - lower >= static_cast<float>(area.bottom)) return true;
  const float before = std::max(radii.topLeft, radii.bottomLeft), behind = std::max(radii.topRight, radii.bottomRight);
  return left + before <= static_cast<float>(area.left) && right - behind >= static_cast<float>(area.right);
}

float CoverageBox::Distance(float x, float y) const {
  Point p{x, y};
  if (isTurned) p = toBox.Map(p);
  const float middleX = (left + right) / 2, middleY = (top + bottom) / 2;
  const float dx = p.x - middleX, dy = p.y - middleY;
  const float radius =
      dx < 0 ? (dy < 0 ? radii.topLeft : radii.bottomLeft) : (dy < 0 ? radii.topRight : radii.bottomRight);
  const float qx = std::abs(dx) - (right - left) / 2 + radius, qy = std::abs(dy) - (bottom - top) / 2 + radius;
  const float outX = std::max(qx, 0.0f), outY = std::max(qy, 0.0f);
  return (std::min(std::max(qx, qy), 0.0f) + std::sqrt(outX * outX + outY * outY) - radius) * scale;
}

CoverageRow::CoverageRow(const CoverageBox& box, int y) : box(box), center(static_cast<float>(y) + 0.5f), height(0) {
  if (box.isTurned) return;
  height = Overlap(static_cast<float>(y), box.top, box.bottom);
  const auto cut = [&](float upper, float lower, float& radius, float& distance) {
    if (center < box.top + upper) {
      radius = upper;
      distance = box.top + upper - center;
    } else if (center > box.bottom - lower) {
      radius = lower;
      distance = center - (box.bottom - lower);
    }
  };
  cut(box.radii.topLeft, box.radii.bottomLeft, leftRadius, leftDistance);
  cut(box.radii.topRight, box.radii.bottomRight, rightRadius, rightDistance);
  leftX = box.left + leftRadius;
  rightX = box.right - rightRadius;
  runStart = CeilPixel(leftX, -FarPixel, FarPixel);
  runEnd = std::max(runStart, FloorPixel(rightX, -FarPixel, FarPixel));
}

float CoverageRow::At(int x) const {
  const float start = static_cast<float>(x), middle = start + 0.5f;
  if (box.isTurned) return Unit(0.5f - box.Distance(middle, center));
  float coverage = height * Overlap(start, box.left, box.right);
  if (middle < leftX) {
    const float dx = leftX - middle;
    coverage = std::min(coverage, Unit(leftRadius - std::sqrt(dx * dx + leftDistance * leftDistance) + 0.5f));
  } else if (middle > rightX) {
    const float dx = middle - rightX;
    coverage = std::min(coverage, Unit(rightRadius - std::sqrt(dx * dx + rightDistance * rightDistance) + 0.5f));
  }
  return coverage;
}

} // namespace Toolkit
