#include "editor/KeyMenu.h"

#include "toolkit/controls/MenuItem.h"

namespace Tesselor {

using Toolkit::MenuItem;

void KeyMenu::Open(Toolkit::UIElement& owner, const Toolkit::Rect& besideInWindow, const std::vector<Entry>& entries) {
  Forget();
  menu = Toolkit::MakePtr<Toolkit::ContextMenu>();
  for (const Entry& entry : entries) {
    const auto item = Toolkit::MakePtr<MenuItem>();
    item->SetHeader(Toolkit::Value(entry.text));
    item->SetValue(MenuItem::InputGestureTextProperty, entry.keys);
    item->SetValue(Toolkit::UIElement::IsEnabledProperty, entry.run != nullptr);
    if (entry.run)
      item->AddHandler(MenuItem::ClickEvent,
                       Toolkit::RoutedEventHandler::From(
                           [run = entry.run](Toolkit::Object*, const Toolkit::RoutedEventArgs&) { run(); }));
    menu->AddItem(item.Get());
  }
  menu->SetLogicalParent(&owner);
  menu->anchor = besideInWindow;
  menu->SetIsOpen(true);
  menu->MoveToFirst();
}

void KeyMenu::Forget() {
  if (!menu) return;
  menu->SetIsOpen(false);
  menu->SetLogicalParent(nullptr);
  menu.Reset();
}

} // namespace Tesselor
