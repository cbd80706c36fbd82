#pragma once

#include "toolkit/base/Geometry.h"

#include <cstdint>

namespace Toolkit {

class Brush;
class Painter;

/// How far content is scrolled along one axis, and the slim bar that shows it and can be dragged. A value that the
/// control which scrolls holds; lengths are in pixels. "Top" and "height" are meant along the axis.
struct ScrollThumb {
  enum class Axis : uint8_t { Vertical, Horizontal };
  static constexpr float Width = 10;

  ScrollThumb() = default;
  explicit ScrollThumb(Axis axis) : axis(axis) {}

  float offset = 0;
  float extent = 0;
  /// The area that shows the content; the bar moves along its right or lower edge.
  Rect viewport;

  bool IsNeeded() const { return extent > Page() + 0.5f; }
  /// The length of what is in sight.
  float Page() const { return axis == Axis::Vertical ? viewport.height : viewport.width; }
  /// True if the offset changed; it stays within what can be scrolled.
  bool ScrollTo(float wanted);
  /// Scrolls as little as brings a stretch of the content into sight, or its beginning if it is longer than a page.
  /// True if the offset changed.
  bool Show(float top, float height);

  /// The strip in which the bar moves; empty while there is nothing to scroll.
  Rect Track() const;
  Rect Thumb() const;
  /// Begins a drag on the bar itself; beside it, scrolls a page towards the point. False if the point is not in the
  /// track.
  bool Press(Point point);
  /// From a press until its release.
  bool IsPressed() const { return press != PressKind::None; }
  /// True if the offset changed.
  bool DragTo(Point point);
  void Release() { press = PressKind::None; }
  /// The mouse is at the point: above the track the bar becomes wide. True if it looks different now.
  bool Hover(Point point) { return SetHovered(Track().Contains(point)); }
  bool SetHovered(bool value);
  void Draw(Painter& painter, const Brush* brush) const;

private:
  enum class PressKind : uint8_t { None, Thumb, Track };
  /// Of a rectangle or a point, the part that counts along the axis.
  float Along(Point point) const { return axis == Axis::Vertical ? point.y : point.x; }
  float Start(const Rect& rect) const { return axis == Axis::Vertical ? rect.y : rect.x; }
  float Length(const Rect& rect) const { return axis == Axis::Vertical ? rect.height : rect.width; }

  Axis axis = Axis::Vertical;
  PressKind press = PressKind::None;
  bool isHovered = false;
  float grip = 0;
};

} // namespace Toolkit
