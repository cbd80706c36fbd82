#include "toolkit/render/TilePainter.h"

#include "toolkit/render/PaintRow.h"
#include "toolkit/render/PixelRounding.h"

#include <cmath>
#include <cstring>
#include <utility>

namespace Toolkit {

namespace {

int ToByte(float coverage) { return static_cast<int>(std::min(std::max(coverage, 0.0f), 1.0f) * 255 + 0.5f); }

float Overlap(float start, float low, float high) {
  return std::max(0.0f, std::min(start + 1, high) - std::max(start, low));
}

/// A shadow's strength from its outermost to its innermost line.
const std::array<uint8_t, 256>& ShadowProfile() {
  static const std::array<uint8_t, 256> profile = [] {
    std::array<uint8_t, 256> values{};
    for (size_t i = 0; i < values.size(); ++i) {
      const double t = static_cast<double>(i) / 255;
      // Near to the integral of a bell curve, and exactly 0 and 1 at the ends.
      values[i] = static_cast<uint8_t>(t * t * t * (t * (t * 6 - 15) + 10) * 255 + 0.5);
    }
    return values;
  }();
  return profile;
}

} // namespace

TilePainter::TilePainter(const RowOperations& operations)
    : operations(operations), areas(static_cast<size_t>((TileWidth + 2) * TileHeight)) {
  maskLeft.fill(TileWidth);
}

void TilePainter::Draw(const FramePlan& framePlan, std::span<const BinEntry> bin, const PixelBuffer& target, int x,
                       int y, const PixelRect& part, Pixel background) {
  plan = &framePlan;
  tileX = x;
  tileY = y;
  clip = part;
  ForgetFullRuns();
  surfaces.assign(1, {target.pixels, target.stride, 0, 0});
  // Most often the first item, the canvas's background, hides this one.
  if (bin.empty() || !plan->HiddenBy(plan->items[bin[0].item]).Contains(clip))
    for (int row = clip.top; row < clip.bottom; ++row)
      std::fill_n(surfaces[0].At(clip.left, row), clip.Width(), background);
  for (size_t i = 0; i < bin.size();) {
    const PlanItem& item = plan->items[bin[i].item];
    area = item.bounds.Intersect(clip);
    if (item.kind == PlanItem::Kind::Stroke) {
      i = DrawStroke(bin, i);
      continue;
    }
    ++i;
    ForgetFullRuns();
    if (item.kind == PlanItem::Kind::GroupStart)
      BeginGroup();
    else if (item.kind == PlanItem::Kind::GroupEnd)
      EndGroup(item);
    else if (!area.IsEmpty())
      DrawItem(item);
  }
}

void TilePainter::DrawItem(const PlanItem& item) {
  UseClips(item.clip);
  ink = InkOf(item.color, item.paint);
  switch (item.kind) {
  case PlanItem::Kind::Rectangle: DrawRectangle(item); break;
  case PlanItem::Kind::Box: DrawBox(item); break;
  case PlanItem::Kind::Shadow: DrawShadow(item); break;
  case PlanItem::Kind::Glyphs: DrawGlyphs(item); break;
  case PlanItem::Kind::Area: DrawArea(item); break;
  default: break;
  }
}

void TilePainter::DrawRectangle(const PlanItem& item) {
  // The columns that the left and the right edge cut, one beyond the area where they lie outside.
  const int first = FloorPixel(item.left, area.left - 1, area.right);
  const int last = FloorPixel(item.right, area.left - 1, area.right);
  const float firstWidth = Overlap(static_cast<float>(first), item.left, item.right);
  const float lastWidth = item.right - static_cast<float>(last);
  const int runLeft = std::max(first + 1, area.left), runRight = std::min(last, area.right);
  if (!ink.paint && clips.empty()) {
    const auto put = [](Pixel* pixel, Pixel color) { *pixel = BlendPixel(*pixel, color); };
    const bool hasFirst = first >= area.left && first < area.right;
    const bool hasLast = last > first && last >= area.left && last < area.right;
    const Surface& surface = surfaces.back();
    int known = -1;
    Pixel firstColor = 0, runColor = 0, lastColor = 0;
    for (int y = area.top; y < area.bottom; ++y) {
      const float height = Overlap(static_cast<float>(y), item.top, item.bottom);
      // All rows but the uppermost and the lowest are alike.
      if (const int coverage = ToByte(height); coverage != known) {
        known = coverage;
        firstColor = ScalePixel(ink.color, static_cast<uint32_t>(ToByte(firstWidth * height)));
        runColor = ScalePixel(ink.color, static_cast<uint32_t>(coverage));
        lastColor = ScalePixel(ink.color, static_cast<uint32_t>(ToByte(lastWidth * height)));
      }
      if (hasFirst) put(surface.At(first, y), firstColor);
      if (runLeft < runRight) {
        Pixel* run = surface.At(runLeft, y);
        if (AlphaOf(runColor) == 255)
          std::fill_n(run, runRight - runLeft, runColor);
        else if (AlphaOf(runColor) != 0)
          operations.blendColor(run, runRight - runLeft, runColor);
      }
      if (hasLast) put(surface.At(last, y), lastColor);
    }
    return;
  }
  // Of a pattern of small tiles many rows are alike: one is made, and the others are copies of it.
  const bool mayRepeat = ink.paint && ink.paint->cell && ink.paint->isOpaque && clips.empty() && runLeft < runRight &&
                         ink.paint->cell->height < TileHeight;
  std::array<int, TileHeight> rowOfLine;
  if (mayRepeat) rowOfLine.fill(-1);
  for (int y = area.top; y < area.bottom; ++y) {
    const float height = Overlap(static_cast<float>(y), item.top, item.bottom);
    if (mayRepeat && height == 1) {
      int& former = rowOfLine[static_cast<size_t>(CellLineAt(*ink.paint, y))];
      if (former < 0) {
        former = y;
      } else if (first < area.left && last >= area.right) {
        const Surface& surface = surfaces.back();
        std::memcpy(surface.At(runLeft, y), surface.At(runLeft, former),
                    static_cast<size_t>(runRight - runLeft) * sizeof(Pixel));
        continue;
      }
    }
    if (first >= area.left && first < area.right) PaintRun(y, first, first + 1, ToByte(firstWidth * height));
    if (runLeft < runRight) PaintRun(y, runLeft, runRight, ToByte(height));
    if (last > first && last >= area.left && last < area.right) PaintRun(y, last, last + 1, ToByte(lastWidth * height));
  }
}

void TilePainter::DrawBox(const PlanItem& item) {
  const PlanBox& box = plan->boxes[item.first];
  const Ink border = InkOf(item.borderColor, item.borderPaint);
  const bool isPlain = !ink.paint && !border.paint;
  uint8_t inside[TileWidth];
  Pixel fillRow[TileWidth], borderRow[TileWidth];
  for (int y = area.top; y < area.bottom; ++y) {
    const CoverageRow outer(box.outer, y), inner(box.inner, y);
    // The pixels between the corners and the sides of the border are all alike.
    int start = outer.RunStart(), end = outer.RunEnd();
    if (item.hasBorder && inner.Run() > 0) {
      start = std::max(start, inner.RunStart());
      end = std::min(end, inner.RunEnd());
    }
    const int runLeft = std::clamp(start, area.left, area.right), runRight = std::clamp(end, runLeft, area.right);
    const auto drawSingly = [&](int left, int right) {
      if (left >= right) return;
      if (!item.hasBorder) {
        for (int x = left; x < right; ++x) inside[x - left] = static_cast<uint8_t>(ToByte(outer.At(x)));
        return PaintMask(y, left, right, inside);
      }
      const Pixel* fillPixels = InkRow(ink, y, left, right, fillRow);
      const Pixel* borderPixels = InkRow(border, y, left, right, borderRow);
      // Both in one go: the shares of fill and border add up to the box's, so that nothing shines through between.
      for (int x = left; x < right; ++x) {
        const int whole = ToByte(outer.At(x)), fill = std::min(whole, ToByte(inner.At(x)));
        fillRow[x - left] = ScalePixel(fillPixels[x - left], static_cast<uint32_t>(fill)) +
                            ScalePixel(borderPixels[x - left], static_cast<uint32_t>(whole - fill));
      }
      PaintPixels(y, left, right, fillRow);
    };
    drawSingly(area.left, runLeft);
    if (runLeft < runRight) {
      const int whole = ToByte(outer.Run());
      if (!item.hasBorder) {
        PaintRun(y, runLeft, runRight, whole);
      } else if (const int fill = std::min(whole, ToByte(inner.Run())); fill == whole) {
        PaintRun(y, runLeft, runRight, whole);
      } else if (fill == 0) {
        const Ink own = std::exchange(ink, border);
        PaintRun(y, runLeft, runRight, whole);
        ink = own;
      } else if (isPlain) {
        const Ink own = ink;
        ink.color = ScalePixel(own.color, static_cast<uint32_t>(fill)) +
                    ScalePixel(border.color, static_cast<uint32_t>(whole - fill));
        PaintRun(y, runLeft, runRight, 255);
        ink = own;
      } else {
        drawSingly(runLeft, runRight);
      }
    }
    drawSingly(runRight, area.right);
  }
}

void TilePainter::DrawShadow(const PlanItem& item) {
  const CoverageBox& box = plan->boxes[item.first].outer;
  const float soft = std::max(item.left, 0.5f);
  const std::array<uint8_t, 256>& profile = ShadowProfile();
  const auto strength = [&](float distance) {
    return profile[static_cast<size_t>(std::min(std::max((1 - distance / soft) / 2, 0.0f), 1.0f) * 255 + 0.5f)];
  };
  // Between the corners, the strength does not change along a row.
  const float corner = std::max(soft, box.radii.topLeft);
  const bool hasRun = !box.isTurned && box.right - box.left > 2 * corner;
  const int runLeft = hasRun ? CeilPixel(box.left + corner, area.left, area.right) : area.right;
  const int runRight = hasRun ? FloorPixel(box.right - corner, runLeft, area.right) : area.right;
  uint8_t values[TileWidth];
  for (int y = area.top; y < area.bottom; ++y) {
    const float center = static_cast<float>(y) + 0.5f;
    const auto drawSingly = [&](int left, int right) {
      if (left >= right) return;
      for (int x = left; x < right; ++x)
        values[x - left] = strength(box.Distance(static_cast<float>(x) + 0.5f, center));
      PaintMask(y, left, right, values);
    };
    drawSingly(area.left, runLeft);
    if (runLeft < runRight) PaintRun(y, runLeft, runRight, strength(std::max(box.top - center, center - box.bottom)));
    drawSingly(runRight, area.right);
  }
}

void TilePainter::DrawGlyphs(const PlanItem& item) {
  for (uint32_t i = item.first; i < item.end; ++i) {
    const PlanGlyph& glyph = plan->glyphs[i];
    const GlyphMask& shape = *glyph.mask;
    const int left = glyph.x + shape.left, top = glyph.y - shape.top;
    const PixelRect part = area.Intersect({left, top, left + shape.width, top + shape.height});
    if (part.IsEmpty()) continue;
    for (int y = part.top; y < part.bottom; ++y)
      PaintMask(y, part.left, part.right, shape.coverage + (y - top) * shape.width + (part.left - left));
  }
}

size_t TilePainter::DrawStroke(std::span<const BinEntry> bin, size_t at) {
  const uint32_t index = bin[at].item;
  const PlanItem& item = plan->items[index];
  UseClips(item.clip);
  ink = InkOf(item.color, item.paint);
  UseFullRuns();
  for (; at < bin.size() && bin[at].item == index; ++at)
    for (uint32_t i = bin[at].first; i < bin[at].end; ++i) CoverSegment(plan->segments[i]);
  for (int y = area.top; y < area.bottom; ++y) {
    const auto row = static_cast<size_t>(y - tileY);
    const int left = maskLeft[row], right = maskRight[row];
    if (left >= right) continue;
    uint8_t* values = &mask[row * TileWidth + static_cast<size_t>(left)];
    PaintMask(y, tileX + left, tileX + right, values);
    if (fullColor != 0 && clips.empty()) ExtendFullRun(row, left, right, values);
    std::memset(values, 0, static_cast<size_t>(right - left));
    maskLeft[row] = TileWidth;
    maskRight[row] = 0;
  }
  return at;
}

void TilePainter::UseFullRuns() {
  const Pixel color = !ink.paint && AlphaOf(ink.color) == 255 ? ink.color : 0;
  if (color == fullColor) return;
  fullColor = color;
  fullLeft.fill(0);
  fullRight.fill(0);
}

void TilePainter::ExtendFullRun(size_t row, int left, int right, const uint8_t* coverage) {
  for (int x = left; x < right;) {
    const int start = x;
    while (x < right && coverage[x - left] == 255) ++x;
    if (x == start) {
      ++x;
    } else if (start <= fullRight[row] && x >= fullLeft[row] && fullLeft[row] < fullRight[row]) {
      fullLeft[row] = std::min(fullLeft[row], start);
      fullRight[row] = std::max(fullRight[row], x);
    } else if (x - start > fullRight[row] - fullLeft[row]) {
      fullLeft[row] = start;
      fullRight[row] = x;
    }
  }
}

/// Each pixel takes the greatest coverage of any segment, so joints are not painted twice.
void TilePainter::CoverSegment(const StrokeSegment& s) {
  const float endX = s.x + s.directionX * s.length, endY = s.y + s.directionY * s.length;
  const int top = FloorPixel(std::min(s.y, endY) - s.reach, area.top, area.bottom);
  const int bottom = CeilPixel(std::max(s.y, endY) + s.reach, area.top, area.bottom);
  const float boxLeft = std::min(s.x, endX) - s.reach, boxRight = std::max(s.x, endX) + s.reach;
  const bool isSteep = std::abs(s.directionY) > 1e-3f;
  const float lean = isSteep ? s.directionX / s.directionY : 0, spread = isSteep ? s.reach / std::abs(s.directionY) : 0;
  for (int y = top; y < bottom; ++y) {
    float low = boxLeft, high = boxRight;
    if (isSteep) {
      const float middle = s.x + (static_cast<float>(y) + 0.5f - s.y) * lean;
      low = std::max(low, middle - spread);
      high = std::min(high, middle + spread);
    }
    int left = FloorPixel(low - 0.5f, area.left, area.right);
    int right = CeilPixel(high + 0.5f, area.left, area.right);
    const auto row = static_cast<size_t>(y - tileY);
    int end = area.right;
    if (fullColor != 0) {
      const int runLeft = tileX + fullLeft[row], runRight = tileX + fullRight[row];
      if (left >= runLeft && left < runRight) left = runRight;
      if (right > runLeft && right <= runRight) right = end = runLeft;
    }
    if (left >= right) continue;
    maskLeft[row] = std::min(maskLeft[row], left - tileX);
    maskRight[row] = std::max(maskRight[row], right - tileX);
    // Whole registers where there is room: the pixels behind are out of reach and stay as they are.
    const int count = std::min((right - left + 3) & ~3, end - left);
    operations.coverSegment(&mask[row * TileWidth + static_cast<size_t>(left - tileX)], count, left, y, s);
  }
}

void TilePainter::DrawArea(const PlanItem& item) {
  for (uint32_t i = item.first; i < item.end; ++i) AddEdge(plan->edges[i].from, plan->edges[i].to);
  uint8_t values[TileWidth];
  for (int y = area.top; y < area.bottom; ++y) {
    float* row = &areas[static_cast<size_t>(y - tileY) * (TileWidth + 2)];
    float sum = 0;
    int left = TileWidth, right = 0;
    for (int x = 0; x < TileWidth; ++x) {
      sum += row[x];
      // The even-odd rule, and in between the share of the pixel.
      float coverage = std::abs(sum);
      if (coverage > 1) {
        coverage -= 2 * std::floor(coverage / 2);
        if (coverage > 1) coverage = 2 - coverage;
      }
      values[x] = static_cast<uint8_t>(ToByte(coverage));
      if (values[x] == 0) continue;
      left = std::min(left, x);
      right = x + 1;
    }
    std::fill_n(row, TileWidth + 2, 0.0f);
    left = std::max(left, area.left - tileX);
    right = std::min(right, area.right - tileX);
    if (left < right) PaintMask(y, tileX + left, tileX + right, values + left);
  }
}

/// Adds the edge's share to each row: for every pixel, how much more of it is covered than of the one before.
void TilePainter::AddEdge(Point from, Point to) {
  const float direction = from.y < to.y ? 1.0f : -1.0f;
  if (from.y > to.y) std::swap(from, to);
  const float slope = (to.x - from.x) / (to.y - from.y);
  constexpr float width = TileWidth;
  const int top = FloorPixel(from.y, area.top, area.bottom);
  const int bottom = CeilPixel(to.y, area.top, area.bottom);
  for (int y = top; y < bottom; ++y) {
    float* row = &areas[static_cast<size_t>(y - tileY) * (TileWidth + 2)];
    const float upper = std::max(static_cast<float>(y), from.y), lower = std::min(static_cast<float>(y + 1), to.y);
    float share = (lower - upper) * direction;
    const float limitLow = std::min(from.x, to.x), limitHigh = std::max(from.x, to.x);
    const auto place = [&](float at) {
      return std::min(std::max(from.x + (at - from.y) * slope, limitLow), limitHigh) - static_cast<float>(tileX);
    };
    const float a = place(upper), b = place(lower);
    float low = std::min(a, b), high = std::max(a, b);
    if (low >= width) continue;
    if (high <= 0) {
      row[0] += share;
      continue;
    }
    if (low < 0 || high > width) {
      const float part = share / (high - low);
      if (low < 0) row[0] += part * -low;
      low = std::max(low, 0.0f);
      high = std::min(high, width);
      share = part * (high - low);
    }
    const int first = FloorPixel(low, 0, TileWidth), last = CeilPixel(high, 0, TileWidth);
    const float lowFloor = static_cast<float>(first), highCeiling = static_cast<float>(last);
    if (last <= first + 1) {
      const float middle = (low + high) / 2 - lowFloor;
      row[first] += share - share * middle;
      row[first + 1] += share * middle;
      continue;
    }
    const float step = 1 / (high - low), lowPart = 1 - (low - lowFloor), highPart = high - highCeiling + 1;
    const float firstArea = step * lowPart * lowPart / 2, lastArea = step * highPart * highPart / 2;
    row[first] += share * firstArea;
    if (last == first + 2) {
      row[first + 1] += share * (1 - firstArea - lastArea);
    } else {
      const float second = step * (lowPart + 0.5f);
      row[first + 1] += share * (second - firstArea);
      for (int x = first + 2; x < last - 1; ++x) row[x] += share * step;
      const float before = second + static_cast<float>(last - first - 3) * step;
      row[last - 1] += share * (1 - before - lastArea);
    }
    row[last] += share * lastArea;
  }
}

void TilePainter::BeginGroup() {
  const size_t depth = surfaces.size();
  if (layers.size() < depth) layers.push_back(std::make_unique<Layer>());
  const Surface surface{layers[depth - 1]->data(), TileWidth, tileX, tileY};
  surfaces.push_back(surface);
  for (int y = area.top; y < area.bottom; ++y) std::fill_n(surface.At(area.left, y), std::max(area.Width(), 0), 0u);
}

void TilePainter::EndGroup(const PlanItem& item) {
  const Surface group = surfaces.back();
  surfaces.pop_back();
  uint8_t values[TileWidth];
  std::memset(values, item.opacity, sizeof(values));
  for (int y = area.top; y < area.bottom; ++y)
    if (area.Width() > 0)
      operations.blendPixelsMask(surfaces.back().At(area.left, y), group.At(area.left, y), values, area.Width());
}

} // namespace Toolkit
