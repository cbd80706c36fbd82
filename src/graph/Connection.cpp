#include "graph/Connection.h"

#include "toolkit/controls/Panel.h"

#include <algorithm>
#include <cmath>

namespace Tesselor {

using Toolkit::Point;
using Toolkit::Ptr;
using Toolkit::UIElement;

const Toolkit::RoutedEvent Connection::ConnectionClickedEvent("ConnectionClicked", Toolkit::RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(Connection, Toolkit::Object, "Tesselor.Connection")
void Connection::Describe(Toolkit::TypeBuilder<Connection>& type) { type.Event(&ConnectionClickedEvent); }

Connection::Connection(NodePinData& pin) : path(Toolkit::MakePtr<ConnectionPath>(*this)) {
  SetPin(pin);
  freeEnd = pin.owner->AnchorOf(pin);
}

Connection::Connection(NodePinData& a, NodePinData& b) : path(Toolkit::MakePtr<ConnectionPath>(*this)) {
  SetPin(a);
  SetPin(b);
}

Connection::~Connection() {
  path->ReleaseConnection();
  if (auto* panel = Toolkit::DynamicCast<Toolkit::Panel>(path->VisualParent())) panel->RemoveChild(path.Get());
}

void Connection::SetPin(NodePinData& pin) {
  (pin.IsInput() ? inputPin : outputPin) = &pin;
  (pin.IsInput() ? inputNode : outputNode) = Ptr<ContentNode>(pin.owner);
}

void Connection::Bend() {
  const Point input = inputPin ? inputNode->AnchorOf(*inputPin) : freeEnd;
  const Point output = outputPin ? outputNode->AnchorOf(*outputPin) : freeEnd;
  path->SetCurve(CurveBetween(input, output));
}

void Connection::SetFreeEnd(Point point) {
  freeEnd = point;
  Bend();
}

Curve Connection::CurveBetween(Point input, Point output) {
  const float dx = std::abs(output.x - input.x);
  const float dy = std::abs(output.y - input.y);
  const float reach = std::min(std::max(dx / 20, std::min(dy, 100.0f)), std::sqrt(25 * dx) + 100);
  return {input, {input.x - reach, input.y}, {output.x + reach, output.y}, output};
}

void Connection::OnPathEvent(const Toolkit::RoutedEvent& event) {
  if (&event == &UIElement::PreviewMouseDownEvent)
    path->RaiseEvent(ConnectionClickedEventArgs(ConnectionClickedEvent, this));
  else if (&event == &UIElement::MouseEnterEvent && !IsShownSelected())
    path->SetStroke(ConnectionPath::Stroke::Hover);
  else if (&event == &UIElement::MouseLeaveEvent && !IsShownSelected())
    path->SetStroke(ConnectionPath::Stroke::Normal);
}

} // namespace Tesselor
