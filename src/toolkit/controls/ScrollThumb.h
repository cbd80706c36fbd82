#pragma once

#include "toolkit/base/Geometry.h"

namespace Toolkit {

class Brush;
class Painter;

/// How far a list of a popup is scrolled, and the slim bar that shows it and can be dragged. A value that its list
/// holds; lengths are in pixels.
struct ScrollThumb {
  static constexpr float Width = 10;

  float offset = 0;
  float extent = 0;
  /// The part of the list's area that shows rows.
  Rect viewport;

  bool IsNeeded() const { return extent > viewport.height + 0.5f; }
  /// True if the offset changed; it stays within what can be scrolled.
  bool ScrollTo(float wanted);
  /// Scrolls as little as brings a stretch of the content into sight. True if the offset changed.
  bool Show(float top, float height);

  /// The strip at the right edge of the viewport in which the bar moves.
  Rect Track() const;
  Rect Thumb() const;
  /// Begins a drag if the point is in the track: on the bar itself, or with the bar's middle brought there.
  bool Press(Point point);
  bool IsDragged() const { return isDragged; }
  /// True if the offset changed.
  bool DragTo(Point point);
  void Release() { isDragged = false; }
  void Draw(Painter& painter, const Brush* brush) const;

private:
  bool isDragged = false;
  float grip = 0;
};

} // namespace Toolkit
