#include "toolkit/controls/MenuItem.h"

#include "toolkit/controls/Menu.h"
#include "toolkit/controls/MenuSurface.h"
#include "toolkit/controls/Popup.h"
#include "toolkit/controls/PopupLayer.h"
#include "toolkit/controls/TextElement.h"
#include "toolkit/markup/ValueConversion.h"
#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"
#include "toolkit/visual/InputEvents.h"

#include <cmath>

namespace Toolkit {

namespace {
/// Left of the header, for the check mark.
constexpr float MarkRoom = 20;
constexpr float GestureGap = 32;
/// Right of all, for the arrow of a submenu.
constexpr float ArrowRoom = 16;
constexpr CornerRadius Round{3, 3, 3, 3};
} // namespace

TOOLKIT_TYPE_IMPL(HeaderedItemsControl, ItemsControl, "HeaderedItemsControl")
void HeaderedItemsControl::Describe(TypeBuilder<HeaderedItemsControl>& type) {
  HeaderProperty = type.Property<Value>("Header", Value(), DependencyProperty::AffectsMeasure);
}

const RoutedEvent MenuItem::ClickEvent("Click", RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(MenuItem, HeaderedItemsControl, "MenuItem")
void MenuItem::Describe(TypeBuilder<MenuItem>& type) {
  using P = DependencyProperty;
  IsCheckableProperty = type.Property<bool>("IsCheckable");
  IsCheckedProperty = type.Property<bool>("IsChecked", false, P::BindsTwoWay | P::AffectsRender);
  IsSubmenuOpenProperty = type.Property<bool>("IsSubmenuOpen", false, P::AffectsRender);
  InputGestureTextProperty = type.Property<SharedString>("InputGestureText", SharedString(), P::AffectsMeasure);
  IsHighlightedProperty = type.Property<bool>("IsHighlighted", false, P::AffectsRender);
  HighlightBrushProperty = type.Property<Brush*>("HighlightBrush", nullptr, P::AffectsRender);
  DimBrushProperty = type.Property<Brush*>("DimBrush", nullptr, P::AffectsRender);
  type.Event(&ClickEvent);
}

MenuItem::MenuItem() = default;
MenuItem::~MenuItem() {
  if (submenu) submenu->SetLogicalParent(nullptr);
}

bool MenuItem::IsInBar() const { return DynamicCast<Menu>(MenuBase::Of(*this)) != nullptr; }

float MenuItem::RoomForMark() const {
  const auto* menu = DynamicCast<MenuSurface>(MenuBase::Of(*this));
  return menu && menu->HasMarks() ? MarkRoom : 0;
}

float MenuItem::RoomForArrow() const {
  const auto* menu = DynamicCast<MenuSurface>(MenuBase::Of(*this));
  return menu && menu->HasArrows() ? ArrowRoom : 0;
}

TextSize MenuItem::HeaderSize() const {
  const SharedString header = ValueConversion::ToText(GetHeader());
  return TextCache::Instance().MeasureText(header.IsEmpty() ? std::string_view(" ") : header.View(),
                                           TextElement::StyleOf(*this));
}

float MenuItem::WidthInBar() const { return std::ceil(HeaderSize().width + Chrome().Horizontal()); }

Rect MenuItem::LitBoxInBar() const {
  const float height = std::min(ActualHeight(), HeaderSize().height + Chrome().Vertical());
  return {0, std::round((ActualHeight() - height) * 0.5f), ActualWidth(), height};
}

void MenuItem::ReleaseItems() {
  if (submenu) submenu->ReleaseItems();
}

void MenuItem::Click() {
  Ptr<MenuItem> alive(this);
  if (Get<bool>(IsCheckableProperty)) SetIsChecked(!IsChecked());
  RaiseEvent(RoutedEventArgs(ClickEvent, this));
}

void MenuItem::CloseMenusAndClick() {
  Ptr<MenuItem> alive(this);
  if (auto* bar = DynamicCast<Menu>(MenuBase::Of(*this))) bar->Leave();
  if (PopupLayer* layer = PopupLayer::Of(*this)) layer->CloseLight();
  Click();
}

void MenuItem::Choose() {
  if (!IsEnabled()) return;
  if (ItemCount() == 0) return CloseMenusAndClick();
  SetIsSubmenuOpen(true);
  if (submenu && submenu->IsShown()) submenu->MoveToFirst();
}

bool MenuItem::OpenSubmenu() {
  if (ItemCount() == 0 || !IsEnabled() || !IsAttached()) return false;
  if (!submenu) {
    submenu = MakePtr<MenuSurface>();
    submenu->SetLogicalParent(this);
    submenu->SetItemsSource(&Items());
  }
  MenuBase* menu = MenuBase::Of(*this);
  const bool inBar = IsInBar();
  auto popup =
      MakePtr<Popup>(*this, *submenu, PopupKind::Light, inBar ? PopupPlacement::Below : PopupPlacement::Beside);
  if (inBar) {
    popup->mouseGoesTo = menu;
    popup->anchor = TransformToAncestor(nullptr).MapBounds(LitBoxInBar());
  }
  // What was open in the same menu goes first, since this popup would count as opened from it.
  if (menu) menu->SetCurrent(this);
  return submenu->OpenIn(popup);
}

void MenuItem::OnPropertyChanged(const PropertyChange& change) {
  HeaderedItemsControl::OnPropertyChanged(change);
  if (&change.property != IsSubmenuOpenProperty) return;
  if (!IsSubmenuOpen()) {
    if (submenu) submenu->Close();
  } else if (!OpenSubmenu()) {
    SetIsSubmenuOpen(false);
  }
}

void MenuItem::OnRoutedEvent(const RoutedEventArgs& args) {
  HeaderedItemsControl::OnRoutedEvent(args);
  Ptr<MenuBase> menu(MenuBase::Of(*this));
  if (args.event == &MouseEnterEvent) {
    if (menu && IsEnabled()) menu->OnItemEntered(*this);
  } else if (args.event == &MouseLeaveEvent) {
    isPressed = false;
    if (menu) menu->OnItemLeft(*this);
  } else if (args.event == &MouseLeftButtonDownEvent) {
    args.handled = true;
    isPressed = IsEnabled();
    if (!isPressed || ItemCount() == 0) return;
    // The items of a bar drop their menus at once and take them back with the next press.
    SetIsSubmenuOpen(!(IsInBar() && IsSubmenuOpen()));
  } else if (args.event == &MouseLeftButtonUpEvent) {
    args.handled = true;
    const bool chosen = isPressed || (menu && menu->TakesRelease());
    isPressed = false;
    if (chosen && IsEnabled() && ItemCount() == 0) CloseMenusAndClick();
  }
}

Size MenuItem::MeasureOverride(Size) {
  const TextSize size = HeaderSize();
  const Thickness chrome = Chrome();
  float width = size.width + chrome.Horizontal();
  if (!IsInBar()) {
    width += RoomForMark() + RoomForArrow();
    const std::string_view gesture = GetString(InputGestureTextProperty);
    if (!gesture.empty())
      width += GestureGap + TextCache::Instance().MeasureText(gesture, TextElement::StyleOf(*this)).width;
  }
  return {std::ceil(width), std::ceil(size.height + chrome.Vertical())};
}

void MenuItem::OnRender(Painter& painter) {
  const auto* ink = Get<Brush*>(TextElement::ForegroundProperty);
  const auto layout =
      TextCache::Instance().Layout(ValueConversion::ToText(GetHeader()).View(), TextElement::StyleOf(*this));
  const float y = std::round((ActualHeight() - layout->Size().height) * 0.5f);
  const bool isLit = Get<bool>(IsHighlightedProperty) && IsEnabled();
  painter.DrawRectangle({0, 0, ActualWidth(), ActualHeight()}, Get<Brush*>(BackgroundProperty));
  const Thickness chrome = Chrome();
  if (IsInBar()) {
    if (isLit) painter.DrawRectangle(LitBoxInBar(), Round, Get<Brush*>(HighlightBrushProperty), nullptr, {});
    painter.DrawText(layout, {chrome.left, y}, ink);
    return;
  }
  if (isLit)
    painter.DrawRectangle({0, 0, ActualWidth(), ActualHeight()}, Round, Get<Brush*>(HighlightBrushProperty), nullptr,
                          {});
  painter.DrawText(layout, {chrome.left + RoomForMark(), y}, ink);
  DrawRow(painter);
}

void MenuItem::DrawRow(Painter& painter) {
  const Thickness chrome = Chrome();
  const auto* ink = Get<Brush*>(TextElement::ForegroundProperty);
  const auto* dim = Get<Brush*>(DimBrushProperty);
  const float middle = std::round(ActualHeight() * 0.5f), right = ActualWidth() - chrome.right;
  if (IsChecked()) {
    PathOutline mark;
    mark.MoveTo({chrome.left, middle});
    mark.LineTo({chrome.left + 3.5f, middle + 3.5f});
    mark.LineTo({chrome.left + 10, middle - 4});
    painter.DrawPath(std::move(mark), nullptr, ink, 2);
  }
  if (const std::string_view gesture = GetString(InputGestureTextProperty); !gesture.empty()) {
    const auto layout = TextCache::Instance().Layout(gesture, TextElement::StyleOf(*this));
    painter.DrawText(
        layout,
        {right - RoomForArrow() - layout->Size().width, std::round((ActualHeight() - layout->Size().height) * 0.5f)},
        dim);
  }
  if (ItemCount() > 0) {
    PathOutline arrow;
    arrow.MoveTo({right - 5, middle - 4});
    arrow.LineTo({right - 1, middle});
    arrow.LineTo({right - 5, middle + 4});
    painter.DrawPath(std::move(arrow), nullptr, dim, 1.5f);
  }
}

} // namespace Toolkit
