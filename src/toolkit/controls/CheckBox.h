#pragma once

#include "toolkit/controls/ButtonBase.h"

namespace Toolkit {

/// A button with two states. `IsChecked` changes before `Click` is raised.
class CheckBox : public ButtonBase {
  TOOLKIT_TYPE(CheckBox)
public:
  static inline const DependencyProperty* IsCheckedProperty = nullptr;
  CheckBox() = default;
  bool IsChecked() const { return Get<bool>(IsCheckedProperty); }
  void SetIsChecked(bool value) { SetValue(IsCheckedProperty, value); }

protected:
  void OnClick() override;
  void OnRender(Painter& painter) override;
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  bool HitTestSelf(Point point) const override { return Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point); }
};

} // namespace Toolkit
