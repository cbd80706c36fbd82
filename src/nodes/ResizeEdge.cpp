#include "nodes/ResizeEdge.h"

#include <array>

namespace Tesselor {

const char* CursorOf(ResizeEdge edge) {
  static constexpr std::array<const char*, 8> cursors = {"SizeWE",   "SizeWE",   "SizeNS",   "SizeNS",
                                                         "SizeNWSE", "SizeNESW", "SizeNESW", "SizeNWSE"};
  return cursors[static_cast<size_t>(edge)];
}

ResizeEdge EdgeAt(Toolkit::Point point, Toolkit::Size size, float margin) {
  const bool left = margin > point.x;
  const bool top = margin > point.y;
  const bool right = point.x > size.width - margin;
  const bool bottom = point.y > size.height - margin;
  if (left && top) return ResizeEdge::TopLeft;
  if (right && top) return ResizeEdge::TopRight;
  if (left && bottom) return ResizeEdge::BottomLeft;
  if (right && bottom) return ResizeEdge::BottomRight;
  if (top) return ResizeEdge::Top;
  if (bottom) return ResizeEdge::Bottom;
  if (left) return ResizeEdge::Left;
  return ResizeEdge::Right;
}

} // namespace Tesselor
