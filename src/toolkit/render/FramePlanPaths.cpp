#include "toolkit/render/FramePlan.h"

#include "toolkit/render/CurveFlattening.h"
#include "toolkit/render/PixelRounding.h"
#include "toolkit/text/TextLayout.h"

#include <cmath>

namespace Toolkit {

namespace {

/// Coordinates are held within this many pixels, so that no sum of them overflows.
constexpr float FarAway = 1e7f;
/// Text smaller than this in pixels becomes a bar, and below the second figure nothing.
constexpr float LeastReadable = 3.6f;
constexpr float LeastBar = 1.0f;
/// How far from a curve its straight pieces may run, and the faint ones of a hair line, in pixels.
constexpr float Tolerance = 0.1f;
constexpr float HairlineTolerance = 0.4f;

Point MapNear(const Matrix& matrix, Point p) {
  const Point q = matrix.Map(p);
  const auto hold = [](float v) { return v > -FarAway ? std::min(v, FarAway) : -FarAway; };
  return {hold(q.x), hold(q.y)};
}

/// Calls `line(from, to)`, `curve(a, b, c, d)` and, before each figure, `start(isClosed)` and behind it `finish()`.
template <class Start, class Line, class Curve, class Finish>
void WalkOutline(const PathOutline& outline, const Matrix& matrix, const Start& start, const Line& line,
                 const Curve& curve, const Finish& finish) {
  using Verb = PathOutline::Verb;
  Point first, at;
  bool isOpen = false;
  size_t next = 0;
  const auto point = [&] { return MapNear(matrix, outline.points[next++]); };
  for (size_t i = 0; i < outline.verbs.size(); ++i) {
    switch (outline.verbs[i]) {
    case Verb::Move: {
      if (isOpen) finish();
      isOpen = true;
      first = at = point();
      size_t last = i + 1;
      while (last < outline.verbs.size() && outline.verbs[last] != Verb::Move && outline.verbs[last] != Verb::Close)
        ++last;
      start(last < outline.verbs.size() && outline.verbs[last] == Verb::Close);
      break;
    }
    case Verb::Line: {
      const Point to = point();
      line(at, to);
      at = to;
      break;
    }
    case Verb::Curve: {
      const Point b = point(), c = point(), d = point();
      curve(at, b, c, d);
      at = d;
      break;
    }
    case Verb::Close:
      line(at, first);
      at = first;
      break;
    }
  }
  if (isOpen) finish();
}

} // namespace

void FramePlan::AddPath(const DisplayList& list, const DisplayEntry& entry, const State& state) {
  const PixelRect bounds = PixelBounds(entry.bounds, state);
  const DisplayList::PathShape& shape = list.PathAt(entry.payload);
  if (const Ink ink = bounds.IsEmpty() ? Ink() : InkFor(list, entry.paint, state); !ink.IsNone())
    AddArea(shape.outline, Matrix::Translation(shape.offset.x, shape.offset.y).Then(state.matrix), bounds, ink, state);
  // A stroke thinner than a pixel is drawn one pixel wide.
  Rect reach = entry.bounds;
  const float margin = 1 / state.scale;
  reach = {reach.x - margin, reach.y - margin, reach.width + 2 * margin, reach.height + 2 * margin};
  const PixelRect strokeBounds = PixelBounds(reach, state);
  if (strokeBounds.IsEmpty()) return;
  if (const Ink ink = InkFor(list, entry.secondPaint, state); !ink.IsNone()) AddStroke(shape, strokeBounds, ink, state);
}

void FramePlan::AddArea(const PathOutline& outline, const Matrix& matrix, const PixelRect& bounds, const Ink& ink,
                        const State& state) {
  const auto first = static_cast<uint32_t>(edges.size());
  // Edges left of the picture count for all pixels to their right, so those are straightened but kept. What is left
  // out must not depend on the part that is redrawn.
  const Extent extent{static_cast<float>(target.left), static_cast<float>(target.top), static_cast<float>(target.right),
                      static_cast<float>(target.bottom)};
  const auto edge = [&](Point from, Point to) {
    if (from.y != to.y && extent.Meets(extent.left, std::min(from.y, to.y), extent.left, std::max(from.y, to.y)) &&
        std::min(from.x, to.x) <= extent.right)
      edges.push_back({from, to});
  };
  const auto meets = [&](float l, float t, float r, float b) { return extent.Meets(l, t, r, b); };
  Point start, end;
  bool isFirst = true;
  const auto close = [&] {
    if (!isFirst) edge(end, start);
    isFirst = true;
  };
  const auto line = [&](Point from, Point to) {
    if (isFirst) start = from;
    isFirst = false;
    end = to;
    edge(from, to);
  };
  const auto curve = [&](Point a, Point b, Point c, Point d) {
    FlattenCurve(a, b, c, d, Tolerance, meets, line, line);
  };
  WalkOutline(
      outline, matrix, [](bool) {}, line, curve, close);
  if (edges.size() == first) return;
  PlanItem& item = Add(PlanItem::Kind::Area, bounds, ink, state);
  item.first = first;
  item.end = static_cast<uint32_t>(edges.size());
}

void FramePlan::AddStroke(const DisplayList::PathShape& shape, const PixelRect& bounds, Ink ink, const State& state) {
  const float width = shape.thickness * state.scale;
  // A hair line is drawn one pixel wide and fainter.
  if (width < 1 && ink.paint == 0) ink.color = ScalePixel(ink.color, static_cast<uint32_t>(width * 255 + 0.5f));
  if (ink.IsNone()) return;
  const float reach = std::max(width, 1.0f) / 2 + 0.5f;
  const bool hasFlatEnds = width >= 1;
  const float tolerance = width >= 1 ? Tolerance : HairlineTolerance;
  const Extent extent{static_cast<float>(bounds.left) - reach, static_cast<float>(bounds.top) - reach,
                      static_cast<float>(bounds.right) + reach, static_cast<float>(bounds.bottom) + reach};
  const auto firstSegment = static_cast<uint32_t>(segments.size());
  const auto meets = [&](float l, float t, float r, float b) { return extent.Meets(l, t, r, b); };

  double period = 0;
  for (const float dash : shape.dashes) period += static_cast<double>(dash) * state.scale;
  // Dashes too small to tell apart are drawn as a line.
  const bool isDashed = period >= 1;
  double phase = 0;
  bool isClosed = false, isFigureStart = true;
  // Known only when the next piece, or the figure's end, comes.
  uint32_t lastSegment = 0;
  const auto start = [&](bool closed) {
    isClosed = closed;
    isFigureStart = true;
    lastSegment = 0;
    phase = 0;
  };
  const auto line = [&](Point from, Point to) {
    if (isDashed) return AddDashes(from, to, shape, state.scale, phase, reach, bounds);
    const bool begins = isFigureStart;
    isFigureStart = false;
    lastSegment = 0;
    if (!extent.Meets(std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x), std::max(from.y, to.y)))
      return;
    AddSegment(from, to, reach);
    segments.back().flatStart = begins && !isClosed && hasFlatEnds;
    lastSegment = static_cast<uint32_t>(segments.size());
  };
  const auto skip = [&](Point, Point) {
    isFigureStart = false;
    lastSegment = 0;
  };
  const auto curve = [&](Point a, Point b, Point c, Point d) {
    if (!isDashed) return FlattenCurve(a, b, c, d, tolerance, meets, line, skip);
    const int pieces = static_cast<int>(std::min(std::max(CurvePieces(a, b, c, d, tolerance), 1.0f), 400.0f));
    Point from = a;
    for (int i = 1; i <= pieces; ++i) {
      const Point to = CurvePoint(a, b, c, d, static_cast<float>(i) / static_cast<float>(pieces));
      line(from, to);
      from = to;
    }
  };
  const auto finish = [&] {
    if (lastSegment != 0 && !isClosed && hasFlatEnds) segments[lastSegment - 1].flatEnd = true;
  };
  WalkOutline(shape.outline, Matrix::Translation(shape.offset.x, shape.offset.y).Then(state.matrix), start, line, curve,
              finish);
  if (segments.size() == firstSegment) return;
  PlanItem& item = Add(PlanItem::Kind::Stroke, bounds, ink, state);
  item.first = firstSegment;
  item.end = static_cast<uint32_t>(segments.size());
}

void FramePlan::AddDashes(Point from, Point to, const DisplayList::PathShape& shape, float scale, double& phase,
                          float reach, const PixelRect& bounds) {
  const double dx = static_cast<double>(to.x) - from.x, dy = static_cast<double>(to.y) - from.y;
  const double length = std::sqrt(dx * dx + dy * dy);
  if (!(length > 0)) return;
  double period = 0;
  for (const float dash : shape.dashes) period += static_cast<double>(dash) * scale;
  // An odd number of lengths gives dashes and gaps that change places in every second round.
  if (shape.dashes.size() % 2 == 1) period *= 2;

  // The part of the line that can show, as lengths along it.
  double low = 0, high = length;
  const auto limit = [&](double start, double delta, double least, double most) {
    if (delta == 0) {
      if (start < least || start > most) high = -1;
      return;
    }
    const double a = (least - start) / delta * length, b = (most - start) / delta * length;
    low = std::max(low, std::min(a, b));
    high = std::min(high, std::max(a, b));
  };
  limit(from.x, dx, bounds.left - reach, bounds.right + reach);
  limit(from.y, dy, bounds.top - reach, bounds.bottom + reach);

  if (low <= high) {
    const double offset = std::fmod(phase + low, period);
    double at = low - offset;
    for (size_t i = 0; at < high; ++i) {
      const double dash = static_cast<double>(shape.dashes[i % shape.dashes.size()]) * scale;
      const double start = std::max(at, 0.0), end = std::min(at + dash, length);
      if (i % 2 == 0 && end > start && end >= low) {
        const auto place = [&](double t) {
          return Point{static_cast<float>(from.x + dx * t / length), static_cast<float>(from.y + dy * t / length)};
        };
        // Where a dash goes on around a joint its end is round, unless that would reach further than the dash.
        const double before = start - at, behind = at + dash - end;
        const bool flatStart = before < reach, flatEnd = behind < reach;
        AddSegment(place(flatStart ? start - std::min(before, 0.5) : start),
                   place(flatEnd ? end + std::min(behind, 0.5) : end), reach);
        segments.back().flatStart = flatStart;
        segments.back().flatEnd = flatEnd;
      }
      at += dash;
    }
  }
  phase = std::fmod(phase + length, period);
}

void FramePlan::AddSegment(Point from, Point to, float reach) {
  StrokeSegment& segment = segments.emplace_back();
  const Point d = to - from;
  segment.x = from.x;
  segment.y = from.y;
  segment.length = std::sqrt(d.x * d.x + d.y * d.y);
  segment.reach = reach;
  if (segment.length > 0) {
    segment.directionX = d.x / segment.length;
    segment.directionY = d.y / segment.length;
  }
}

void FramePlan::AddText(const DisplayList& list, const DisplayEntry& entry, const State& state) {
  const DisplayList::TextShape& shape = list.TextAt(entry.payload);
  const float size = shape.size * state.scale;
  if (size < LeastBar || PixelBounds(entry.bounds, state).IsEmpty()) return;
  const Ink ink = InkFor(list, entry.paint, state);
  if (ink.IsNone()) return;
  const TextLayout& layout = *shape.layout;
  const Matrix& m = state.matrix;
  const bool asOutlines = !state.isUpright || m.m11 != m.m22 || size > GlyphAtlas::MaximumSize;
  for (size_t i = 0; i < layout.Lines().size(); ++i) {
    const LayoutLine& line = layout.Lines()[i];
    const float margin = shape.size * 0.5f;
    const PixelRect bounds = PixelBounds({shape.origin.x + line.x - margin, shape.origin.y + line.y - margin,
                                          line.width + 2 * margin, line.height + 2 * margin},
                                         state);
    if (bounds.IsEmpty()) continue;
    if (size < LeastReadable) {
      AddTextBar(layout, i, shape.origin, ink, state);
      continue;
    }
    if (asOutlines) {
      AddGlyphOutlines(layout, i, shape.origin, ink, state);
      continue;
    }
    const auto first = static_cast<uint32_t>(glyphs.size());
    const float left = static_cast<float>(bounds.left) - 2 * size, right = static_cast<float>(bounds.right) + 2 * size;
    for (uint32_t r = line.firstRun; r < line.endRun; ++r) {
      const LayoutRun& run = layout.Runs()[r];
      GlyphAtlas::Page& page = glyphAtlas.Open(run.face, size);
      for (uint32_t g = run.firstGlyph; g < run.endGlyph; ++g) {
        const LayoutGlyph& glyph = layout.Glyphs()[g];
        const float x = (shape.origin.x + glyph.x) * m.m11 + m.dx, y = (shape.origin.y + glyph.y) * m.m22 + m.dy;
        if (!(x >= left && x <= right)) continue;
        const int quarters = FloorPixel(x * 4 + 0.5f, -FarPixel, FarPixel);
        const GlyphMask& mask = glyphAtlas.Mask(page, glyph.id, quarters & 3);
        if (mask.width > 0) glyphs.push_back({&mask, quarters >> 2, FloorPixel(y + 0.5f, -FarPixel, FarPixel)});
      }
    }
    if (glyphs.size() == first) continue;
    PlanItem& item = Add(PlanItem::Kind::Glyphs, bounds, ink, state);
    item.first = first;
    item.end = static_cast<uint32_t>(glyphs.size());
  }
}

void FramePlan::AddTextBar(const TextLayout& layout, size_t index, Point origin, const Ink& ink, const State& state) {
  if (!state.isUpright || ink.paint != 0) return;
  const LayoutLine& line = layout.Lines()[index];
  const float size = layout.Style().size, baseline = origin.y + line.baseline;
  const Rect bar{origin.x + line.x, baseline - size * 0.5f, line.width, size * 0.5f};
  const PixelRect bounds = PixelBounds(bar, state);
  if (bounds.IsEmpty()) return;
  // About as much ink as the letters would leave.
  PlanItem& item = Add(PlanItem::Kind::Rectangle, bounds, {ScalePixel(ink.color, 90), 0}, state);
  const Matrix& m = state.matrix;
  item.left = bar.x * m.m11 + m.dx;
  item.top = bar.y * m.m22 + m.dy;
  item.right = bar.Right() * m.m11 + m.dx;
  item.bottom = bar.Bottom() * m.m22 + m.dy;
}

void FramePlan::AddGlyphOutlines(const TextLayout& layout, size_t index, Point origin, const Ink& ink,
                                 const State& state) {
  const LayoutLine& line = layout.Lines()[index];
  const float size = layout.Style().size;
  for (uint32_t r = line.firstRun; r < line.endRun; ++r) {
    const LayoutRun& run = layout.Runs()[r];
    for (uint32_t g = run.firstGlyph; g < run.endGlyph; ++g) {
      const LayoutGlyph& glyph = layout.Glyphs()[g];
      const Point at{origin.x + glyph.x, origin.y + glyph.y};
      const PixelRect bounds = PixelBounds({at.x - size * 2, at.y - size * 2, size * 4, size * 4}, state);
      if (bounds.IsEmpty()) continue;
      const PathOutline outline = glyphAtlas.Outline(run.face, glyph.id);
      AddArea(outline, Matrix{size, 0, 0, size, at.x, at.y}.Then(state.matrix), bounds, ink, state);
    }
  }
}

} // namespace Toolkit
