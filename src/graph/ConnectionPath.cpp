#include "graph/ConnectionPath.h"

#include "graph/Connection.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(ConnectionPath, Toolkit::Path, "Tesselor.ConnectionPath")
void ConnectionPath::Describe(Toolkit::TypeBuilder<ConnectionPath>&) {}

void ConnectionPath::OnRoutedEvent(const Toolkit::RoutedEventArgs& args) {
  Toolkit::Path::OnRoutedEvent(args);
  if (connection) connection->OnPathEvent(*args.event);
}

} // namespace Tesselor
