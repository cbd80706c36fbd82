#include "nodes/BaseNode.h"

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

void BaseNode::Node_MouseDown(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  if (args.leftButton == Toolkit::MouseButtonState::Pressed)
    RaiseEvent(NodeMouseDownEventArgs(NodeMouseDownEvent, this, static_cast<int32_t>(args.clickCount)));
}

void BaseNode::Node_MouseUp(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  if (args.changedButton != Toolkit::MouseButton::Right) RaiseEvent(NodeMouseUpEventArgs(NodeMouseUpEvent, this));
}

} // namespace Tesselor
