#include "nodes/NodePinControl.h"

#include "toolkit/controls/ContentControl.h"
#include "toolkit/markup/GUI.h"

#include <string_view>

namespace Tesselor {

const Toolkit::RoutedEvent NodePinControl::NodePinMouseDownEvent("NodePinMouseDown", Toolkit::RoutingStrategy::Bubble);
const Toolkit::RoutedEvent NodePinControl::NodePinMouseUpEvent("NodePinMouseUp", Toolkit::RoutingStrategy::Bubble);

const Toolkit::RoutedEvent NodePinControl::NodePinMenuEvent("NodePinMenu", Toolkit::RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(NodePinControl, Toolkit::UserControl, "Tesselor.NodePin")
void NodePinControl::Describe(Toolkit::TypeBuilder<NodePinControl>& type) {
  AnchorProperty = type.Property<Toolkit::Point>("Anchor");
  IsInputProperty = type.Property<bool>("IsInput");
  IsPendingConnectionProperty = type.Property<bool>("IsPendingConnection");
  type.Event(&NodePinMouseDownEvent);
  type.Event(&NodePinMouseUpEvent);
  type.Event(&NodePinMenuEvent);
  type.Handler<&NodePinControl::Pin_MouseDown>("Pin_MouseDown", PreviewMouseDownEvent);
  type.Handler<&NodePinControl::Pin_MouseUp>("Pin_MouseUp", PreviewMouseUpEvent);
}

void NodePinControl::MakeControls() {
  if (hasControls) return;
  hasControls = true;
  InitializeComponent();
}

PinRoom* NodePinControl::SharedRoom() const {
  const NodePinData* pin = PinData();
  return pin && pin->IsVisible() && !pin->IsBlank() && !pin->PinFieldContent() ? &pin->blueprint->room : nullptr;
}

Toolkit::Size NodePinControl::MeasureOverride(Toolkit::Size available) {
  PinRoom* room = SharedRoom();
  if (!hasControls && room && room->isSizeKnown && room->available == available) return room->wanted;
  MakeControls();
  const Toolkit::Size wanted = UserControl::MeasureOverride(available);
  if (room && !room->isSizeKnown) *room = {true, false, available, wanted, {}};
  return wanted;
}

Toolkit::Size NodePinControl::ArrangeOverride(Toolkit::Size finalSize) {
  PinRoom* room = SharedRoom();
  // The one that was measured for all may have gone.
  if (!hasControls && room && !room->isShapeKnown) {
    MakeControls();
    UserControl::MeasureOverride(room->available);
  }
  const Toolkit::Size taken = UserControl::ArrangeOverride(finalSize);
  if (!hasControls || !room || room->isShapeKnown || !(room->wanted == DesiredSize()) || !PinElement()) return taken;
  const Toolkit::Point shape = PinCentre(this);
  room->shape = {IsInput() ? shape.x : taken.width - shape.x, shape.y};
  room->isShapeKnown = true;
  return taken;
}

void NodePinControl::InitializeComponent() { Toolkit::GUI::LoadComponent(*this, "NodePin.xaml"); }

NodePinData* NodePinControl::PinData() const { return Toolkit::DynamicCast<NodePinData>(GetDataContext()); }

Toolkit::FrameworkElement* NodePinControl::PinElement() const {
  if (Toolkit::FrameworkElement* known = pinElement.Get()) return known;
  const auto* holder = FindName<Toolkit::ContentControl>("NodePinContentControl");
  const auto* row = holder ? Toolkit::DynamicCast<FrameworkElement>(holder->ContentElement()) : nullptr;
  FrameworkElement* found = row ? row->FindName<FrameworkElement>("Pin") : nullptr;
  if (found) pinElement = Toolkit::WeakPtr<FrameworkElement>(found);
  return found;
}

Toolkit::Point NodePinControl::PinCentre(const Toolkit::UIElement* ancestor) const {
  if (const PinRoom* room = hasControls ? nullptr : SharedRoom()) {
    const float x = IsInput() ? room->shape.x : ActualWidth() - room->shape.x;
    return TransformToAncestor(ancestor).Map({x, room->shape.y});
  }
  const FrameworkElement* pin = PinElement();
  if (!pin) return {};
  const Toolkit::Point corner = pin->TransformToAncestor(ancestor).Map({0, 0});
  return {corner.x + pin->ActualWidth() / 2, corner.y + pin->ActualHeight() / 2};
}

void NodePinControl::Pin_MouseDown(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  if (args.changedButton == Toolkit::MouseButton::Middle) return;
  args.handled = true;
  if (args.changedButton == Toolkit::MouseButton::Right)
    ShowPinContextMenu();
  else
    RaiseEvent(Toolkit::RoutedEventArgs(NodePinMouseDownEvent, this));
}

void NodePinControl::Pin_MouseUp(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  args.handled = true;
  RaiseEvent(Toolkit::RoutedEventArgs(NodePinMouseUpEvent, this));
}

void NodePinControl::ShowPinContextMenu() { RaiseEvent(Toolkit::RoutedEventArgs(NodePinMenuEvent, this)); }

} // namespace Tesselor
