#include "editor/gestures/ConnectionDragGesture.h"

#include "editor/ConnectionRefusal.h"
#include "editor/NodeEditorCanvas.h"
#include "graph/LooseConnection.h"
#include "nodes/NodePinControl.h"
#include "toolkit/visual/Input.h"

namespace Tesselor {

using Toolkit::Point;

namespace {

/// The pin that the mouse is over, whatever has captured it; null if there is none.
NodePinControl* ControlUnderMouse() {
  const Toolkit::InputState* input = Toolkit::InputState::Current();
  for (Toolkit::UIElement* e = input ? input->ElementAt(input->MousePosition()) : nullptr; e; e = e->UIParent())
    if (auto* control = Toolkit::DynamicCast<NodePinControl>(e)) return control;
  return nullptr;
}

NodePinData* PinUnderMouse() {
  const NodePinControl* control = ControlUnderMouse();
  return control ? control->PinData() : nullptr;
}

} // namespace

ConnectionDragGesture::ConnectionDragGesture(NodeEditorCanvas& canvas, NodePinData& pin, Point mouse,
                                             Callbacks callbacks)
    : source(pin), callbacks(std::move(callbacks)), connection(MakeLooseConnection(*canvas.GetPanel(), pin, mouse)) {}

void ConnectionDragGesture::Mark(NodePinControl* target) {
  if (marked == target) return;
  if (marked) marked->SetPendingConnection(false);
  // One that pulses already, since a connection was begun at it, goes on when the mouse has left it.
  const bool isNew = target && !target->Get<bool>(NodePinControl::IsPendingConnectionProperty);
  marked = Toolkit::Ptr<NodePinControl>(isNew ? target : nullptr);
  if (marked) marked->SetPendingConnection(true);
}

void ConnectionDragGesture::Move(Point mouse) {
  connection->SetFreeEnd(mouse);
  NodePinControl* target = ControlUnderMouse();
  const NodePinData* pin = target ? target->PinData() : nullptr;
  Mark(pin && ConnectionRefusal(*pin, source).empty() ? target : nullptr);
}

void ConnectionDragGesture::End(Point mouse) {
  Mark(nullptr);
  NodePinData* target = PinUnderMouse();
  if (!target) {
    callbacks.drop(std::move(connection), mouse);
    return;
  }
  connection.Reset();
  if (target == &source)
    callbacks.click(source);
  else
    callbacks.connect(*target, source);
}

void ConnectionDragGesture::Cancel() {
  Mark(nullptr);
  connection.Reset();
}

const char* ConnectionDragGesture::Cursor() const {
  const NodePinData* target = PinUnderMouse();
  return !target || target == &source || NodePinData::CanConnect(*target, source) ? "Cross" : "No";
}

} // namespace Tesselor
