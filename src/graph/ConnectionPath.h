#pragma once

#include "toolkit/controls/Shapes.h"

namespace Tesselor {

class Connection;

/// The curve of a connection as it lies on the canvas panel. It hands the mouse to its connection by itself: a
/// document has tens of thousands of these, for which a list of handlers each would be the larger part.
class ConnectionPath : public Toolkit::Path {
  TOOLKIT_TYPE(ConnectionPath)
public:
  explicit ConnectionPath(Connection& connection) : connection(&connection) {}
  /// The connection is about to go; others may hold the path for longer.
  void ReleaseConnection() { connection = nullptr; }

protected:
  void OnRoutedEvent(const Toolkit::RoutedEventArgs& args) override;

private:
  Connection* connection;
};

} // namespace Tesselor
