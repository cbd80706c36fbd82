#pragma once

#include "toolkit/controls/Selector.h"

namespace Toolkit {

/// Shows the selected item; its list drops down in a popup that is made when it first opens.
class ComboBox : public Selector {
  TOOLKIT_TYPE(ComboBox)
public:
  static inline const DependencyProperty* IsDropDownOpenProperty = nullptr;
  static inline const DependencyProperty* MaxDropDownHeightProperty = nullptr;

  ComboBox() = default;
  bool IsDropDownOpen() const { return Get<bool>(IsDropDownOpenProperty); }
  void SetIsDropDownOpen(bool open) { SetValue(IsDropDownOpenProperty, open); }

protected:
  void OnRoutedEvent(const RoutedEventArgs& args) override;
  void OnPropertyChanged(const PropertyChange& change) override;
  void PrepareForMeasure() override {}
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  bool HitTestSelf(Point point) const override { return Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point); }

private:
  SharedString SelectedText() const;
};

} // namespace Toolkit
