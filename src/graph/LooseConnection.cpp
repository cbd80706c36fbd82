#include "graph/LooseConnection.h"

#include "toolkit/controls/Canvas.h"

namespace Tesselor {

namespace {
constexpr int32_t ConnectionZIndex = -10;
}

Toolkit::Ptr<Connection> MakeLooseConnection(Toolkit::Canvas& panel, NodePinData& pin, Toolkit::Point end) {
  const auto connection = Toolkit::MakePtr<Connection>(pin);
  ConnectionPath& path = connection->GetPath();
  path.SetValue(Toolkit::UIElement::IsHitTestVisibleProperty, false);
  Toolkit::Panel::SetZIndex(&path, ConnectionZIndex);
  connection->SetFreeEnd(end);
  panel.AddChild(&path);
  return connection;
}

} // namespace Tesselor
