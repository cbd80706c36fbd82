#include "toolkit/controls/MenuBase.h"

#include "toolkit/controls/MenuItem.h"

namespace Toolkit {

TOOLKIT_TYPE_IMPL(MenuBase, ItemsControl, "MenuBase")
void MenuBase::Describe(TypeBuilder<MenuBase>&) {}

MenuBase* MenuBase::Of(const MenuItem& item) {
  for (UIElement* e = item.VisualParent(); e; e = e->VisualParent())
    if (auto* menu = DynamicCast<MenuBase>(e)) return menu;
  return nullptr;
}

MenuItem* MenuBase::ItemElementAt(size_t index) const { return DynamicCast<MenuItem>(ItemAt(index)); }

MenuItem* MenuBase::Current() const { return current.Get(); }

MenuItem* MenuBase::OpenItem() const {
  MenuItem* item = current.Get();
  return item && item->IsSubmenuOpen() ? item : nullptr;
}

void MenuBase::SetCurrent(MenuItem* item) {
  Ptr<MenuItem> former(current.Get());
  if (former == item) return;
  current = WeakPtr<MenuItem>(item);
  if (former) {
    former->SetIsHighlighted(false);
    former->SetIsSubmenuOpen(false);
  }
  if (item && current.Get() == item) item->SetIsHighlighted(true);
}

MenuItem* MenuBase::MoveCurrent(int step) {
  const auto count = static_cast<int>(ItemCount());
  int at = step > 0 ? -1 : count;
  for (int i = 0; i < count; ++i)
    if (current.Get() && ItemElementAt(static_cast<size_t>(i)) == current.Get()) at = i;
  for (int tried = 0; tried < count; ++tried) {
    at = (at + step + count) % count;
    MenuItem* item = ItemElementAt(static_cast<size_t>(at));
    if (!item || !item->IsEnabled() || item->GetVisibility() != Visibility::Visible) continue;
    SetCurrent(item);
    item->BringIntoView();
    return item;
  }
  return nullptr;
}

void MenuBase::MoveToEnd(bool last) {
  SetCurrent(nullptr);
  MoveCurrent(last ? -1 : 1);
}

} // namespace Toolkit
