#include "nodes/BaseNode.h"

#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/TextBox.h"

#include <string_view>
#include <vector>

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

size_t BaseNode::EstimateBytes() const {
  // Of a loaded document, with the elements' share of bindings, values and handlers.
  constexpr size_t BytesPerElement = 450;
  size_t elements = 0, texts = 0;
  std::vector<const UIElement*> waiting{this};
  while (!waiting.empty()) {
    const UIElement* element = waiting.back();
    waiting.pop_back();
    ++elements;
    if (const auto* box = Toolkit::DynamicCast<Toolkit::TextBox>(element)) texts += box->GetText().size();
    for (size_t i = 0; i < element->VisualChildCount(); ++i)
      if (const UIElement* child = element->VisualChild(i)) waiting.push_back(child);
  }
  return elements * BytesPerElement + texts;
}

void BaseNode::Node_MouseDown(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  if (args.leftButton == Toolkit::MouseButtonState::Pressed)
    RaiseEvent(NodeMouseDownEventArgs(NodeMouseDownEvent, this, static_cast<int32_t>(args.clickCount)));
}

void BaseNode::Node_MouseUp(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  if (args.changedButton != Toolkit::MouseButton::Right) RaiseEvent(NodeMouseUpEventArgs(NodeMouseUpEvent, this));
}

} // namespace Tesselor
