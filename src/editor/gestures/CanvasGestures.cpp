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
#include "toolkit/controls/TextBox.h"
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
using Toolkit::TextBox;
using Toolkit::UIElement;

namespace {

bool IsEitherDown(Key left, Key right) { return Keyboard::IsKeyDown(left) || Keyboard::IsKeyDown(right); }

bool IsShiftDown() { return IsEitherDown(Key::LeftShift, Key::RightShift); }

/// Space makes the left button pan, except where it is typed.
bool SpacePans() { return Keyboard::IsKeyDown(Key::Space) && !DynamicCast<TextBox>(Keyboard::GetFocused()); }

/// The empty canvas and the inside of groups, where the view is panned. The title of a group that is being edited is
/// text like any other.
bool IsBackground(Toolkit::Object* source) {
  if (DynamicCast<Canvas>(source)) return true;
  if (DynamicCast<TextBox>(source)) return false;
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
  visit(UIElement::QueryCursorEvent, RoutedEventHandler::From<&CanvasGestures::OnQueryCursor>(this));
  visit(BaseNode::NodeMouseDownEvent, RoutedEventHandler::From<&CanvasGestures::OnNodePress>(this));
  visit(NodePinControl::NodePinMouseDownEvent, RoutedEventHandler::From<&CanvasGestures::OnPinPress>(this));
  visit(GroupNode::GroupResizingEvent, RoutedEventHandler::From<&CanvasGestures::OnFramePress>(this));
  visit(CommentNode::CommentResizingEvent, RoutedEventHandler::From<&CanvasGestures::OnFramePress>(this));
}

CanvasGestures::CanvasGestures(NodeEditorCanvas& canvas, Graph& graph, Callbacks callbacks)
    : canvas(canvas), graph(graph), callbacks(std::move(callbacks)), clicks(graph), edgeScroll(canvas, [this] {
        if (gesture) gesture->Move(this->canvas.MousePosition());
      }) {
  ForEachHandler([&canvas](const auto& event, auto handler) { canvas.GetPanel()->AddHandler(event, handler); });
}

CanvasGestures::~CanvasGestures() {
  Cancel();
  ForEachHandler([this](const auto& event, auto handler) { canvas.GetPanel()->RemoveHandler(event, handler); });
}

bool CanvasGestures::MayBegin(const Toolkit::Object* source) const {
  // A text box in which text is being selected, a button that is held: who has the mouse keeps it.
  const Toolkit::InputState* input = Toolkit::InputState::Current();
  const auto* element = DynamicCast<UIElement>(source);
  return !gesture && !(input && input->Captured()) && !canvas.GetNodesMenu()->IsAncestorOf(element);
}

void CanvasGestures::TakeFocus() { canvas.GetPanel()->Focus(); }

void CanvasGestures::OnPress(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  if (!MayBegin(args.source)) return;
  const MouseButton button = args.changedButton;
  const Toolkit::Point mouse = canvas.MousePosition();
  if (button == MouseButton::Middle || (button == MouseButton::Left && SpacePans())) {
    // Whatever lies below is not to hear of a press that only moves the view.
    args.handled = true;
    Begin(std::make_unique<PanGesture>(canvas, mouse, PanGesture::Click::DoesNothing), button);
    return;
  }
  const bool isOnBackground = IsBackground(args.source);
  if (isOnBackground || DynamicCast<ConnectionPath>(args.source)) TakeFocus();
  if (!isOnBackground) return;
  if (button == MouseButton::Right)
    Begin(std::make_unique<PanGesture>(canvas, mouse, PanGesture::Click::OpensMenu), button);
  else if (!DynamicCast<Canvas>(args.source))
    return;
  else if (IsShiftDown())
    Begin(std::make_unique<CutLineGesture>(canvas, mouse), button);
  else
    Begin(std::make_unique<RubberBandGesture>(canvas, mouse), button);
}

void CanvasGestures::OnNodePress(Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
  auto* node = DynamicCast<BaseNode>(args.source);
  if (!node || !MayBegin(node)) return;
  TakeFocus();
  const bool adds = Keyboard::IsKeyDown(Key::LeftCtrl);
  clicks.Press(*node, adds);
  auto* content = DynamicCast<ContentNode>(args.source);
  const bool isDoubleClick = static_cast<const NodeMouseDownEventArgs&>(args).clickCount % 2 == 0;
  if (content && isDoubleClick && graph.Selected().Contains(*content)) callbacks.openNode(*content);
  Begin(std::make_unique<NodeDragGesture>(
            graph, canvas.MousePosition(),
            [this, pressed = Ptr<BaseNode>(node)] { clicks.Click(*pressed, Keyboard::IsKeyDown(Key::LeftCtrl)); }),
        MouseButton::Left);
}

void CanvasGestures::OnPinPress(Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
  const auto* control = DynamicCast<NodePinControl>(args.source);
  NodePinData* pin = control ? control->PinData() : nullptr;
  if (!pin || !MayBegin(control)) return;
  TakeFocus();
  graph.Connections().DeselectAll();
  Begin(std::make_unique<ConnectionDragGesture>(canvas, *pin, canvas.MousePosition(), callbacks.connection),
        MouseButton::Left);
}

void CanvasGestures::OnFramePress(Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
  auto* frame = DynamicCast<FrameNode>(args.source);
  if (!frame || !MayBegin(frame)) return;
  TakeFocus();
  const ResizeEdge edge = static_cast<const GroupResizingEventArgs&>(args).edge;
  Begin(std::make_unique<FrameResizeGesture>(*frame, edge, canvas.MousePosition()), MouseButton::Left);
}

void CanvasGestures::OnMove(Toolkit::Object*, const Toolkit::MouseEventArgs& args) {
  // Some systems tell of moves that are none; a click is still a click then.
  if (!gesture || args.position == lastPosition) return;
  lastPosition = args.position;
  gesture->Move(canvas.MousePosition());
  if (gesture && gesture->ScrollsAtEdge()) edgeScroll.MouseMoved();
}

void CanvasGestures::OnRelease(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  if (!gesture || args.changedButton != heldButton) return;
  const std::unique_ptr<Gesture> ended = TakeGesture();
  ended->End(canvas.MousePosition());
}

void CanvasGestures::OnLostMouse(Toolkit::Object*, const Toolkit::RoutedEventArgs&) { Cancel(); }

void CanvasGestures::OnQueryCursor(Toolkit::Object*, const Toolkit::QueryCursorEventArgs& args) {
  const char* cursor = nullptr;
  if (gesture)
    cursor = gesture->Cursor();
  else if (!MayBegin(args.source))
    return;
  else if (SpacePans() || DynamicCast<ConnectionPath>(args.source))
    cursor = "Hand";
  else if (args.source == canvas.GetPanel() && IsShiftDown())
    cursor = "Cross";
  if (!cursor) return;
  args.cursor = cursor;
  args.handled = true;
}

void CanvasGestures::Begin(std::unique_ptr<Gesture> begun, MouseButton button) {
  Cancel();
  gesture = std::move(begun);
  heldButton = button;
  startTranslation = canvas.GetTranslation();
  startZoom = canvas.GetZoom();
  lastPosition = Toolkit::Mouse::GetPosition(nullptr);
  edgeScroll.Begin();
  if (!canvas.GetPanel()->CaptureMouse()) Cancel();
}

std::unique_ptr<Gesture> CanvasGestures::TakeGesture() {
  edgeScroll.End();
  std::unique_ptr<Gesture> taken = std::move(gesture);
  // There is no gesture any more that the loss of the mouse could cancel.
  canvas.GetPanel()->ReleaseMouseCapture();
  return taken;
}

void CanvasGestures::Cancel() {
  if (!gesture) return;
  TakeGesture()->Cancel();
  // At another zoom the same translation shows quite another part of the panel.
  if (canvas.GetZoom() == startZoom) canvas.SetTranslationClamped(startTranslation.x, startTranslation.y);
}

} // namespace Tesselor
