#pragma once

#include "toolkit/controls/ContentControl.h"

namespace Toolkit {

/// A control that is clicked: by the left mouse button, or by Space or Return while it has the focus.
class ButtonBase : public ContentControl {
  TOOLKIT_TYPE(ButtonBase)
public:
  static const RoutedEvent ClickEvent;
  static inline const DependencyProperty* IsPressedProperty = nullptr;
  ButtonBase() = default;

protected:
  void OnRoutedEvent(const RoutedEventArgs& args) override;
  /// Raises `Click`. Overrides change their state first.
  virtual void OnClick();
};

class Button : public ButtonBase {
  TOOLKIT_TYPE(Button)
public:
  Button() = default;
};

} // namespace Toolkit
