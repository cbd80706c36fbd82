#include "editor/gestures/ConnectionDragGesture.h"

#include "editor/NodeEditorCanvas.h"
#include "nodes/NodePinControl.h"
#include "toolkit/visual/Input.h"

namespace Tesselor {

using Toolkit::Point;

namespace {

constexpr int32_t ConnectionZIndex = -10;

/// The pin that the mouse is over, whatever has captured it; null if there is none.
NodePinData* PinUnderMouse() {
  const Toolkit::InputState* input = Toolkit::InputState::Current();
  for (const Toolkit::UIElement* e = input ? input->ElementAt(input->MousePosition()) : nullptr; e; e = e->UIParent())
    if (const auto* control = Toolkit::DynamicCast<NodePinControl>(e)) return control->PinData();
  return nullptr;
}

} // namespace

ConnectionDragGesture::ConnectionDragGesture(NodeEditorCanvas& canvas, NodePinData& pin, Point mouse,
                                             Callbacks callbacks)
    : canvas(canvas), source(pin), callbacks(std::move(callbacks)), connection(Toolkit::MakePtr<Connection>(pin)) {
  ConnectionPath& path = connection->GetPath();
  path.SetValue(Toolkit::UIElement::IsHitTestVisibleProperty, false);
  Toolkit::Panel::SetZIndex(&path, ConnectionZIndex);
  connection->SetFreeEnd(mouse);
  canvas.GetPanel()->AddChild(&path);
}

void ConnectionDragGesture::Move(Point mouse) { connection->SetFreeEnd(mouse); }

void ConnectionDragGesture::End(Point mouse) {
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

void ConnectionDragGesture::Cancel() { connection.Reset(); }

const char* ConnectionDragGesture::Cursor() const {
  const NodePinData* target = PinUnderMouse();
  return !target || target == &source || NodePinData::CanConnect(*target, source) ? "Cross" : "No";
}

} // namespace Tesselor
