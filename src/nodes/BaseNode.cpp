#include "nodes/BaseNode.h"

#include "toolkit/controls/Canvas.h"

#include <string_view>

namespace Tesselor {

const Toolkit::RoutedEvent BaseNode::NodeMouseDownEvent("NodeMouseDown", Toolkit::RoutingStrategy::Bubble);
const Toolkit::RoutedEvent BaseNode::NodeMouseUpEvent("NodeMouseUp", Toolkit::RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(BaseNode, Toolkit::UserControl, "Tesselor.BaseNode")
void BaseNode::Describe(Toolkit::TypeBuilder<BaseNode>& type) {
  IsSelectedProperty = type.Property<bool>("IsSelected");
  type.Member<&BaseNode::GetTitleData>("TitleData");
  type.Event(&NodeMouseDownEvent);
  type.Event(&NodeMouseUpEvent);
  type.Handler<&BaseNode::Node_MouseDown>("Node_MouseDown", MouseDownEvent);
  type.Handler<&BaseNode::Node_MouseUp>("Node_MouseUp", MouseUpEvent);
}

BaseNode::BaseNode() : titleData(Toolkit::MakePtr<FieldTextData>()) {}

void BaseNode::SetTitle(std::string_view title) {
  if (title != Title()) titleData->SetValue(Toolkit::SharedString(title));
}

Toolkit::Rect BaseNode::Bounds() const {
  // A node that was never placed stands where canvases put it: at their corner.
  const auto placed = [](float coordinate) { return Toolkit::IsAuto(coordinate) ? 0 : coordinate; };
  const Toolkit::Size size = OwnSize();
  return {placed(Toolkit::Canvas::GetLeft(this)), placed(Toolkit::Canvas::GetTop(this)), size.width, size.height};
}

Toolkit::Point BaseNode::Middle() const {
  const Toolkit::Rect bounds = Bounds();
  return {bounds.x + bounds.width * 0.5f, bounds.y + bounds.height * 0.5f};
}

void BaseNode::Node_MouseDown(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  if (args.leftButton == Toolkit::MouseButtonState::Pressed)
    RaiseEvent(NodeMouseDownEventArgs(NodeMouseDownEvent, this, static_cast<int32_t>(args.clickCount)));
}

void BaseNode::Node_MouseUp(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  if (args.changedButton != Toolkit::MouseButton::Right) RaiseEvent(NodeMouseUpEventArgs(NodeMouseUpEvent, this));
}

} // namespace Tesselor
