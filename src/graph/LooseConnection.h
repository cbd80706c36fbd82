#pragma once

#include "graph/Connection.h"

namespace Toolkit {
class Canvas;
}

namespace Tesselor {

/// A curve from a pin to a point of the panel, on which it stays as long as somebody holds it. It takes no mouse.
Toolkit::Ptr<Connection> MakeLooseConnection(Toolkit::Canvas& panel, NodePinData& pin, Toolkit::Point end);

} // namespace Tesselor
