#include "editor/gestures/CanvasGestures.h"

#include "editor/NodeEditorCanvas.h"
#include "editor/gestures/CutLineGesture.h"
#include "editor/gestures/FrameResizeGesture.h"
#include "editor/gestures/NodeDragGesture.h"
#include "editor/gestures/PanGesture.h"
#include "editor/gestures/RubberBandGesture.h"
#include "graph/Graph.h"
#include "nodes/CommentNode.h"
#include "nodes/GroupNode.h"
#include "nodes/NodePinControl.h"
#include "toolkit/visual/Input.h"

#include <utility>

namespace Tesselor {

using Toolkit::Canvas;
using Toolkit::DynamicCast;
using Toolkit::Key;
using Toolkit::Keyboard;
using Toolkit::MouseButton;
using Toolkit::Ptr;
using Toolkit::RoutedEventHandler;
using Toolkit::UIElement;

namespace {

bool IsEitherDown(Key left, Key right) { return Keyboard::IsKeyDown(left) || Keyboard::IsKeyDown(right); }

/// The empty canvas and the inside of groups, where the view is panned.
bool IsBackground(Toolkit::Object* source) {
  if (DynamicCast<Canvas>(source)) return true;
  for (const auto* element = DynamicCast<UIElement>(source); element; element = element->UIParent())
    if (DynamicCast<GroupNode>(element)) return true;
  return false;
}

} // namespace

template <class Visit> void CanvasGestures::ForEachHandler(Visit visit) {
  visit(UIElement::PreviewMouseDownEvent, RoutedEventHandler::From<&CanvasGestures::OnPress>(this));
  visit(UIElement::PreviewMouseMoveEvent, RoutedEventHandler::From<&CanvasGestures::OnMove>(this));
  visit(UIElement::PreviewMouseUpEvent, RoutedEventHandler::From<&CanvasGestures::OnRelease>(this));
  visit(UIElement::LostMouseCaptureEvent, RoutedEventHandler::From<&CanvasGestures::OnLostMouse>(this));
  visit(BaseNode::NodeMouseDownEvent, RoutedEventHandler::From<&CanvasGestures::OnNodePress>(this));
  visit(NodePinControl::NodePinMouseDownEvent, RoutedEventHandler::From<&CanvasGestures::OnPinPress>(this));
  visit(GroupNode::GroupResizingEvent, RoutedEventHandler::From<&CanvasGestures::OnFramePress>(this));
  visit(CommentNode::CommentResizingEvent, RoutedEventHandler::From<&CanvasGestures::OnFramePress>(this));
}

CanvasGestures::CanvasGestures(NodeEditorCanvas& canvas, Graph& graph, Callbacks callbacks)
    : canvas(canvas), graph(graph), callbacks(std::move(callbacks)), clicks(graph) {
  ForEachHandler([&canvas](const auto& event, auto handler) { canvas.GetPanel()->AddHandler(event, handler); });
}

CanvasGestures::~CanvasGestures() {
  Cancel();
  ForEachHandler([this](const auto& event, auto handler) { canvas.GetPanel()->RemoveHandler(event, handler); });
}

void CanvasGestures::OnPress(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  if (IsUnderWay() || !IsBackground(args.source)) return;
  canvas.GetPanel()->Focus();
  const Toolkit::Point mouse = canvas.MousePosition();
  if (args.changedButton == MouseButton::Right)
    Begin(std::make_unique<PanGesture>(canvas, mouse, PanGesture::Click::OpensMenu), MouseButton::Right);
  else if (args.changedButton != MouseButton::Left || !DynamicCast<Canvas>(args.source))
    return;
  else if (IsEitherDown(Key::LeftShift, Key::RightShift))
    Begin(std::make_unique<CutLineGesture>(canvas, mouse), MouseButton::Left);
  else
    Begin(std::make_unique<RubberBandGesture>(canvas, mouse), MouseButton::Left);
}

void CanvasGestures::OnNodePress(Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
  auto* node = DynamicCast<BaseNode>(args.source);
  if (!node || IsUnderWay()) return;
  const bool adds = Keyboard::IsKeyDown(Key::LeftCtrl);
  clicks.Press(*node, adds);
  auto* content = DynamicCast<ContentNode>(args.source);
  if (content && static_cast<const NodeMouseDownEventArgs&>(args).clickCount % 2 == 0) callbacks.openNode(*content);
  Begin(std::make_unique<NodeDragGesture>(
            graph, canvas.MousePosition(),
            [this, pressed = Ptr<BaseNode>(node)] { clicks.Click(*pressed, Keyboard::IsKeyDown(Key::LeftCtrl)); }),
        MouseButton::Left);
}

void CanvasGestures::OnPinPress(Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
  const auto* control = DynamicCast<NodePinControl>(args.source);
  NodePinData* pin = control ? control->PinData() : nullptr;
  if (!pin || IsUnderWay()) return;
  graph.Connections().DeselectAll();
  Begin(std::make_unique<ConnectionDragGesture>(canvas, *pin, canvas.MousePosition(), callbacks.connection),
        MouseButton::Left);
}

void CanvasGestures::OnFramePress(Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
  auto* frame = DynamicCast<FrameNode>(args.source);
  if (!frame || IsUnderWay()) return;
  const ResizeEdge edge = static_cast<const GroupResizingEventArgs&>(args).edge;
  Begin(std::make_unique<FrameResizeGesture>(*frame, edge, canvas.MousePosition()), MouseButton::Left);
}

void CanvasGestures::OnMove(Toolkit::Object*, const Toolkit::MouseEventArgs&) {
  if (gesture) gesture->Move(canvas.MousePosition());
}

void CanvasGestures::OnRelease(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  if (!gesture || args.changedButton != heldButton) return;
  const std::unique_ptr<Gesture> ended = TakeGesture();
  ended->End(canvas.MousePosition());
}

void CanvasGestures::OnLostMouse(Toolkit::Object*, const Toolkit::RoutedEventArgs&) { Cancel(); }

void CanvasGestures::Begin(std::unique_ptr<Gesture> begun, MouseButton button) {
  Cancel();
  gesture = std::move(begun);
  heldButton = button;
  if (!canvas.GetPanel()->CaptureMouse()) Cancel();
}

std::unique_ptr<Gesture> CanvasGestures::TakeGesture() {
  std::unique_ptr<Gesture> taken = std::move(gesture);
  // There is no gesture any more that the loss of the mouse could cancel.
  canvas.GetPanel()->ReleaseMouseCapture();
  return taken;
}

bool CanvasGestures::Cancel() {
  if (!gesture) return false;
  TakeGesture()->Cancel();
  return true;
}

} // namespace Tesselor
