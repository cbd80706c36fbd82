#pragma once

#include "editor/gestures/Gesture.h"
#include "graph/Connection.h"
#include "nodes/NodePinControl.h"

#include <functional>

namespace Tesselor {

class NodeEditorCanvas;

/// Draws a curve from a pin to the mouse. Released over another pin it asks for a connection, over its own pin it is a
/// click, and anywhere else it hands the curve over.
class ConnectionDragGesture : public Gesture {
public:
  struct Callbacks {
    std::function<void(NodePinData& target, NodePinData& source)> connect;
    std::function<void(NodePinData& pin)> click;
    /// The curve stays on the panel as long as somebody holds it.
    std::function<void(Toolkit::Ptr<Connection> connection, Toolkit::Point mouse)> drop;
  };
  ConnectionDragGesture(NodeEditorCanvas& canvas, NodePinData& pin, Toolkit::Point mouse, Callbacks callbacks);
  void Move(Toolkit::Point mouse) override;
  void End(Toolkit::Point mouse) override;
  void Cancel() override;
  /// Tells whether the pin under the mouse refuses the connection.
  const char* Cursor() const override;

private:
  /// Shows the pin at which the connection would end; null shows none.
  void Mark(NodePinControl* target);

  NodePinData& source;
  Callbacks callbacks;
  Toolkit::Ptr<Connection> connection;
  Toolkit::Ptr<NodePinControl> marked;
};

} // namespace Tesselor
