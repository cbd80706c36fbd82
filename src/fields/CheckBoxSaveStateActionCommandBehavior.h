#pragma once

#include "toolkit/base/RoutedEvent.h"
#include "toolkit/visual/Behavior.h"
#include "values/FieldCheckboxData.h"

namespace Tesselor {

/// Makes one undo step of each click on a check box. Does nothing on an element that is no check box.
class CheckBoxSaveStateActionCommandBehavior : public Toolkit::BehaviorT<Toolkit::FrameworkElement> {
  TOOLKIT_TYPE(CheckBoxSaveStateActionCommandBehavior)
public:
  static inline const Toolkit::DependencyProperty* FieldCheckboxDataProperty = nullptr;

protected:
  void OnAttached() override;
  void OnDetaching() override;

private:
  void OnClick(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
};

} // namespace Tesselor
