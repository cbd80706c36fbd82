#include "graph/Connection.h"

#include "graph/ConnectionPath.h"

#include <algorithm>
#include <cmath>

namespace Tesselor {

using Toolkit::Brush;
using Toolkit::Brushes;
using Toolkit::Point;
using Toolkit::Ptr;
using Toolkit::UIElement;

namespace {

constexpr float PathThickness = 6;

/// A brush for one state of all connections. It lives as long as the process.
Brush* StrokeBrush(const Ptr<Toolkit::SolidColorBrush>& original) { return original->Clone().Detach(); }

/// Ends the link of two pins, if it is there. The shorter list is searched, since one pin may have thousands.
void Unlink(NodePinData& a, NodePinData& b) {
  const bool isLinked = a.connections.size() < b.connections.size() ? a.IsConnectedTo(b) : b.IsConnectedTo(a);
  if (isLinked) a.RemoveConnection(b);
}

} // namespace

const Toolkit::RoutedEvent Connection::ConnectionClickedEvent("ConnectionClicked", Toolkit::RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(Connection, Toolkit::DependencyObject, "Tesselor.Connection")
void Connection::Describe(Toolkit::TypeBuilder<Connection>& type) {
  InputSourceProperty = type.Property<Point>("InputSource");
  OutputSourceProperty = type.Property<Point>("OutputSource");
  PathGeometryProperty = type.Property<Toolkit::PathGeometry*>("PathGeometry");
  type.Event(&ConnectionClickedEvent);
}

Connection::Connection()
    : segment(Toolkit::MakePtr<Toolkit::BezierSegment>()), figure(Toolkit::MakePtr<Toolkit::PathFigure>()),
      geometry(Toolkit::MakePtr<Toolkit::PathGeometry>()) {
  figure->SetIsClosed(false);
  figure->AddSegment(segment.Get());
  geometry->AddFigure(figure.Get());
  SetValue(PathGeometryProperty, geometry);
}

Connection::~Connection() {
  if (path) {
    path->ReleaseConnection();
    if (auto* panel = Toolkit::DynamicCast<Toolkit::Panel>(static_cast<Toolkit::Object*>(path->VisualParent())))
      panel->RemoveChild(path.Get());
  }
  if (!ownsLink || !inputPin || !outputPin) return;
  NodePinData* input = inputPin->PinData();
  NodePinData* output = outputPin->PinData();
  if (input && output) Unlink(*input, *output);
}

void Connection::SetPin(NodePinControl* control, Toolkit::Canvas* onPanel) {
  const NodePinData* data = control->PinData();
  const Ptr<ContentNode> node(data ? data->owner : nullptr);
  if (control->IsInput()) {
    inputPin = Ptr<NodePinControl>(control);
    inputNode = node;
    SetInputSource(control->PinCentre(onPanel));
  } else {
    outputPin = Ptr<NodePinControl>(control);
    outputNode = node;
    SetOutputSource(control->PinCentre(onPanel));
  }
}

void Connection::Refresh(Toolkit::Canvas* onPanel) {
  if (inputPin) SetInputSource(inputPin->PinCentre(onPanel));
  if (outputPin) SetOutputSource(outputPin->PinCentre(onPanel));
  UpdateCurve();
}

void Connection::UpdateCurve() {
  const Point input = GetInputSource(), output = GetOutputSource();
  // Most curves of a refresh stay where they are. A new one is a point at the origin, as its segment is.
  if (input == curveInput && output == curveOutput) return;
  curveInput = input;
  curveOutput = output;
  const std::array<Point, 4> curve = CurveBetween(input, output);
  figure->SetStartPoint(curve[0]);
  segment->SetPoint1(curve[1]);
  segment->SetPoint2(curve[2]);
  segment->SetPoint3(curve[3]);
  if (path) {
    path->InvalidateMeasure();
    path->InvalidateVisual();
  }
}

void Connection::CreatePath() {
  path = Toolkit::MakePtr<ConnectionPath>(*this);
  path->SetStroke(NormalBrush());
  path->SetValue(Toolkit::Shape::StrokeThicknessProperty, PathThickness);
  path->SetData(geometry.Get());
}

Toolkit::Path* Connection::GetPath() const { return path.Get(); }

bool Connection::IsShownSelected() const { return path && path->GetStroke() == SelectedBrush(); }

std::array<Point, 4> Connection::CurveBetween(Point input, Point output) {
  const float dx = std::abs(output.x - input.x);
  const float dy = std::abs(output.y - input.y);
  const float reach = std::min(std::max(dx / 20, std::min(dy, 100.0f)), std::sqrt(25 * dx) + 100);
  return {input, {input.x - reach, input.y}, {output.x + reach, output.y}, output};
}

Brush* Connection::NormalBrush() {
  static Brush* brush = StrokeBrush(Brushes::White());
  return brush;
}

Brush* Connection::SelectedBrush() {
  static Brush* brush = StrokeBrush(Brushes::LightGreen());
  return brush;
}

Brush* Connection::HoverBrush() {
  static Brush* brush = StrokeBrush(Brushes::Yellow());
  return brush;
}

void Connection::SetStroke(Brush* brush) {
  if (path) path->SetStroke(brush);
}

void Connection::OnPathEvent(const Toolkit::RoutedEvent& event) {
  if (&event == &UIElement::PreviewMouseDownEvent)
    path->RaiseEvent(ConnectionClickedEventArgs(ConnectionClickedEvent, this));
  else if (&event == &UIElement::MouseEnterEvent && !IsShownSelected())
    SetStroke(HoverBrush());
  else if (&event == &UIElement::MouseLeaveEvent && !IsShownSelected())
    SetStroke(NormalBrush());
}

} // namespace Tesselor
