#include "graph/ConnectionPath.h"

#include "graph/Connection.h"
#include "graph/CutLineGeometry.h"
#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"
#include "toolkit/render/PathOutline.h"

#include <algorithm>

namespace Tesselor {

using Toolkit::Point;
using Toolkit::Rect;

namespace {

constexpr float Thickness = 6;

/// All curves share these, which live as long as the process.
const Toolkit::Brush* BrushOf(ConnectionPath::Stroke stroke) {
  static const auto* normal = Toolkit::Brushes::White().Detach();
  static const auto* selected = Toolkit::Brushes::LightGreen().Detach();
  static const auto* hover = Toolkit::Brushes::Yellow().Detach();
  switch (stroke) {
  case ConnectionPath::Stroke::Selected: return selected;
  case ConnectionPath::Stroke::Hover: return hover;
  case ConnectionPath::Stroke::Normal: break;
  }
  return normal;
}

} // namespace

TOOLKIT_TYPE_IMPL(ConnectionPath, Toolkit::FrameworkElement, "Tesselor.ConnectionPath")
void ConnectionPath::Describe(Toolkit::TypeBuilder<ConnectionPath>&) {}

void ConnectionPath::SetCurve(const Curve& points) {
  if (curve == points) return;
  curve = points;
  InvalidateBounds();
}

void ConnectionPath::SetStroke(Stroke value) {
  if (stroke == value) return;
  stroke = value;
  InvalidateVisual();
}

Rect ConnectionPath::DrawnBounds() const {
  const auto [left, right] = std::minmax({curve[0].x, curve[1].x, curve[2].x, curve[3].x});
  const auto [top, bottom] = std::minmax({curve[0].y, curve[1].y, curve[2].y, curve[3].y});
  return {left - Thickness / 2, top - Thickness / 2, right - left + Thickness, bottom - top + Thickness};
}

void ConnectionPath::OnRender(Toolkit::Painter& painter) {
  Toolkit::PathOutline outline;
  outline.MoveTo(curve[0]);
  outline.CurveTo(curve[1], curve[2], curve[3]);
  painter.DrawPath(std::move(outline), nullptr, BrushOf(stroke), Thickness);
}

bool ConnectionPath::HitTestSelf(Point point) const {
  return DrawnBounds().Contains(point) && IsNearCurve(point, curve, Thickness / 2);
}

void ConnectionPath::OnRoutedEvent(const Toolkit::RoutedEventArgs& args) {
  FrameworkElement::OnRoutedEvent(args);
  if (connection) connection->OnPathEvent(*args.event);
}

} // namespace Tesselor
