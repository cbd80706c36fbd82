#include "toolkit/controls/Selector.h"

namespace Toolkit {

const RoutedEvent Selector::SelectionChangedEvent("SelectionChanged", RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(Selector, ItemsControl, "Selector")
void Selector::Describe(TypeBuilder<Selector>& type) {
  using P = DependencyProperty;
  SelectedIndexProperty = type.Property<int32_t>("SelectedIndex", -1, P::BindsTwoWay | P::AffectsRender);
  SelectedItemProperty = type.Property<Object*>("SelectedItem", nullptr, P::BindsTwoWay | P::AffectsRender);
  type.Event(&SelectionChangedEvent);
}

void Selector::OnPropertyChanged(const PropertyChange& change) {
  ItemsControl::OnPropertyChanged(change);
  if (syncing) return;
  if (&change.property == SelectedIndexProperty) {
    const int32_t index = GetSelectedIndex();
    const bool valid = index >= 0 && static_cast<size_t>(index) < ItemCount();
    SyncSelection(valid ? index : -1, valid ? ItemAt(static_cast<size_t>(index)) : nullptr);
  } else if (&change.property == SelectedItemProperty) {
    Object* item = GetSelectedItem();
    for (size_t i = 0; i < ItemCount(); ++i)
      if (item && ItemAt(i) == item) return SyncSelection(static_cast<int32_t>(i), item);
    SyncSelection(-1, nullptr);
  }
}

void Selector::SyncSelection(int32_t index, Object* item) {
  syncing = true;
  SetValue(SelectedIndexProperty, index);
  SetValue(SelectedItemProperty, item);
  syncing = false;
  RaiseEvent(RoutedEventArgs(SelectionChangedEvent, this));
}

void Selector::OnItemsChanged(const CollectionChange&) {
  Object* item = GetSelectedItem();
  if (!item) return;
  int32_t index = -1;
  for (size_t i = 0; i < ItemCount() && index < 0; ++i)
    if (ItemAt(i) == item) index = static_cast<int32_t>(i);
  if (index == GetSelectedIndex()) return;
  if (index < 0) {
    SyncSelection(-1, nullptr);
    return;
  }
  // The item only moved, so the selection itself did not change.
  syncing = true;
  SetValue(SelectedIndexProperty, index);
  syncing = false;
}

} // namespace Toolkit
