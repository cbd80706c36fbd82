#include "toolkit/controls/Menu.h"

#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/TextElement.h"
#include "toolkit/markup/ValueConversion.h"

namespace Toolkit {

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
  InputGestureTextProperty = type.Property<SharedString>("InputGestureText");
  type.Event(&ClickEvent);
}

void MenuItem::Click() {
  Ptr<MenuItem> alive(this);
  if (Get<bool>(IsCheckableProperty)) SetIsChecked(!IsChecked());
  RaiseEvent(RoutedEventArgs(ClickEvent, this));
}

void MenuItem::OnRoutedEvent(const RoutedEventArgs& args) {
  HeaderedItemsControl::OnRoutedEvent(args);
  if (args.event != &MouseLeftButtonUpEvent || !IsEnabled()) return;
  args.handled = true;
  if (ItemCount() > 0)
    SetValue(IsSubmenuOpenProperty, !Get<bool>(IsSubmenuOpenProperty));
  else
    Click();
}

Size MenuItem::MeasureOverride(Size) {
  const SharedString header = ValueConversion::ToText(GetHeader());
  const TextSize size = TextCache::Instance().MeasureText(header.View(), TextElement::StyleOf(*this));
  const Thickness chrome = Chrome();
  return {size.width + chrome.Horizontal(), size.height + chrome.Vertical()};
}

TOOLKIT_TYPE_IMPL(Menu, ItemsControl, "Menu")
void Menu::Describe(TypeBuilder<Menu>&) {}

Ptr<Panel> Menu::CreateHost() {
  auto panel = MakePtr<StackPanel>();
  panel->SetOrientation(Orientation::Horizontal);
  return panel;
}

TOOLKIT_TYPE_IMPL(ContextMenu, ItemsControl, "ContextMenu")
void ContextMenu::Describe(TypeBuilder<ContextMenu>& type) { IsOpenProperty = type.Property<bool>("IsOpen"); }

} // namespace Toolkit
