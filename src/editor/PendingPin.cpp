#include "editor/PendingPin.h"

#include "editor/ConnectionRefusal.h"
#include "toolkit/controls/ContextMenu.h"
#include "toolkit/controls/MenuItem.h"

namespace Tesselor {

using Toolkit::Ptr;

namespace {

void AddMenuItem(Toolkit::ContextMenu& menu, const char* header, std::function<void()> action) {
  auto item = Toolkit::MakePtr<Toolkit::MenuItem>();
  item->SetHeader(header);
  item->AddHandler(Toolkit::MenuItem::ClickEvent,
                   Toolkit::RoutedEventHandler::From(
                       [action = std::move(action)](Toolkit::Object*, const Toolkit::RoutedEventArgs&) { action(); }));
  menu.AddItem(item.Get());
}

} // namespace

void PendingPin::Set(NodePinControl& control) {
  Clear();
  pin = Ptr<NodePinControl>(&control);
  pin->SetPendingConnection(true);
}

void PendingPin::Clear() {
  if (pin) pin->SetPendingConnection(false);
  pin.Reset();
}

void ShowPinMenu(NodePinControl& control, PendingPin& pending,
                 std::function<void(NodePinData&, NodePinData&)> connect) {
  const NodePinData* own = control.PinData();
  if (!own) return;
  auto menu = Toolkit::MakePtr<Toolkit::ContextMenu>();
  if (!pending.Get()) {
    AddMenuItem(*menu, "Start Connection", [&control, &pending] { pending.Set(control); });
  } else {
    const NodePinData* other = pending.Get()->PinData();
    // The pin stays pending, so that it can be connected to several others in a row.
    if (other && ConnectionRefusal(*own, *other).empty())
      AddMenuItem(*menu, "Complete Connection", [&control, &pending, connect] {
        NodePinData* target = control.PinData();
        NodePinData* source = pending.Get() ? pending.Get()->PinData() : nullptr;
        if (target && source) connect(*target, *source);
      });
    AddMenuItem(*menu, "Cancel Connection", [&pending] { pending.Clear(); });
  }
  control.SetValue(NodePinControl::ContextMenuProperty, Toolkit::Value(menu));
  menu->SetValue(Toolkit::ContextMenu::IsOpenProperty, true);
}

} // namespace Tesselor
