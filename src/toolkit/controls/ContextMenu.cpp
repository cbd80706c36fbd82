#include "toolkit/controls/ContextMenu.h"

#include "toolkit/controls/Popup.h"
#include "toolkit/markup/ElementPlan.h"
#include "toolkit/visual/Input.h"

namespace Toolkit {

TOOLKIT_TYPE_IMPL(ContextMenu, MenuSurface, "ContextMenu")
void ContextMenu::Describe(TypeBuilder<ContextMenu>& type) { IsOpenProperty = type.Property<bool>("IsOpen"); }

bool ContextMenu::OpenFor(Object* source) {
  for (auto* e = DynamicCast<UIElement>(source); e; e = e->UIParent()) {
    auto* owner = DynamicCast<FrameworkElement>(e);
    if (!owner || !owner->HasOwnValue(ContextMenuProperty)) continue;
    Object* held = owner->GetValue(ContextMenuProperty).AsObject();
    if (const auto* factory = DynamicCast<ElementFactory>(held)) {
      // From now on the element has a menu of its own.
      const Ptr<FrameworkElement> made = factory->Create(*owner);
      owner->SetValue(ContextMenuProperty, Value(made));
      held = made.Get();
    }
    auto* menu = DynamicCast<ContextMenu>(held);
    if (!menu || menu->ItemCount() == 0) continue;
    menu->SetLogicalParent(owner);
    menu->SetIsOpen(true);
    return true;
  }
  return false;
}

void ContextMenu::OnPropertyChanged(const PropertyChange& change) {
  MenuSurface::OnPropertyChanged(change);
  if (&change.property != IsOpenProperty) return;
  if (!IsOpen()) return Close();
  UIElement* owner = LogicalParent();
  if (!owner || ItemCount() == 0) return;
  auto popup = MakePtr<Popup>(*owner, *this, PopupKind::Light, PopupPlacement::Below);
  const Point mouse = Mouse::GetPosition(nullptr);
  popup->anchor = anchor.value_or(Rect{mouse.x, mouse.y, 0, 0});
  OpenIn(popup);
}

void ContextMenu::OnClosed() { SetIsOpen(false); }

} // namespace Toolkit
