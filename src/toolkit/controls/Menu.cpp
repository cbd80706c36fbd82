#include "toolkit/controls/Menu.h"

#include "toolkit/controls/MenuItem.h"
#include "toolkit/controls/PopupLayer.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/visual/Input.h"

namespace Toolkit {

TOOLKIT_TYPE_IMPL(Menu, MenuBase, "Menu")
void Menu::Describe(TypeBuilder<Menu>&) {}

Menu::Menu() { wantsAttachment = true; }

void Menu::OnAttached() {
  MenuBase::OnAttached();
  if (PopupLayer* layer = PopupLayer::Of(*this)) layer->SetMenuBar(this);
}

void Menu::Toggle() {
  InputState* input = InputState::Current();
  if (!input) return;
  if (IsFocused()) return Leave();
  UIElement* former = input->Focused();
  if (!Focus()) return;
  formerFocus = WeakPtr<UIElement>(former);
  isActive = true;
  MoveToEnd(false);
}

Ptr<Panel> Menu::CreateHost() {
  auto panel = MakePtr<StackPanel>();
  panel->SetOrientation(Orientation::Horizontal);
  return panel;
}

void Menu::Leave() {
  isActive = false;
  SetCurrent(nullptr);
  ReturnFocus();
}

void Menu::ReturnFocus() {
  InputState* input = InputState::Current();
  if (input && IsFocused()) input->SetFocus(formerFocus.Get());
}

void Menu::OnItemEntered(MenuItem& item) {
  isActive = isActive || OpenItem();
  if (!isActive || OpenItem() == &item) {
    SetCurrent(&item);
    return;
  }
  isSwitching = true;
  SetCurrent(&item);
  isSwitching = false;
  item.SetIsSubmenuOpen(true);
}

void Menu::OnItemLeft(MenuItem& item) {
  if (!isActive && Current() == &item && !item.IsSubmenuOpen()) SetCurrent(nullptr);
}

void Menu::OnItemClosed(MenuItem& item) {
  if (isSwitching) return;
  isActive = false;
  if (Current() == &item && !item.Get<bool>(IsMouseOverProperty)) SetCurrent(nullptr);
  ReturnFocus();
}

void Menu::OnSideKey(int step) {
  isSwitching = true;
  MenuItem* item = MoveCurrent(step);
  isSwitching = false;
  isActive = true;
  if (!item) return;
  InputState* input = InputState::Current();
  if (item->ItemCount() > 0) {
    item->Choose();
  } else if (input && !IsFocused()) {
    UIElement* former = input->Focused();
    if (Focus()) formerFocus = WeakPtr<UIElement>(former);
  }
}

void Menu::OnRoutedEvent(const RoutedEventArgs& args) {
  MenuBase::OnRoutedEvent(args);
  if (args.event == &MouseLeaveEvent) {
    if (!OpenItem()) Leave();
  } else if (args.event == &MouseDownEvent) {
    // Not on an item.
    Leave();
  } else if (args.event == &LostFocusEvent) {
    if (!OpenItem()) Leave();
  } else if (args.event == &KeyDownEvent && IsFocused()) {
    Ptr<MenuItem> item(Current());
    switch (static_cast<const KeyEventArgs&>(args).key) {
    case Key::Left: OnSideKey(-1); break;
    case Key::Right: OnSideKey(1); break;
    case Key::Home: MoveToEnd(false); break;
    case Key::End: MoveToEnd(true); break;
    case Key::Down:
    case Key::Return:
    case Key::Space:
      if (item) item->Choose();
      break;
    case Key::Escape: Leave(); break;
    default: return;
    }
    args.handled = true;
  }
}

} // namespace Toolkit
