#include "nodes/FrameNode.h"

#include "nodes/NodeKeys.h"
#include "nodes/NodePosition.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/visual/Input.h"

#include <algorithm>
#include <cmath>

namespace Tesselor {

using Toolkit::Visibility;

namespace {

constexpr float MinimumWidth = 100;
/// On screen, whatever the zoom.
constexpr float BorderOnScreen = 7.5f;
constexpr int32_t NearestZIndex = -15;

} // namespace

TOOLKIT_TYPE_IMPL(FrameNode, BaseNode, "Tesselor.FrameNode")
void FrameNode::Describe(Toolkit::TypeBuilder<FrameNode>& type) {
  type.Handler<&FrameNode::TitleTextBox_KeyUp>("TitleTextBox_KeyUp", PreviewKeyUpEvent);
  type.Handler<&FrameNode::TitleTextBox_LostFocus>("TitleTextBox_LostFocus", LostFocusEvent);
}

void FrameNode::SetResizeWidth(float value) {
  SetValue(properties->width, value >= MinimumWidth ? value : MinimumWidth);
}

void FrameNode::SetResizeHeight(float value) {
  SetValue(properties->height, value >= minimumHeight ? value : minimumHeight);
}

void FrameNode::RefreshZIndex() {
  // A frame from a damaged file may be larger than any index.
  const float area = std::trunc(FrameWidth() * FrameHeight());
  const float largest = 2147483520.0f;
  const int32_t index = -static_cast<int32_t>(std::isnan(area) ? 0 : std::clamp(area, 0.0f, largest));
  Toolkit::Canvas::SetZIndex(this, std::min(index, NearestZIndex));
}

Toolkit::Rect FrameNode::DrawnBounds() const {
  const UIElement* content = ContentElement();
  return content ? content->TransformToParent().MapBounds(content->DrawnBounds()) : BaseNode::DrawnBounds();
}

ResizeEdge FrameNode::HitTestEdge(const Toolkit::Border& border) const {
  return EdgeAt(Toolkit::Mouse::GetPosition(&border), border.RenderSize(), 2 * FrameBorder());
}

void FrameNode::Resize(const Toolkit::Rect& startBounds, ResizeEdge edge, Toolkit::Point moved) {
  const bool movesRight = edge == ResizeEdge::Right || edge == ResizeEdge::TopRight || edge == ResizeEdge::BottomRight;
  const bool movesLeft = edge == ResizeEdge::Left || edge == ResizeEdge::TopLeft || edge == ResizeEdge::BottomLeft;
  const bool movesTop = edge == ResizeEdge::Top || edge == ResizeEdge::TopLeft || edge == ResizeEdge::TopRight;
  const bool movesBottom =
      edge == ResizeEdge::Bottom || edge == ResizeEdge::BottomLeft || edge == ResizeEdge::BottomRight;
  Toolkit::Rect bounds = startBounds;
  if (movesRight) bounds.width += moved.x;
  if (movesBottom) bounds.height += moved.y;
  if (movesLeft) {
    bounds.x += moved.x;
    bounds.width -= moved.x;
  }
  if (movesTop) {
    bounds.y += moved.y;
    bounds.height -= moved.y;
  }
  SetBounds(bounds);
}

void FrameNode::SetBounds(const Toolkit::Rect& bounds) {
  Toolkit::Canvas::SetLeft(this, bounds.x);
  Toolkit::Canvas::SetTop(this, bounds.y);
  SetResizeWidth(bounds.width);
  SetResizeHeight(bounds.height);
  RefreshZIndex();
}

void FrameNode::SetZoom(float zoom) { SetValue(properties->borderThickness, BorderOnScreen / zoom); }

void FrameNode::BeginTitleEdit() {
  SetValue(properties->titleTextVisibility, Visibility::Collapsed);
  SetValue(properties->titleInputVisibility, Visibility::Visible);
  BaseNode::BeginTitleEdit();
}

void FrameNode::EndTitleEdit() {
  LeaveTitle();
  SetValue(properties->titleTextVisibility, Visibility::Visible);
  SetValue(properties->titleInputVisibility, Visibility::Collapsed);
}

JsonPtr FrameNode::ToJson() const {
  JsonPtr json(cJSON_CreateObject());
  SaveExactPosition(*this, json.get());
  cJSON_AddNumberToObject(json.get(), Keys::Width, FrameWidth());
  cJSON_AddNumberToObject(json.get(), Keys::Height, FrameHeight());
  cJSON_AddStringToObject(json.get(), Keys::FrameName, std::string(Title()).c_str());
  return json;
}

void FrameNode::Node_MouseDown(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  if (args.changedButton != Toolkit::MouseButton::Left) return;
  if (const Toolkit::Border* frame = SourceFrame(args))
    RaiseEvent(GroupResizingEventArgs(*resizing, this, HitTestEdge(*frame)));
  else
    RaiseEvent(NodeMouseDownEventArgs(NodeMouseDownEvent, this, static_cast<int32_t>(args.clickCount)));
}

void FrameNode::Node_MouseUp(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  // The end of a drag or a resize is the view's, on the container; this tells of other buttons only.
  if (args.leftButton == Toolkit::MouseButtonState::Pressed) RaiseEvent(NodeMouseUpEventArgs(NodeMouseUpEvent, this));
}

void FrameNode::TitleTextBox_KeyUp(Toolkit::Object*, const Toolkit::KeyEventArgs& args) {
  if (args.key == Toolkit::Key::Return && endsAtReturn) EndTitleEdit();
}

void FrameNode::TitleTextBox_LostFocus(Toolkit::Object*, const Toolkit::RoutedEventArgs&) { EndTitleEdit(); }

const Toolkit::Border* FrameNode::SourceFrame(const Toolkit::RoutedEventArgs& args) const {
  const auto* border = Toolkit::DynamicCast<Toolkit::Border>(args.source);
  return border && border->GetName() == names->border ? border : nullptr;
}

} // namespace Tesselor
