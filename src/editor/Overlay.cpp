#include "editor/Overlay.h"

#include "toolkit/visual/Input.h"

namespace Tesselor {

using Toolkit::InputState;
using Toolkit::Key;

Overlay::Overlay(Toolkit::UIElement& layer, std::function<void()> cancel)
    : Overlay(layer, Key::Escape, std::move(cancel)) {}

Overlay::Overlay(Toolkit::UIElement& layer, Key hidingKey, std::function<void()> cancel)
    : layer(layer), hidingKey(hidingKey), cancel(std::move(cancel)) {
  layer.AddHandler(Toolkit::UIElement::KeyDownEvent, Toolkit::RoutedEventHandler::From<&Overlay::OnKeyLeft>(this));
}

Overlay::~Overlay() {
  layer.RemoveHandler(Toolkit::UIElement::KeyDownEvent, Toolkit::RoutedEventHandler::From<&Overlay::OnKeyLeft>(this));
}

void Overlay::Show() {
  InputState* input = InputState::Current();
  if (isShown) return;
  isShown = true;
  if (!input) return;
  formerFocus = Toolkit::WeakPtr<Toolkit::UIElement>(input->Focused());
  input->SetFocus(nullptr);
  input->SetTabScope(&layer);
  input->MoveFocusByTab();
}

void Overlay::Hide(Toolkit::UIElement& otherwise) {
  InputState* input = InputState::Current();
  if (!isShown) return;
  isShown = false;
  if (!input) return;
  input->SetTabScope(nullptr);
  Toolkit::UIElement* former = formerFocus.Get();
  if (!former || !former->IsAttached() || !input->SetFocus(former)) otherwise.Focus();
}

void Overlay::OnPreviewKey(const Toolkit::KeyEventArgs& args) {
  InputState* input = InputState::Current();
  if (args.key == Key::Escape || args.key == hidingKey) {
    args.handled = true;
    if (!args.isRepeat) cancel();
  } else if (args.key == Key::Tab) {
    args.handled = true;
    if (input) input->MoveFocusByTab();
  } else {
    args.handled = !input || !input->Focused() || !layer.IsAncestorOf(input->Focused());
  }
}

void Overlay::OnKeyLeft(Toolkit::Object*, const Toolkit::KeyEventArgs& args) { args.handled = true; }

} // namespace Tesselor
