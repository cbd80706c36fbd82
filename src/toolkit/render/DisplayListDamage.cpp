#include "toolkit/render/DisplayListDamage.h"

#include <algorithm>
#include <cmath>

namespace Toolkit {

namespace {

using Kind = DisplayEntry::Kind;

/// More boxes than this are put together: each costs a pass over the frame.
constexpr size_t MostBoxes = 8;

/// A drawing step, or a push with all up to its pop.
struct Step {
  uint32_t first = 0, end = 0;
};

bool IsPush(Kind kind) { return kind == Kind::PushTransform || kind == Kind::PushClip || kind == Kind::PushOpacity; }

std::vector<Step> StepsOf(const DisplayList& list, uint32_t first, uint32_t end) {
  std::vector<Step> steps;
  while (first < end) {
    const DisplayEntry& entry = list.Entries()[first];
    const uint32_t next = IsPush(entry.kind) ? entry.end + 1 : first + 1;
    steps.push_back({first, next});
    first = next;
  }
  return steps;
}

bool SamePaint(const DisplayList& a, uint16_t x, const DisplayList& b, uint16_t y) {
  if (x == DisplayEntry::NoPaint || y == DisplayEntry::NoPaint) return x == y;
  return a.PaintAt(x) == b.PaintAt(y);
}

bool SameOutline(const PathOutline& a, const PathOutline& b) { return a.verbs == b.verbs && a.points == b.points; }

PixelRect ToPixels(const Matrix& matrix, const Rect& rect) {
  if (!(rect.width > 0) || !(rect.height > 0)) return {};
  float left = Infinity, top = Infinity, right = -Infinity, bottom = -Infinity;
  for (const Point corner : {Point{rect.x, rect.y}, Point{rect.Right(), rect.y}, Point{rect.x, rect.Bottom()},
                             Point{rect.Right(), rect.Bottom()}}) {
    const Point mapped = matrix.Map(corner);
    left = std::min(left, mapped.x);
    top = std::min(top, mapped.y);
    right = std::max(right, mapped.x);
    bottom = std::max(bottom, mapped.y);
  }
  // Far outside of any target, and still a whole number.
  static constexpr float Far = 1e6f;
  const auto whole = [](float value) { return static_cast<int>(std::clamp(value, -Far, Far)); };
  // One more for the soft edge.
  return {whole(std::floor(left)) - 1, whole(std::floor(top)) - 1, whole(std::ceil(right)) + 1,
          whole(std::ceil(bottom)) + 1};
}

class Comparison {
public:
  explicit Comparison(const PixelRect& target) : target(target) {}

  void Compare(const DisplayList& a, const DisplayList& b, const Matrix& matrix, const PixelRect& clip) {
    CompareSteps(a, StepsOf(a, 0, static_cast<uint32_t>(a.Entries().size())), b,
                 StepsOf(b, 0, static_cast<uint32_t>(b.Entries().size())), matrix, clip);
  }

  std::vector<PixelRect> TakeDamage() { return std::move(damage); }

private:
  void CompareSteps(const DisplayList& a, const std::vector<Step>& stepsA, const DisplayList& b,
                    const std::vector<Step>& stepsB, const Matrix& matrix, const PixelRect& clip) {
    size_t start = 0, endA = stepsA.size(), endB = stepsB.size();
    while (start < endA && start < endB && IsSameStep(a, stepsA[start], b, stepsB[start])) ++start;
    while (endA > start && endB > start && IsSameStep(a, stepsA[endA - 1], b, stepsB[endB - 1])) --endA, --endB;
    if (endA - start == endB - start) {
      for (size_t i = start; i < endA; ++i) ComparePair(a, stepsA[i], b, stepsB[i], matrix, clip);
      return;
    }
    for (size_t i = start; i < endA; ++i) AddStep(a, stepsA[i], matrix, clip);
    for (size_t i = start; i < endB; ++i) AddStep(b, stepsB[i], matrix, clip);
  }

  void ComparePair(const DisplayList& a, const Step& stepA, const DisplayList& b, const Step& stepB,
                   const Matrix& matrix, const PixelRect& clip) {
    if (IsSameStep(a, stepA, b, stepB)) return;
    const DisplayEntry& entryA = a.Entries()[stepA.first];
    const DisplayEntry& entryB = b.Entries()[stepB.first];
    if (entryA.kind == entryB.kind && IsSameHead(a, entryA, b, entryB)) {
      if (entryA.kind == Kind::List) {
        const DisplayList::ListShape &listA = a.ListAt(entryA.payload), &listB = b.ListAt(entryB.payload);
        Compare(*listA.list, *listB.list, Matrix::Translation(listA.offset.x, listA.offset.y).Then(matrix), clip);
        return;
      }
      if (IsPush(entryA.kind)) {
        CompareSteps(a, StepsOf(a, stepA.first + 1, entryA.end), b, StepsOf(b, stepB.first + 1, entryB.end),
                     Inner(a, entryA, matrix), InnerClip(entryA, matrix, clip));
        return;
      }
    }
    AddStep(a, stepA, matrix, clip);
    AddStep(b, stepB, matrix, clip);
  }

  static Matrix Inner(const DisplayList& list, const DisplayEntry& entry, const Matrix& matrix) {
    return entry.kind == Kind::PushTransform ? list.MatrixAt(entry.payload).Then(matrix) : matrix;
  }

  static PixelRect InnerClip(const DisplayEntry& entry, const Matrix& matrix, const PixelRect& clip) {
    return entry.kind == Kind::PushClip ? clip.Intersect(ToPixels(matrix, entry.bounds)) : clip;
  }

  /// Alike in everything but what is nested.
  static bool IsSameHead(const DisplayList& a, const DisplayEntry& x, const DisplayList& b, const DisplayEntry& y) {
    switch (x.kind) {
    case Kind::List: return a.ListAt(x.payload).offset == b.ListAt(y.payload).offset;
    case Kind::PushTransform: return a.MatrixAt(x.payload) == b.MatrixAt(y.payload);
    case Kind::PushOpacity: return a.OpacityAt(x.payload) == b.OpacityAt(y.payload);
    case Kind::PushClip: return x.bounds == y.bounds && a.BoxAt(x.payload).radii == b.BoxAt(y.payload).radii;
    default: return false;
    }
  }

  /// Alike in full; deeper than one list only where that is plain at a glance.
  static bool IsSameStep(const DisplayList& a, const Step& stepA, const DisplayList& b, const Step& stepB) {
    if (stepA.end - stepA.first != stepB.end - stepB.first) return false;
    for (uint32_t i = 0; i < stepA.end - stepA.first; ++i)
      if (!IsSameEntry(a, a.Entries()[stepA.first + i], b, b.Entries()[stepB.first + i])) return false;
    return true;
  }

  static bool IsSameEntry(const DisplayList& a, const DisplayEntry& x, const DisplayList& b, const DisplayEntry& y) {
    if (x.kind != y.kind) return false;
    if (x.kind == Kind::Pop) return true;
    if (x.kind == Kind::List) return a.ListAt(x.payload).list == b.ListAt(y.payload).list && IsSameHead(a, x, b, y);
    if (IsPush(x.kind)) return IsSameHead(a, x, b, y);
    if (!(x.bounds == y.bounds) || !SamePaint(a, x.paint, b, y.paint) || !SamePaint(a, x.secondPaint, b, y.secondPaint))
      return false;
    switch (x.kind) {
    case Kind::Box: {
      const DisplayList::BoxShape &s = a.BoxAt(x.payload), &t = b.BoxAt(y.payload);
      return s.radii == t.radii && s.border == t.border;
    }
    case Kind::Path: {
      const DisplayList::PathShape &s = a.PathAt(x.payload), &t = b.PathAt(y.payload);
      return s.offset == t.offset && s.thickness == t.thickness && s.dashes == t.dashes &&
             SameOutline(s.outline, t.outline);
    }
    case Kind::Text: {
      const DisplayList::TextShape &s = a.TextAt(x.payload), &t = b.TextAt(y.payload);
      return s.origin == t.origin && s.layout == t.layout;
    }
    case Kind::Shadow: {
      const DisplayList::ShadowShape &s = a.ShadowAt(x.payload), &t = b.ShadowAt(y.payload);
      return s.box == t.box && s.radius == t.radius && s.blur == t.blur;
    }
    default: return true;
    }
  }

  void AddStep(const DisplayList& list, const Step& step, const Matrix& matrix, const PixelRect& clip) {
    const DisplayEntry& entry = list.Entries()[step.first];
    if (!IsPush(entry.kind)) {
      Add(ToPixels(matrix, entry.bounds).Intersect(clip));
      return;
    }
    const Matrix inner = Inner(list, entry, matrix);
    const PixelRect innerClip = InnerClip(entry, matrix, clip);
    if (innerClip.IsEmpty()) return;
    for (const Step& child : StepsOf(list, step.first + 1, entry.end)) {
      if (isCovered) return;
      AddStep(list, child, inner, innerClip);
    }
  }

  void Add(PixelRect rect) {
    rect = rect.Intersect(target);
    if (rect.IsEmpty()) return;
    for (const PixelRect& known : damage)
      if (known.Contains(rect)) return;
    std::erase_if(damage, [&](const PixelRect& known) { return rect.Contains(known); });
    // Boxes that overlap are drawn once, as one.
    for (size_t i = 0; i < damage.size();) {
      if (damage[i].Intersect(rect).IsEmpty()) {
        ++i;
        continue;
      }
      rect = rect.Unite(damage[i]);
      damage.erase(damage.begin() + static_cast<std::ptrdiff_t>(i));
      i = 0;
    }
    damage.push_back(rect);
    if (damage.size() > MostBoxes) {
      PixelRect all;
      for (const PixelRect& known : damage) all = all.Unite(known);
      damage = {all};
    }
    isCovered = damage.front().Contains(target);
  }

  PixelRect target;
  std::vector<PixelRect> damage;
  bool isCovered = false;
};

} // namespace

std::vector<PixelRect> FindDamage(const DisplayList& before, const DisplayList& after, const Matrix& toPixels,
                                  const PixelRect& target) {
  Comparison comparison(target);
  comparison.Compare(before, after, toPixels, target);
  return comparison.TakeDamage();
}

} // namespace Toolkit
