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
  InputState* input = InputState::Current();
  if (!input || !IsEnabled()) return;
  const bool isOver = Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(Mouse::GetPosition(this));
  if (args.event == &MouseLeftButtonDownEvent) {
    Focus();
    input->Capture(this);
    SetValue(IsPressedProperty, true);
    args.handled = true;
  } else if (args.event == &MouseLeftButtonUpEvent) {
    if (input->Captured() != this) return;
    input->Capture(nullptr);
    SetValue(IsPressedProperty, false);
    args.handled = true;
    if (isOver) {
      Ptr<ButtonBase> alive(this);
      OnClick();
    }
  } else if (args.event == &MouseMoveEvent || args.event == &MouseLeaveEvent) {
    // A press that is taken elsewhere, or whose release is never told of, looks as what it is.
    SetValue(IsPressedProperty, input->Captured() == this && isOver);
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
