#pragma once

#include "toolkit/visual/FrameworkElement.h"

#include <array>

namespace Toolkit {
class SolidColorBrush;
}

namespace Tesselor {

class Connection;

/// The four points of a cubic curve: start, two control points, end.
using Curve = std::array<Toolkit::Point, 4>;

/// The curve of a connection as it lies on the canvas panel, in panel coordinates. It draws itself and hands the mouse
/// to its connection: a document has tens of thousands of these, for which a geometry and a list of handlers each
/// would be the larger part.
class ConnectionPath : public Toolkit::FrameworkElement {
  TOOLKIT_TYPE(ConnectionPath)
public:
  enum class Stroke { Normal, Selected, Hover };

  explicit ConnectionPath(Connection& connection) : connection(&connection) {}
  /// The connection is about to go; others may hold the path for longer.
  void ReleaseConnection() { connection = nullptr; }

  const Curve& GetCurve() const { return curve; }
  void SetCurve(const Curve& points);
  Stroke GetStroke() const { return stroke; }
  void SetStroke(Stroke value);

  Toolkit::Rect DrawnBounds() const override;

protected:
  void OnRender(Toolkit::Painter& painter) override;
  /// True within half the stroke's width of the curve.
  bool HitTestSelf(Toolkit::Point point) const override;
  void OnRoutedEvent(const Toolkit::RoutedEventArgs& args) override;

private:
  Connection* connection;
  Curve curve{};
  Stroke stroke = Stroke::Normal;
};

} // namespace Tesselor
