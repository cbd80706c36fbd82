#include "toolkit/visual/Input.h"

#include "toolkit/visual/FrameworkElement.h"
#include "toolkit/visual/LayoutQueue.h"

#include <algorithm>
#include <span>
#include <vector>

namespace Toolkit {

namespace {
InputState* current = nullptr;

bool CanFocus(const UIElement& element) {
  return element.Get<bool>(UIElement::FocusableProperty) && element.IsEnabled() && element.IsVisible() &&
         element.IsAttached();
}

bool HoldsCommandKey(const InputState& input) {
  // The right Alt key leads to a third level of text on many keyboards, and some systems tell of it with Ctrl.
  if (input.IsKeyDown(Key::RightAlt)) return false;
  constexpr Key commandKeys[] = {Key::LeftCtrl, Key::RightCtrl, Key::LeftAlt, Key::LeftWin, Key::RightWin};
  return std::any_of(std::begin(commandKeys), std::end(commandKeys), [&](Key key) { return input.IsKeyDown(key); });
}

/// As `IsAncestorOf`, but along the way that events take: from a popup to its owner.
bool IsAround(const UIElement* outer, const UIElement* element) {
  for (; element; element = element->UIParent())
    if (element == outer) return true;
  return false;
}

/// What is raised by a release and by a press, for each button: those of the button itself go before those of any.
constexpr const RoutedEvent* ButtonEvents[2][3][4] = {
    {{&UIElement::PreviewMouseLeftButtonUpEvent, &UIElement::PreviewMouseUpEvent, &UIElement::MouseLeftButtonUpEvent,
      &UIElement::MouseUpEvent},
     {&UIElement::PreviewMouseUpEvent, &UIElement::MouseUpEvent},
     {&UIElement::PreviewMouseRightButtonUpEvent, &UIElement::PreviewMouseUpEvent, &UIElement::MouseRightButtonUpEvent,
      &UIElement::MouseUpEvent}},
    {{&UIElement::PreviewMouseLeftButtonDownEvent, &UIElement::PreviewMouseDownEvent,
      &UIElement::MouseLeftButtonDownEvent, &UIElement::MouseDownEvent},
     {&UIElement::PreviewMouseDownEvent, &UIElement::MouseDownEvent},
     {&UIElement::PreviewMouseRightButtonDownEvent, &UIElement::PreviewMouseDownEvent,
      &UIElement::MouseRightButtonDownEvent, &UIElement::MouseDownEvent}},
};

void CollectFocusable(UIElement& element, std::vector<UIElement*>& found) {
  if (element.GetVisibility() != Visibility::Visible) return;
  if (CanFocus(element)) found.push_back(&element);
  for (size_t i = 0; i < element.VisualChildCount(); ++i)
    if (UIElement* child = element.VisualChild(i)) CollectFocusable(*child, found);
}
} // namespace

InputState::InputState(UIElement& root) : root(root), outer(current) { current = this; }
InputState::~InputState() { current = outer; }
InputState* InputState::Current() { return current; }

void InputState::FillMouse(MouseEventArgs& args) const {
  args.position = mousePosition;
  args.leftButton = ButtonState(MouseButton::Left);
  args.middleButton = ButtonState(MouseButton::Middle);
  args.rightButton = ButtonState(MouseButton::Right);
}

UIElement* InputState::Target(Point position) const {
  if (UIElement* element = captured.Get()) return element;
  return ElementAt(position);
}

void InputState::Capture(UIElement* element) {
  const Ptr<UIElement> former(captured.Get());
  if (former == element) return;
  captured = WeakPtr<UIElement>(element);
  if (former) former->RaiseEvent(RoutedEventArgs(UIElement::LostMouseCaptureEvent, former.Get()));
}

bool InputState::Route(const RoutedEvent& preview, const RoutedEvent& bubbling, RoutedEventArgs& args,
                       UIElement& target) {
  Ptr<UIElement> alive(&target);
  args.source = &target;
  args.event = &preview;
  target.RaiseEvent(args);
  args.event = &bubbling;
  target.RaiseEvent(args);
  return args.handled;
}

void InputState::SetHovered(UIElement* element) {
  UIElement* former = hovered.Get();
  if (former == element) return;
  hovered = WeakPtr<UIElement>(element);
  MouseEventArgs leave(UIElement::MouseLeaveEvent), enter(UIElement::MouseEnterEvent);
  FillMouse(leave);
  FillMouse(enter);
  std::vector<Ptr<UIElement>> left, entered;
  for (UIElement* e = former; e; e = e->UIParent())
    if (!IsAround(e, element)) left.emplace_back(e);
  for (UIElement* e = element; e; e = e->UIParent())
    if (!IsAround(e, former)) entered.emplace_back(e);
  for (const Ptr<UIElement>& e : left) {
    e->SetValue(UIElement::IsMouseOverProperty, false);
    leave.source = e.Get();
    e->RaiseEvent(leave);
  }
  for (size_t i = entered.size(); i-- > 0;) {
    entered[i]->SetValue(UIElement::IsMouseOverProperty, true);
    enter.source = entered[i].Get();
    entered[i]->RaiseEvent(enter);
  }
}

void InputState::UpdateHover() {
  if (!captured) SetHovered(mousePosition.x < 0 && mousePosition.y < 0 ? nullptr : ElementAt(mousePosition));
}

std::string InputState::Cursor() {
  const Ptr<UIElement> element(captured ? captured.Get() : hovered.Get());
  if (!element) return {};
  const QueryCursorEventArgs query(UIElement::QueryCursorEvent, element.Get());
  element->RaiseEvent(query);
  if (query.handled) return query.cursor;
  for (const UIElement* e = element.Get(); e; e = e->UIParent())
    if (const std::string_view name = e->GetString(FrameworkElement::CursorProperty); !name.empty())
      return std::string(name);
  return {};
}

bool InputState::MouseMove(Point position) {
  mousePosition = position;
  UIElement* target = Target(position);
  SetHovered(target);
  if (!target) return false;
  MouseEventArgs args(UIElement::PreviewMouseMoveEvent);
  FillMouse(args);
  return Route(UIElement::PreviewMouseMoveEvent, UIElement::MouseMoveEvent, args, *target);
}

bool InputState::MouseDown(MouseButton button, Point position, uint32_t clickCount) {
  return ChangeButton(button, MouseButtonState::Pressed, position, clickCount);
}

bool InputState::MouseUp(MouseButton button, Point position) {
  return ChangeButton(button, MouseButtonState::Released, position, 1);
}

bool InputState::ChangeButton(MouseButton button, MouseButtonState state, Point position, uint32_t clickCount) {
  mousePosition = position;
  buttons[static_cast<size_t>(button)] = state;
  const Ptr<UIElement> target(Target(position));
  if (!target) return false;
  const std::span events = ButtonEvents[static_cast<size_t>(state)][static_cast<size_t>(button)];
  MouseButtonEventArgs args(*events.front(), target.Get());
  FillMouse(args);
  args.changedButton = button;
  args.buttonState = state;
  args.clickCount = clickCount;
  for (const RoutedEvent* event : events) {
    args.event = event;
    if (event) target->RaiseEvent(args);
  }
  // Who held the mouse was hovered wherever that went.
  if (state == MouseButtonState::Released) UpdateHover();
  return args.handled;
}

bool InputState::MouseWheel(Point position, float notches) {
  mousePosition = position;
  UIElement* target = Target(position);
  if (!target) return false;
  MouseWheelEventArgs args(UIElement::PreviewMouseWheelEvent);
  FillMouse(args);
  args.wheelRotation = notches;
  return Route(UIElement::PreviewMouseWheelEvent, UIElement::MouseWheelEvent, args, *target);
}

void InputState::MouseLeave() {
  // A drag goes on outside, from where the mouse is.
  if (captured) return;
  mousePosition = {-1, -1};
  SetHovered(nullptr);
}

bool InputState::KeyDown(Key key, bool isRepeat) {
  keys[static_cast<size_t>(key)] = true;
  UIElement* target = focused ? focused.Get() : &root;
  KeyEventArgs args(UIElement::PreviewKeyDownEvent);
  args.key = key;
  args.isRepeat = isRepeat;
  if (Route(UIElement::PreviewKeyDownEvent, UIElement::KeyDownEvent, args, *target)) return true;
  return key == Key::Tab && MoveFocusByTab();
}

bool InputState::KeyUp(Key key) {
  keys[static_cast<size_t>(key)] = false;
  UIElement* target = focused ? focused.Get() : &root;
  KeyEventArgs args(UIElement::PreviewKeyUpEvent);
  args.key = key;
  return Route(UIElement::PreviewKeyUpEvent, UIElement::KeyUpEvent, args, *target);
}

bool InputState::TextInput(std::string_view text) {
  UIElement* target = focused.Get();
  // The system makes a text even of Ctrl+0, which is a command whether or not somebody took it.
  if (!target || HoldsCommandKey(*this)) return false;
  TextCompositionEventArgs args(UIElement::PreviewTextInputEvent);
  args.text = std::string(text);
  return Route(UIElement::PreviewTextInputEvent, UIElement::TextInputEvent, args, *target);
}

void InputState::Composition(std::string_view text, size_t caret) {
  if (UIElement* target = focused.Get()) target->SetComposition(text, caret);
}

Rect InputState::CaretRectangle() const {
  const UIElement* target = focused.Get();
  const Rect caret = target ? target->CaretRectangle() : Rect();
  if (caret.width <= 0 && caret.height <= 0) return {};
  return target->TransformToAncestor(nullptr).MapBounds(caret);
}

void InputState::ReleaseAll() {
  keys.reset();
  for (MouseButtonState& state : buttons) state = MouseButtonState::Released;
  Capture(nullptr);
}

bool InputState::SetFocus(UIElement* element, FocusCause cause) {
  if (element && !CanFocus(*element)) return false;
  Ptr<UIElement> former(focused.Get());
  if (former == element) {
    if (former && cause == FocusCause::Keyboard) former->SetValue(UIElement::IsFocusVisibleProperty, true);
    return element != nullptr;
  }
  Ptr<UIElement> next(element);
  focused = WeakPtr<UIElement>(element);
  tabOrigin.Reset();
  if (former) {
    former->SetValue(UIElement::IsFocusedProperty, false);
    former->SetValue(UIElement::IsFocusVisibleProperty, false);
    former->RaiseEvent(RoutedEventArgs(UIElement::LostFocusEvent, former.Get()));
  }
  // A handler of the loss may have moved the focus on.
  if (next && focused.Get() == next.Get()) {
    next->SetValue(UIElement::IsFocusedProperty, true);
    next->SetValue(UIElement::IsFocusVisibleProperty, cause == FocusCause::Keyboard);
    next->RaiseEvent(RoutedEventArgs(UIElement::GotFocusEvent, next.Get()));
  }
  return focused.Get() == element;
}

void InputState::HandFocusOn(UIElement& from) {
  if (focused.Get() != &from) return;
  UIElement* around = from.UIParent();
  while (around && !CanFocus(*around)) around = around->UIParent();
  SetFocus(around);
  if (focused.Get() == around) tabOrigin = WeakPtr<UIElement>(&from);
}

bool InputState::MoveFocusByTab() { return MoveFocus(!IsKeyDown(Key::LeftShift) && !IsKeyDown(Key::RightShift)); }

bool InputState::MoveFocus(bool forward) {
  std::vector<UIElement*> order;
  UIElement* scope = tabScope.Get();
  CollectFocusable(scope && scope->IsAttached() ? *scope : root, order);
  std::erase_if(order, [](const UIElement* e) { return e->TabOrder() < 0; });
  if (order.empty()) return false;
  std::stable_sort(order.begin(), order.end(),
                   [](const UIElement* a, const UIElement* b) { return a->TabOrder() < b->TabOrder(); });
  auto from = std::find(order.begin(), order.end(), tabOrigin.Get());
  if (from == order.end()) from = std::find(order.begin(), order.end(), focused.Get());
  size_t index = forward ? 0 : order.size() - 1;
  if (from != order.end()) {
    const auto at = static_cast<size_t>(from - order.begin());
    index = (at + (forward ? 1 : order.size() - 1)) % order.size();
  }
  if (!SetFocus(order[index], FocusCause::Keyboard)) return false;
  order[index]->BringIntoView();
  return true;
}

void InputState::ElementGone(UIElement& element) {
  if (UIElement* e = captured.Get(); e && element.IsAncestorOf(e)) Capture(nullptr);
  if (UIElement* e = hovered.Get(); e && element.IsAncestorOf(e)) {
    for (UIElement* h = e; h; h = h->UIParent()) h->SetValue(UIElement::IsMouseOverProperty, false);
    hovered.Reset();
  }
  if (UIElement* e = focused.Get(); e && element.IsAncestorOf(e)) SetFocus(nullptr);
}

void InputState::LeaveUnreachable() {
  if (const UIElement* e = captured.Get(); e && !(e->IsVisible() && e->IsEnabled())) Capture(nullptr);
  if (const UIElement* e = focused.Get(); e && !CanFocus(*e)) SetFocus(nullptr);
}

Point Mouse::GetPosition(const UIElement* relativeTo) {
  InputState* input = InputState::Current();
  if (!input) return {};
  const Point position = input->MousePosition();
  return relativeTo ? relativeTo->PointFromRoot(position) : position;
}

bool Keyboard::IsKeyDown(Key key) {
  InputState* input = InputState::Current();
  return input && input->IsKeyDown(key);
}

UIElement* Keyboard::GetFocused() {
  InputState* input = InputState::Current();
  return input ? input->Focused() : nullptr;
}

} // namespace Toolkit
