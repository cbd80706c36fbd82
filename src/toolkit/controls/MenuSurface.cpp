#include "toolkit/controls/MenuSurface.h"

#include "toolkit/base/Dispatcher.h"
#include "toolkit/controls/MenuItem.h"
#include "toolkit/controls/Popup.h"
#include "toolkit/controls/PopupLayer.h"
#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"
#include "toolkit/visual/Input.h"

#include <algorithm>

namespace Toolkit {

namespace {
/// Milliseconds for which the mouse may cross another item on its way into an open submenu.
constexpr double SubmenuDelay = 200;
/// Pixels that one notch of the wheel scrolls.
constexpr float WheelStep = 64;
} // namespace

TOOLKIT_TYPE_IMPL(MenuSurface, MenuBase, "MenuSurface")
void MenuSurface::Describe(TypeBuilder<MenuSurface>& type) {
  ScrollBarBrushProperty = type.Property<Brush*>("ScrollBarBrush", nullptr, DependencyProperty::AffectsRender);
}

MenuSurface::MenuSurface() = default;
MenuSurface::~MenuSurface() { StopTimer(); }

bool MenuSurface::OpenIn(const Ptr<Popup>& newPopup) {
  PopupLayer* layer = PopupLayer::Of(newPopup->Owner());
  if (!layer || popup) return popup != nullptr;
  popup = newPopup;
  popup->takesText = true;
  popup->keyPressed = [this](const KeyEventArgs& args) { return OnKey(args); };
  popup->closed = [this] {
    Ptr<MenuSurface> alive(this);
    popup.Reset();
    StopTimer();
    bar.Release();
    SetCurrent(nullptr);
    OnClosed();
  };
  bar.offset = 0;
  layer->Open(*popup);
  return true;
}

void MenuSurface::Close() {
  if (const Ptr<Popup> open = popup) open->Close();
}

void MenuSurface::OnClosed() {
  auto* opener = DynamicCast<MenuItem>(LogicalParent());
  if (!opener) return;
  opener->SetIsSubmenuOpen(false);
  if (MenuBase* outer = MenuBase::Of(*opener)) outer->OnItemClosed(*opener);
}

void MenuSurface::StopTimer() {
  if (timer) Dispatcher::Current().Cancel(timer);
  timer = 0;
}

void MenuSurface::OnItemEntered(MenuItem& item) {
  StopTimer();
  // A submenu that is open stays for a moment, and so does the light on its item.
  if (OpenItem() && OpenItem() != &item) {
    timer = Dispatcher::Current().StartTimer(SubmenuDelay, [this, entered = WeakPtr<MenuItem>(&item)] {
      timer = 0;
      MenuItem* now = entered.Get();
      if (!now || !now->Get<bool>(IsMouseOverProperty)) return;
      SetCurrent(now);
      now->SetIsSubmenuOpen(true);
    });
    return;
  }
  SetCurrent(&item);
  if (item.ItemCount() == 0 || item.IsSubmenuOpen()) return;
  timer = Dispatcher::Current().StartTimer(SubmenuDelay, [this, entered = WeakPtr<MenuItem>(&item)] {
    timer = 0;
    if (MenuItem* now = entered.Get(); now && Current() == now) now->SetIsSubmenuOpen(true);
  });
}

void MenuSurface::OnItemLeft(MenuItem& item) {
  if (Current() == &item && !item.IsSubmenuOpen()) SetCurrent(nullptr);
}

bool MenuSurface::TakesRelease() const { return popup && popup->TakesRelease(); }

MenuBase* MenuSurface::Outer() const {
  auto* opener = popup ? DynamicCast<MenuItem>(&popup->Owner()) : nullptr;
  return opener ? MenuBase::Of(*opener) : nullptr;
}

void MenuSurface::OnSideKey(int step) {
  if (step > 0) {
    if (MenuBase* outer = Outer()) outer->OnSideKey(step);
  } else if (MenuItem* open = OpenItem()) {
    open->SetIsSubmenuOpen(false);
  }
}

bool MenuSurface::OnKey(const KeyEventArgs& args) {
  Ptr<MenuSurface> alive(this);
  StopTimer();
  Ptr<MenuItem> item(Current());
  const Ptr<MenuBase> outer(Outer());
  switch (args.key) {
  case Key::Down: MoveCurrent(1); break;
  case Key::Up: MoveCurrent(-1); break;
  case Key::Home: MoveToEnd(false); break;
  case Key::End: MoveToEnd(true); break;
  case Key::Return:
  case Key::Space:
    if (item) item->Choose();
    break;
  case Key::Right:
    if (item && item->ItemCount() > 0)
      item->Choose();
    else if (outer)
      outer->OnSideKey(1);
    break;
  case Key::Left:
    if (outer) outer->OnSideKey(-1);
    break;
  case Key::Escape: Close(); break;
  default: break;
  }
  // An open menu is all that keys are for.
  return true;
}

Size MenuSurface::MeasureOverride(Size available) {
  const Thickness chrome = Chrome();
  Panel* host = ItemsHost();
  if (!host) return {chrome.Horizontal(), chrome.Vertical()};
  hasMarks = hasArrows = false;
  for (size_t i = 0; i < ItemCount(); ++i) {
    const auto* item = DynamicCast<MenuItem>(ItemAt(i));
    if (!item) continue;
    hasMarks = hasMarks || item->Get<bool>(MenuItem::IsCheckableProperty) || item->IsChecked();
    hasArrows = hasArrows || item->ItemCount() > 0;
  }
  host->Measure({std::max(0.0f, available.width - chrome.Horizontal()), Infinity});
  bar.extent = host->DesiredSize().height;
  return {host->DesiredSize().width + chrome.Horizontal(), std::min(available.height, bar.extent + chrome.Vertical())};
}

Size MenuSurface::ArrangeOverride(Size finalSize) {
  const Thickness chrome = Chrome();
  bar.viewport = {chrome.left, chrome.top, std::max(0.0f, finalSize.width - chrome.Horizontal()),
                  std::max(0.0f, finalSize.height - chrome.Vertical())};
  bar.ScrollTo(bar.offset);
  if (Panel* host = ItemsHost())
    host->Arrange(
        {chrome.left, chrome.top - bar.offset, bar.viewport.width, std::max(bar.extent, bar.viewport.height)});
  return finalSize;
}

void MenuSurface::ScrollTo(float offset) {
  if (bar.ScrollTo(offset)) InvalidateArrange();
}

Rect MenuSurface::Reveal(const Rect& area) {
  const float before = bar.offset;
  if (!bar.Show(area.y - bar.viewport.y + before, area.height)) return area;
  InvalidateArrange();
  return {area.x, area.y - (bar.offset - before), area.width, area.height};
}

void MenuSurface::RenderChildren(Painter& painter) {
  painter.PushClip(bar.viewport);
  MenuBase::RenderChildren(painter);
  painter.Pop();
  bar.Draw(painter, Get<Brush*>(ScrollBarBrushProperty));
}

void MenuSurface::OnRoutedEvent(const RoutedEventArgs& args) {
  MenuBase::OnRoutedEvent(args);
  if (args.event == &MouseWheelEvent) {
    ScrollTo(bar.offset - static_cast<const MouseWheelEventArgs&>(args).wheelRotation * WheelStep);
    args.handled = true;
  }
}

} // namespace Toolkit
