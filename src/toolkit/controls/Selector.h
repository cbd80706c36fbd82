#pragma once

#include "toolkit/controls/ItemsControl.h"

namespace Toolkit {

/// An items control of which one item at most is selected. `SelectedIndex` and `SelectedItem` follow each other.
class Selector : public ItemsControl {
  TOOLKIT_TYPE(Selector)
public:
  static inline const DependencyProperty* SelectedIndexProperty = nullptr;
  static inline const DependencyProperty* SelectedItemProperty = nullptr;
  /// Bubbling.
  static const RoutedEvent SelectionChangedEvent;

  Selector() = default;
  /// -1 without a selection.
  int32_t GetSelectedIndex() const { return Get<int32_t>(SelectedIndexProperty); }
  void SetSelectedIndex(int32_t index) { SetValue(SelectedIndexProperty, index); }
  Object* GetSelectedItem() const { return GetValue(SelectedItemProperty).AsObject(); }
  void SetSelectedItem(Object* item) { SetValue(SelectedItemProperty, item); }

protected:
  void OnPropertyChanged(const PropertyChange& change) override;
  /// Keeps the selected item selected while the list around it changes; a removed item ends the selection.
  void OnItemsChanged(const CollectionChange& change) override;

private:
  void SyncSelection(int32_t index, Object* item);
  bool syncing = false;
};

} // namespace Toolkit
