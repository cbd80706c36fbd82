#include "toolkit/controls/ButtonBase.h"

#include "toolkit/visual/Input.h"

namespace Toolkit {

const RoutedEvent ButtonBase::ClickEvent("Click", RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(ButtonBase, ContentControl, "ButtonBase")
void ButtonBase::Describe(TypeBuilder<ButtonBase>& type) {
  IsPressedProperty = type.Property<bool>("IsPressed", false, DependencyProperty::AffectsRender);
  type.Event(&ClickEvent);
}

TOOLKIT_TYPE_IMPL(Button, ButtonBase, "Button")
void Button::Describe(TypeBuilder<Button>&) {}

void ButtonBase::OnClick() { RaiseEvent(RoutedEventArgs(ClickEvent, this)); }

void ButtonBase::OnRoutedEvent(const RoutedEventArgs& args) {
  ContentControl::OnRoutedEvent(args);
  if (args.event == &LostMouseCaptureEvent && args.source == this) SetValue(IsPressedProperty, false);
  if (!IsEnabled()) return;
  const bool isOver = Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(Mouse::GetPosition(this));
  if (args.event == &MouseLeftButtonDownEvent) {
    Focus();
    SetValue(IsPressedProperty, CaptureMouse());
    args.handled = true;
  } else if (args.event == &MouseLeftButtonUpEvent) {
    if (!HasMouseCapture()) return;
    ReleaseMouseCapture();
    args.handled = true;
    if (isOver) {
      Ptr<ButtonBase> alive(this);
      OnClick();
    }
  } else if (args.event == &MouseMoveEvent || args.event == &MouseLeaveEvent) {
    SetValue(IsPressedProperty, isOver && HasMouseCapture());
  } else if (args.event == &KeyDownEvent && IsFocused()) {
    const auto& key = static_cast<const KeyEventArgs&>(args);
    if (key.key != Key::Space && key.key != Key::Return) return;
    args.handled = true;
    if (!key.isRepeat) {
      Ptr<ButtonBase> alive(this);
      OnClick();
    }
  }
}

} // namespace Toolkit
