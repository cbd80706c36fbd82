#include "toolkit/render/Painter.h"

#include "toolkit/base/Diagnostics.h"
#include "toolkit/render/Brush.h"
#include "toolkit/text/TextLayout.h"

#include <algorithm>
#include <cmath>

namespace Toolkit {

namespace {

using Kind = DisplayEntry::Kind;

bool IsDrawable(const Rect& rect) {
  return rect.width > 0 && rect.height > 0 && std::isfinite(rect.x) && std::isfinite(rect.y) &&
         std::isfinite(rect.width) && std::isfinite(rect.height);
}

bool IsFinite(const Matrix& m) {
  return std::isfinite(m.m11) && std::isfinite(m.m12) && std::isfinite(m.m21) && std::isfinite(m.m22) &&
         std::isfinite(m.dx) && std::isfinite(m.dy);
}

Rect Inflated(const Rect& rect, float by) {
  return {rect.x - by, rect.y - by, rect.width + 2 * by, rect.height + 2 * by};
}

Rect MappedBounds(const Matrix& matrix, const Rect& rect) {
  if (matrix == Matrix()) return rect;
  const Point corners[] = {matrix.Map({rect.x, rect.y}), matrix.Map({rect.Right(), rect.y}),
                           matrix.Map({rect.x, rect.Bottom()}), matrix.Map({rect.Right(), rect.Bottom()})};
  Point low = corners[0], high = corners[0];
  for (const Point& corner : corners) {
    low = {std::min(low.x, corner.x), std::min(low.y, corner.y)};
    high = {std::max(high.x, corner.x), std::max(high.y, corner.y)};
  }
  return {low.x, low.y, high.x - low.x, high.y - low.y};
}

Rect United(const Rect& a, const Rect& b) {
  if (a.width <= 0 || a.height <= 0) return b;
  const float left = std::min(a.x, b.x), top = std::min(a.y, b.y);
  return {left, top, std::max(a.Right(), b.Right()) - left, std::max(a.Bottom(), b.Bottom()) - top};
}

Rect Overlap(const Rect& a, const Rect& b) {
  const float left = std::max(a.x, b.x), top = std::max(a.y, b.y);
  return {left, top, std::max(0.0f, std::min(a.Right(), b.Right()) - left),
          std::max(0.0f, std::min(a.Bottom(), b.Bottom()) - top)};
}

float Length(float value) { return std::isfinite(value) && value > 0 ? value : 0; }

} // namespace

/// Stands for a view without an end: large, and still exact enough to be moved and mapped.
constexpr Rect Everywhere{-1e9f, -1e9f, 2e9f, 2e9f};
/// In pixels: what is smaller both ways, or thinner than this, does not show.
constexpr float SmallestBox = 1.25f;
constexpr float SmallestThickness = 2.2f;
/// A box thinner than this, in units, is a line, which stays visible for longer than a box with something in it.
constexpr float LineThickness = 8, SmallestLine = 0.3f;
/// Pixels of an em: of smaller text not even its bar would show.
constexpr float SmallestText = 1;

Painter::Painter(const ImageFinder* images)
    : images(images), list(std::make_shared<DisplayList>()), visible(Everywhere) {}

Painter Painter::Nested(float detailOfList) const {
  Painter nested(images);
  nested.detail = detailOfList;
  return nested;
}

void Painter::SetView(const Rect& area, float pixelsPerUnit) {
  visible = area;
  detail = pixelsPerUnit;
}

Rect Painter::VisibleArea() const {
  const Rect area = MappedBounds(matrix.Inverse(), visible);
  return {area.x - offset.x, area.y - offset.y, area.width, area.height};
}

float Painter::Detail() const {
  return detail * std::sqrt(std::abs(matrix.m11 * matrix.m22 - matrix.m12 * matrix.m21));
}

bool Painter::IsTooSmall(const Size& size) {
  const float scale = Detail(), width = size.width * scale, height = size.height * scale;
  const float least = std::min(size.width, size.height) < LineThickness ? SmallestLine : SmallestThickness;
  const bool small = (width < SmallestBox && height < SmallestBox) || std::min(width, height) < least;
  leftOut |= small;
  return small;
}

void Painter::DrawRectangle(const Rect& rect, const Brush* fill) { DrawRectangle(rect, {}, fill, nullptr, {}); }

void Painter::DrawRectangle(const Rect& rect, const CornerRadius& radii, const Brush* fill, const Brush* border,
                            const Thickness& borderThickness) {
  if (!IsDrawable(rect)) return;
  const Rect bounds = Moved(rect);
  const Thickness sides{Length(borderThickness.left), Length(borderThickness.top), Length(borderThickness.right),
                        Length(borderThickness.bottom)};
  const CornerRadius corners{Length(radii.topLeft), Length(radii.topRight), Length(radii.bottomRight),
                             Length(radii.bottomLeft)};
  const uint16_t paint = Use(fill, bounds);
  const uint16_t borderPaint = sides == Thickness() ? DisplayEntry::NoPaint : Use(border, bounds);
  if (paint == DisplayEntry::NoPaint && borderPaint == DisplayEntry::NoPaint) return;
  if (corners == CornerRadius() && sides == Thickness()) {
    Add(Kind::PlainRectangle, bounds, 0).paint = paint;
    return;
  }
  list->boxes.push_back({corners, sides});
  DisplayEntry& entry = Add(Kind::Box, bounds, list->boxes.size() - 1);
  entry.paint = paint;
  entry.secondPaint = borderPaint;
}

void Painter::DrawEllipse(const Rect& box, const Brush* fill, const Brush* stroke, float thickness) {
  if (IsDrawable(box)) DrawPath(PathOutline::Ellipse(box), fill, stroke, thickness);
}

void Painter::DrawPath(const PathGeometry& geometry, const Brush* fill, const Brush* stroke, float thickness,
                       std::span<const float> dashes) {
  DrawPath(PathOutline::FromGeometry(geometry), fill, stroke, thickness, dashes);
}

void Painter::DrawPath(PathOutline outline, const Brush* fill, const Brush* stroke, float thickness,
                       std::span<const float> dashes) {
  const Rect area = outline.Bounds();
  thickness = Length(thickness);
  const Rect reach = Inflated(area, thickness / 2);
  if (outline.points.size() < 2 || !IsDrawable(Inflated(reach, 1))) return;
  const uint16_t paint = IsDrawable(area) ? Use(fill, Moved(area)) : DisplayEntry::NoPaint;
  const uint16_t strokePaint = thickness > 0 ? Use(stroke, Moved(area)) : DisplayEntry::NoPaint;
  if (paint == DisplayEntry::NoPaint && strokePaint == DisplayEntry::NoPaint) return;
  outline.verbs.shrink_to_fit();
  outline.points.shrink_to_fit();
  DisplayList::PathShape& shape = list->paths.emplace_back();
  shape.outline = std::move(outline);
  shape.offset = offset;
  shape.thickness = thickness;
  float sum = 0;
  for (const float dash : dashes) sum += Length(dash) * thickness;
  // A pattern that is nothing but zeros would never come to an end.
  if (sum > 0 && std::isfinite(sum))
    for (const float dash : dashes) shape.dashes.push_back(Length(dash) * thickness);
  DisplayEntry& entry = Add(Kind::Path, Moved(reach), list->paths.size() - 1);
  entry.paint = paint;
  entry.secondPaint = strokePaint;
}

void Painter::DrawLine(Point from, Point to, const Brush* stroke, float thickness, std::span<const float> dashes) {
  PathOutline outline;
  outline.MoveTo(from);
  outline.LineTo(to);
  DrawPath(std::move(outline), nullptr, stroke, thickness, dashes);
}

void Painter::DrawText(std::shared_ptr<const TextLayout> layout, Point origin, const Brush* brush) {
  if (!layout || layout->Glyphs().empty()) return;
  const Rect box = Moved({origin.x, origin.y, layout->Size().width, layout->Size().height});
  const float size = layout->Style().size;
  if (size * Detail() < SmallestText) {
    leftOut = true;
    return;
  }
  // Glyphs may reach out of their line and advance, most of all slanted ones.
  const Rect bounds = Inflated(box, size * 0.5f);
  if (!IsDrawable(bounds)) return;
  const uint16_t paint = Use(brush, box);
  if (paint == DisplayEntry::NoPaint) return;
  list->texts.push_back({std::move(layout), {box.x, box.y}, size});
  Add(Kind::Text, bounds, list->texts.size() - 1).paint = paint;
}

void Painter::DrawImage(std::shared_ptr<const Bitmap> image, const Rect& rect) {
  if (!IsDrawable(rect)) return;
  const Rect bounds = Moved(rect);
  const uint16_t paint = Use(Paint::Image(std::move(image), bounds));
  if (paint != DisplayEntry::NoPaint) Add(Kind::PlainRectangle, bounds, 0).paint = paint;
}

void Painter::DrawTiledImage(std::shared_ptr<const Bitmap> image, const Rect& rect, const Rect& tile) {
  if (!IsDrawable(rect) || !IsDrawable(tile)) return;
  Paint tiled = Paint::Image(std::move(image), Moved(tile));
  tiled.isTiled = true;
  const uint16_t paint = Use(std::move(tiled));
  if (paint != DisplayEntry::NoPaint) Add(Kind::PlainRectangle, Moved(rect), 0).paint = paint;
}

void Painter::DrawShadow(const Rect& box, float cornerRadius, float blurRadius, const Color& color) {
  const float blur = Length(blurRadius);
  const uint16_t paint = Use(Paint::Solid(PremultiplyColor(color)));
  if (!IsDrawable(box) || paint == DisplayEntry::NoPaint) return;
  const Rect moved = Moved(box);
  list->shadows.push_back({moved, Length(cornerRadius), blur});
  Add(Kind::Shadow, Inflated(moved, blur), list->shadows.size() - 1).paint = paint;
}

void Painter::DrawList(std::shared_ptr<const DisplayList> nested, Point at) {
  if (!nested || nested->IsEmpty()) return;
  const Point to = offset + at;
  const Rect& inner = nested->Bounds();
  const Rect bounds{inner.x + to.x, inner.y + to.y, inner.width, inner.height};
  if (!IsDrawable(bounds)) return;
  list->lists.push_back({std::move(nested), to});
  Add(Kind::List, bounds, list->lists.size() - 1);
}

void Painter::PushTransform(const Matrix& transform) {
  const bool isMove = transform.m11 == 1 && transform.m12 == 0 && transform.m21 == 0 && transform.m22 == 1;
  if (isMove && std::isfinite(transform.dx) && std::isfinite(transform.dy)) {
    states.push_back({NoEntry, offset, matrix, visible});
    offset = offset + Point{transform.dx, transform.dy};
    return;
  }
  list->matrices.push_back(IsFinite(transform) ? transform.Then(Matrix::Translation(offset.x, offset.y))
                                               : Matrix::Scale(0, 0));
  Push(Kind::PushTransform, {}, list->matrices.size() - 1);
  matrix = list->matrices.back().Then(matrix);
  offset = {};
}

void Painter::PushClip(const Rect& rect, const CornerRadius& radii) {
  Rect moved = Moved(rect);
  if (!IsDrawable(moved)) moved = {};
  list->boxes.push_back(
      {{Length(radii.topLeft), Length(radii.topRight), Length(radii.bottomRight), Length(radii.bottomLeft)}, {}});
  Push(Kind::PushClip, moved, list->boxes.size() - 1);
  visible = Overlap(visible, MappedBounds(matrix, moved));
}

void Painter::PushOpacity(float opacity) {
  list->opacities.push_back(std::min(Length(opacity), 1.0f));
  Push(Kind::PushOpacity, {}, list->opacities.size() - 1);
}

void Painter::Pop() {
  TOOLKIT_ASSERT(!states.empty());
  const State state = states.back();
  states.pop_back();
  offset = state.offset;
  matrix = state.matrix;
  visible = state.visible;
  if (state.entry == NoEntry) return;
  if (list->entries.size() == state.entry + 1) {
    list->entries.pop_back();
    return;
  }
  list->entries[state.entry].end = static_cast<uint32_t>(list->entries.size());
  list->entries.emplace_back();
}

std::shared_ptr<const DisplayList> Painter::Finish() {
  TOOLKIT_ASSERT(states.empty());
  list->entries.shrink_to_fit();
  list->paints.shrink_to_fit();
  list->boxes.shrink_to_fit();
  list->paths.shrink_to_fit();
  list->texts.shrink_to_fit();
  list->lists.shrink_to_fit();
  offset = {};
  matrix = {};
  return std::exchange(list, std::make_shared<DisplayList>());
}

Rect Painter::Moved(const Rect& rect) const { return {rect.x + offset.x, rect.y + offset.y, rect.width, rect.height}; }

uint16_t Painter::Use(Paint paint) {
  if (paint.kind == PaintKind::None) return DisplayEntry::NoPaint;
  const auto found = std::find(list->paints.begin(), list->paints.end(), paint);
  if (found != list->paints.end()) return static_cast<uint16_t>(found - list->paints.begin());
  if (list->paints.size() >= DisplayEntry::NoPaint) return DisplayEntry::NoPaint;
  list->paints.push_back(std::move(paint));
  return static_cast<uint16_t>(list->paints.size() - 1);
}

uint16_t Painter::Use(const Brush* brush, const Rect& area) {
  return brush ? Use(Paint::Resolve(brush, area, images ? *images : ImageFinder())) : DisplayEntry::NoPaint;
}

DisplayEntry& Painter::Add(Kind kind, const Rect& bounds, size_t payload) {
  list->bounds = United(list->bounds, MappedBounds(matrix, bounds));
  DisplayEntry& entry = list->entries.emplace_back();
  entry.kind = kind;
  entry.payload = static_cast<uint32_t>(payload);
  entry.bounds = bounds;
  return entry;
}

void Painter::Push(Kind kind, const Rect& bounds, size_t payload) {
  states.push_back({static_cast<uint32_t>(list->entries.size()), offset, matrix, visible});
  DisplayEntry& entry = list->entries.emplace_back();
  entry.kind = kind;
  entry.payload = static_cast<uint32_t>(payload);
  entry.bounds = bounds;
}

} // namespace Toolkit
