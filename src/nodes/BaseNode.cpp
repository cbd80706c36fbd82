#include "nodes/BaseNode.h"

#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/visual/Input.h"

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
  type.Handler<&BaseNode::Header_MouseDown>("Header_MouseDown", PreviewMouseDownEvent);
  type.Handler<&BaseNode::TitleTextBox_KeyDown>("TitleTextBox_KeyDown", PreviewKeyDownEvent);
  type.Handler<&BaseNode::TitleTextBox_GotFocus>("TitleTextBox_GotFocus", GotFocusEvent);
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

Toolkit::TextBox* BaseNode::TitleBox() const { return FindName<Toolkit::TextBox>(TitleBoxName()); }

void BaseNode::BeginTitleEdit() {
  Toolkit::TextBox* box = TitleBox();
  if (!box) return;
  // A box that has only just been shown has its place before the caret is brought into sight.
  UpdateLayout();
  box->Focus();
  box->Select(0, box->LineLength(0));
}

void BaseNode::LeaveTitle() {
  Toolkit::InputState* input = Toolkit::InputState::Current();
  Toolkit::TextBox* box = TitleBox();
  if (input && box) input->HandFocusOn(*box);
}

void BaseNode::Header_MouseDown(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  const Toolkit::TextBox* box = TitleBox();
  if (!box || args.source == box || args.clickCount != 2 || args.changedButton != Toolkit::MouseButton::Left) return;
  // A box that shows only while it is edited leaves the whole header to the title.
  const Toolkit::Rect area{0, 0, box->ActualWidth(), box->ActualHeight()};
  if (box->IsVisible() && !area.Contains(Toolkit::Mouse::GetPosition(box))) return;
  BeginTitleEdit();
  // The press that begins an edit is not one on the node, which would take the focus again.
  args.handled = true;
}

void BaseNode::TitleTextBox_KeyDown(Toolkit::Object*, const Toolkit::KeyEventArgs& args) {
  if (args.key == Toolkit::Key::Return) {
    OnTitleReturn();
  } else if (args.key == Toolkit::Key::Escape) {
    titleData->SetValue(titleBefore);
    LeaveTitle();
    args.handled = true;
  }
}

void BaseNode::TitleTextBox_GotFocus(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  titleBefore = titleData->GetText();
}

void BaseNode::Node_MouseDown(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  // A second button while the left one is held is no press of that one.
  if (args.changedButton == Toolkit::MouseButton::Left)
    RaiseEvent(NodeMouseDownEventArgs(NodeMouseDownEvent, this, static_cast<int32_t>(args.clickCount)));
}

void BaseNode::Node_MouseUp(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  if (args.changedButton != Toolkit::MouseButton::Right) RaiseEvent(NodeMouseUpEventArgs(NodeMouseUpEvent, this));
}

} // namespace Tesselor
