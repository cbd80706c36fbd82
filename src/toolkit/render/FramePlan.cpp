#include "toolkit/render/FramePlan.h"

#include "toolkit/render/PixelRounding.h"

#include <cmath>

namespace Toolkit {

namespace {

using Kind = DisplayEntry::Kind;

/// Lists nested deeper than this are taken for a mistake and left out.
constexpr int MaximumDepth = 100;
/// What is thinner in pixels is left out: a border, and the rounding of a corner.
constexpr float LeastBorder = 0.3f;
constexpr float LeastRadius = 0.75f;
constexpr float LeastShadow = 1.0f;

} // namespace

void FramePlan::Build(const DisplayList& list, const Matrix& toPixels, const PixelRect& visible,
                      const PixelRect& wholeTarget) {
  items.clear();
  paints.assign(1, {});
  clips.assign(1, {});
  boxes.clear();
  segments.clear();
  edges.clear();
  glyphs.clear();
  target = wholeTarget;
  State state;
  state.clipBounds = visible.Intersect(target);
  AddList(list, Transformed(state, toPixels));
}

FramePlan::State FramePlan::Transformed(const State& state, const Matrix& matrix) {
  State result = state;
  result.matrix = matrix.Then(state.matrix);
  const Matrix& m = result.matrix;
  result.scale = std::sqrt(std::abs(m.m11 * m.m22 - m.m12 * m.m21));
  result.isUpright = m.m12 == 0 && m.m21 == 0 && m.m11 > 0 && m.m22 > 0;
  return result;
}

void FramePlan::AddList(const DisplayList& list, const State& state) {
  // Also false for a scale that is not a number.
  if (state.depth < MaximumDepth && state.scale > 1e-6f && state.scale < 1e6f)
    AddEntries(list, state, 0, list.Entries().size());
}

void FramePlan::AddEntries(const DisplayList& list, const State& state, size_t first, size_t end) {
  for (size_t i = first; i < end; ++i) {
    const DisplayEntry& entry = list.Entries()[i];
    switch (entry.kind) {
    case Kind::PlainRectangle: AddRectangle(list, entry, state); break;
    case Kind::Box: AddBox(list, entry, state); break;
    case Kind::Path: AddPath(list, entry, state); break;
    case Kind::Text: AddText(list, entry, state); break;
    case Kind::Shadow: AddShadow(list, entry, state); break;
    case Kind::List: {
      if (PixelBounds(entry.bounds, state).IsEmpty()) break;
      const DisplayList::ListShape& shape = list.ListAt(entry.payload);
      State inner = state;
      inner.matrix = Matrix::Translation(shape.offset.x, shape.offset.y).Then(state.matrix);
      ++inner.depth;
      AddList(*shape.list, inner);
      break;
    }
    case Kind::PushTransform: {
      const State inner = Transformed(state, list.MatrixAt(entry.payload));
      if (inner.scale > 1e-6f && inner.scale < 1e6f) AddEntries(list, inner, i + 1, entry.end);
      i = entry.end;
      break;
    }
    case Kind::PushClip: {
      State inner = state;
      if (Clip(list, entry, inner)) AddEntries(list, inner, i + 1, entry.end);
      i = entry.end;
      break;
    }
    case Kind::PushOpacity:
      AddGroup(list, state, i);
      i = entry.end;
      break;
    case Kind::Pop: break;
    }
  }
}

void FramePlan::AddGroup(const DisplayList& list, const State& state, size_t index) {
  const DisplayEntry& entry = list.Entries()[index];
  const auto opacity = static_cast<uint8_t>(list.OpacityAt(entry.payload) * 255 + 0.5f);
  if (opacity == 0) return;
  if (opacity == 255) return AddEntries(list, state, index + 1, entry.end);
  const size_t start = items.size();
  Add(PlanItem::Kind::GroupStart, state.clipBounds, {}, state);
  AddEntries(list, state, index + 1, entry.end);
  PixelRect bounds;
  for (size_t i = start + 1; i < items.size(); ++i) {
    bounds = bounds.Unite(items[i].bounds);
    // What is hidden inside of the group still shows through it.
    items[i].hides = false;
  }
  if (bounds.IsEmpty()) {
    items.resize(start);
    return;
  }
  if (items.size() == start + 2 && Fade(items[start + 1], opacity)) {
    items[start] = items[start + 1];
    items.pop_back();
    return;
  }
  items[start].bounds = bounds;
  Add(PlanItem::Kind::GroupEnd, bounds, {}, state).opacity = opacity;
}

bool FramePlan::Fade(PlanItem& item, uint8_t opacity) {
  if (item.hasBorder || item.kind == PlanItem::Kind::GroupEnd) return false;
  if (item.paint == 0) {
    item.color = ScalePixel(item.color, opacity);
    return true;
  }
  PlanPaint& paint = paints[item.paint];
  if (paint.kind != PaintKind::Image) return false;
  // The paint may serve other items as well.
  PlanPaint faded = paint;
  faded.opacity = faded.opacity * opacity / 255;
  faded.isOpaque = false;
  paints.push_back(faded);
  item.paint = static_cast<uint32_t>(paints.size() - 1);
  return true;
}

bool FramePlan::Clip(const DisplayList& list, const DisplayEntry& entry, State& state) {
  if (!(entry.bounds.width > 0) || !(entry.bounds.height > 0)) return false;
  const CoverageBox box = CoverageBox::Map(entry.bounds, list.BoxAt(entry.payload).radii, state.matrix);
  state.clipBounds = box.Touched(state.clipBounds);
  if (state.clipBounds.IsEmpty()) return false;
  if (!box.Covers(state.clipBounds)) {
    clips.push_back({box, state.clip});
    state.clip = static_cast<uint32_t>(clips.size() - 1);
  }
  return true;
}

void FramePlan::AddRectangle(const DisplayList& list, const DisplayEntry& entry, const State& state) {
  const PixelRect bounds = PixelBounds(entry.bounds, state);
  if (bounds.IsEmpty()) return;
  const Ink ink = InkFor(list, entry.paint, state);
  if (ink.IsNone()) return;
  if (!state.isUpright) {
    const CoverageBox box = CoverageBox::Map(entry.bounds, {}, state.matrix);
    boxes.push_back({box, box});
    PlanItem& item = Add(PlanItem::Kind::Box, box.Touched(state.clipBounds), ink, state);
    item.first = static_cast<uint32_t>(boxes.size() - 1);
    return;
  }
  PlanItem& item = Add(PlanItem::Kind::Rectangle, bounds, ink, state);
  const Matrix& m = state.matrix;
  item.left = entry.bounds.x * m.m11 + m.dx;
  item.top = entry.bounds.y * m.m22 + m.dy;
  item.right = entry.bounds.Right() * m.m11 + m.dx;
  item.bottom = entry.bounds.Bottom() * m.m22 + m.dy;
  item.hides = state.clip == 0 && IsOpaque(ink);
}

void FramePlan::AddBox(const DisplayList& list, const DisplayEntry& entry, const State& state) {
  const PixelRect bounds = PixelBounds(entry.bounds, state);
  if (bounds.IsEmpty()) return;
  const DisplayList::BoxShape& shape = list.BoxAt(entry.payload);
  const CornerRadius& r = shape.radii;
  const Thickness& b = shape.border;
  const bool isRounded =
      std::max(std::max(r.topLeft, r.topRight), std::max(r.bottomRight, r.bottomLeft)) * state.scale >= LeastRadius;
  const bool hasBorder = entry.secondPaint != DisplayEntry::NoPaint &&
                         std::max(std::max(b.left, b.right), std::max(b.top, b.bottom)) * state.scale >= LeastBorder;
  // A box that is lost in one pixel's width is its fill alone.
  if (!isRounded && !hasBorder) {
    if (entry.paint != DisplayEntry::NoPaint) AddRectangle(list, entry, state);
    return;
  }
  const Ink ink = InkFor(list, entry.paint, state);
  const Ink border = hasBorder ? InkFor(list, entry.secondPaint, state) : Ink();
  if (ink.IsNone() && border.IsNone()) return;
  PlanBox box;
  box.outer = CoverageBox::Map(entry.bounds, r, state.matrix);
  const float unit = state.isUpright ? 1.0f : 0.0f;
  const float x = unit ? state.matrix.m11 : 1, y = unit ? state.matrix.m22 : 1;
  box.inner = hasBorder ? box.outer.Inset({b.left * x, b.top * y, b.right * x, b.bottom * y}) : box.outer;
  PlanItem& item = Add(PlanItem::Kind::Box, state.isUpright ? bounds : box.outer.Touched(state.clipBounds), ink, state);
  item.hasBorder = hasBorder;
  item.borderColor = border.color;
  item.borderPaint = border.paint;
  item.first = static_cast<uint32_t>(boxes.size());
  item.hides = state.clip == 0 && IsOpaque(ink);
  boxes.push_back(box);
}

void FramePlan::AddShadow(const DisplayList& list, const DisplayEntry& entry, const State& state) {
  const PixelRect bounds = PixelBounds(entry.bounds, state);
  const DisplayList::ShadowShape& shape = list.ShadowAt(entry.payload);
  const float soft = shape.blur * state.scale;
  if (bounds.IsEmpty() || (shape.blur > 0 && soft < LeastShadow)) return;
  const Ink ink = InkFor(list, entry.paint, state);
  if (ink.IsNone()) return;
  // Blurring rounds a corner off, whatever its own radius is.
  const float radius = std::max(shape.radius, shape.blur * 0.6f);
  const CoverageBox box = CoverageBox::Map(shape.box, {radius, radius, radius, radius}, state.matrix);
  PlanItem& item = Add(PlanItem::Kind::Shadow, bounds, ink, state);
  item.left = soft;
  item.first = static_cast<uint32_t>(boxes.size());
  boxes.push_back({box, box});
}

PixelRect FramePlan::PixelBounds(const Rect& rect, const State& state) const {
  const Matrix& m = state.matrix;
  float left, top, right, bottom;
  if (state.isUpright) {
    left = rect.x * m.m11 + m.dx;
    top = rect.y * m.m22 + m.dy;
    right = rect.Right() * m.m11 + m.dx;
    bottom = rect.Bottom() * m.m22 + m.dy;
  } else {
    const Point a = m.Map({rect.x, rect.y}), b = m.Map({rect.Right(), rect.y}), c = m.Map({rect.x, rect.Bottom()}),
                d = m.Map({rect.Right(), rect.Bottom()});
    left = std::min(std::min(a.x, b.x), std::min(c.x, d.x)) - 1;
    top = std::min(std::min(a.y, b.y), std::min(c.y, d.y)) - 1;
    right = std::max(std::max(a.x, b.x), std::max(c.x, d.x)) + 1;
    bottom = std::max(std::max(a.y, b.y), std::max(c.y, d.y)) + 1;
  }
  const PixelRect& clip = state.clipBounds;
  // Written so that what is not a number is outside.
  if (!(left < static_cast<float>(clip.right) && right > static_cast<float>(clip.left) &&
        top < static_cast<float>(clip.bottom) && bottom > static_cast<float>(clip.top)))
    return {};
  return {FloorPixel(left, clip.left, clip.right), FloorPixel(top, clip.top, clip.bottom),
          CeilPixel(right, clip.left, clip.right), CeilPixel(bottom, clip.top, clip.bottom)};
}

PixelRect FramePlan::HiddenBy(const PlanItem& item) const {
  if (!item.hides) return {};
  if (item.kind == PlanItem::Kind::Box) return boxes[item.first].inner.Covered(item.bounds);
  const PixelRect& b = item.bounds;
  return {CeilPixel(item.left, b.left, b.right), CeilPixel(item.top, b.top, b.bottom),
          FloorPixel(item.right, b.left, b.right), FloorPixel(item.bottom, b.top, b.bottom)};
}

FramePlan::Ink FramePlan::InkFor(const DisplayList& list, uint16_t index, const State& state) {
  if (index == DisplayEntry::NoPaint) return {};
  const Paint& paint = list.PaintAt(index);
  if (paint.kind == PaintKind::Solid) return {paint.color, 0};
  PlanPaint plan;
  plan.kind = paint.kind;
  if (paint.kind == PaintKind::Linear) {
    const Point start = state.matrix.Map(paint.start), end = state.matrix.Map(paint.end);
    const Point d = end - start;
    const float length = d.x * d.x + d.y * d.y;
    if (!(length > 1e-12f)) return {paint.ramp->Colors().back(), 0};
    // Within two pixels, all that shows of a gradient is its middle.
    if (length < 4) return {paint.ramp->Colors()[127], 0};
    plan.isOpaque = paint.ramp->IsOpaque();
    plan.ramp = paint.ramp.get();
    plan.alongX = d.x / length * 255;
    plan.alongY = d.y / length * 255;
    plan.along = -(start.x * plan.alongX + start.y * plan.alongY);
  } else {
    const Rect& area = paint.imageArea;
    const Matrix toArea{area.width, 0, 0, area.height, area.x, area.y};
    const Matrix toPixels = toArea.Then(state.matrix);
    const float width = std::hypot(toPixels.m11, toPixels.m12), height = std::hypot(toPixels.m21, toPixels.m22);
    if (!(width > 0) || !(height > 0)) return {};
    plan.opacity = static_cast<uint32_t>(paint.opacity * 255 + 0.5f);
    // Tiles this small would only flicker.
    if (paint.isTiled && (width < 4 || height < 4)) return {ScalePixel(paint.bitmap->Average(), plan.opacity), 0};
    plan.isTiled = paint.isTiled;
    plan.clampsImage = paint.clampsImage;
    plan.isOpaque = plan.opacity == 255 && paint.bitmap->IsOpaque() && (paint.isTiled || paint.clampsImage);
    if (paint.isTiled && state.isUpright && width <= TileCells::MaximumSize && height <= TileCells::MaximumSize) {
      plan.cell = &tileCells.Find(paint.bitmap, width, height);
      // Any tile may be the first; one near the picture keeps the numbers small.
      plan.cellX = std::isfinite(toPixels.dx) ? std::fmod(toPixels.dx, width) : 0;
      plan.cellY = std::isfinite(toPixels.dy) ? std::fmod(toPixels.dy, height) : 0;
      plan.cellWidth = width;
      plan.cellHeight = height;
    }
    plan.level = &LevelFor(*paint.bitmap, std::min(static_cast<float>(paint.bitmap->Width()) / width,
                                                   static_cast<float>(paint.bitmap->Height()) / height));
    plan.toImage = toPixels.Inverse().Then(
        Matrix::Scale(static_cast<float>(plan.level->width), static_cast<float>(plan.level->height)));
  }
  paints.push_back(plan);
  return {0, static_cast<uint32_t>(paints.size() - 1)};
}

PlanItem& FramePlan::Add(PlanItem::Kind kind, const PixelRect& bounds, const Ink& ink, const State& state) {
  PlanItem& item = items.emplace_back();
  item.kind = kind;
  item.bounds = bounds;
  item.color = ink.color;
  item.paint = ink.paint;
  item.clip = state.clip;
  return item;
}

} // namespace Toolkit
