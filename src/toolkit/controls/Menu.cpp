#include "toolkit/controls/Menu.h"

#include "toolkit/controls/MenuItem.h"
#include "toolkit/controls/PopupLayer.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/visual/Input.h"

#include <algorithm>
#include <vector>

namespace Toolkit {

TOOLKIT_TYPE_IMPL(Menu, MenuBase, "Menu")
void Menu::Describe(TypeBuilder<Menu>&) {}

namespace {
constexpr const char* OverflowHeader = "\u00bb";
}

Menu::Menu() { wantsAttachment = true; }
Menu::~Menu() {
  LayoutQueue::Current().Remove(static_cast<LayoutTask&>(*this));
  if (overflow) overflow->SetLogicalParent(nullptr);
}

void Menu::OnAttached() {
  MenuBase::OnAttached();
  if (PopupLayer* layer = PopupLayer::Of(*this)) layer->SetMenuBar(this);
}

Size Menu::MeasureOverride(Size available) {
  const Size wanted = MenuBase::MeasureOverride(available);
  return {std::min(wanted.width, available.width), wanted.height};
}

Size Menu::ArrangeOverride(Size finalSize) {
  room = std::max(0.0f, finalSize.width - Chrome().Horizontal());
  // Items can't change places in the middle of a layout.
  LayoutQueue::Current().Add(static_cast<LayoutTask&>(*this));
  return MenuBase::ArrangeOverride(finalSize);
}

size_t Menu::CountThatFits() const {
  std::vector<float> widths;
  const auto add = [&widths](const ItemsControl& items, size_t count) {
    for (size_t i = 0; i < count; ++i) {
      const auto* item = DynamicCast<MenuItem>(items.ItemAt(i));
      widths.push_back(item && item->GetVisibility() != Visibility::Collapsed ? item->WidthInBar() : 0);
    }
  };
  add(*this, OwnCount());
  if (isOverflowShown) add(*overflow, overflow->ItemCount());
  float total = 0;
  for (const float width : widths) total += width;
  if (total <= room) return widths.size();
  float used = overflow->WidthInBar();
  size_t count = 0;
  while (count < widths.size() && used + widths[count] <= room) used += widths[count++];
  return count;
}

void Menu::AfterLayout() {
  if (!IsAttached()) return;
  if (!overflow) {
    overflow = MakePtr<MenuItem>();
    overflow->SetHeader(OverflowHeader);
    overflow->SetLogicalParent(this);
  }
  const size_t wanted = CountThatFits(), own = OwnCount();
  if (wanted == own) return;
  SetCurrent(nullptr);
  while (OwnCount() > wanted) MoveIntoOverflow();
  while (OwnCount() < wanted) MoveOutOfOverflow();
}

void Menu::MoveIntoOverflow() {
  const size_t last = OwnCount() - 1;
  const Ptr<Object> item(ItemAt(last));
  Items().RemoveAt(last);
  if (!isOverflowShown) {
    isOverflowShown = true;
    Items().Add(overflow);
  }
  // The bar lets go of the item before the other menu takes it.
  PrepareForMeasure();
  if (auto* element = DynamicCast<FrameworkElement>(item)) element->SetLogicalParent(overflow.Get());
  overflow->Items().Insert(0, item);
}

void Menu::MoveOutOfOverflow() {
  const Ptr<Object> item(overflow->ItemAt(0));
  overflow->Items().RemoveAt(0);
  overflow->ReleaseItems();
  const size_t at = OwnCount();
  if (overflow->ItemCount() == 0) {
    isOverflowShown = false;
    Items().Remove(overflow.Get());
  }
  if (auto* element = DynamicCast<FrameworkElement>(item)) element->SetLogicalParent(this);
  Items().Insert(at, item);
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
