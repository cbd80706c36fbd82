#pragma once

#include "toolkit/base/Geometry.h"
#include "toolkit/base/RoutedEvent.h"

#include <cstdint>

namespace Tesselor {

/// The zone of a frame that is dragged to resize it. The numbers are fixed.
enum class ResizeEdge : uint8_t { Left = 0, Right, Top, Bottom, TopLeft, TopRight, BottomLeft, BottomRight };

/// The name of the cursor over the edge.
const char* CursorOf(ResizeEdge edge);

/// The edge at a point of a frame of that size; `margin` is the depth of the zones. Corners come before edges, and
/// right is what remains if the point is in no zone.
ResizeEdge EdgeAt(Toolkit::Point point, Toolkit::Size size, float margin);

/// The edge of a group or comment was pressed.
struct GroupResizingEventArgs : Toolkit::RoutedEventArgs {
  GroupResizingEventArgs(const Toolkit::RoutedEvent& event, Toolkit::Object* source, ResizeEdge edge)
      : RoutedEventArgs(event, source), edge(edge) {}
  ResizeEdge edge;
};

} // namespace Tesselor
