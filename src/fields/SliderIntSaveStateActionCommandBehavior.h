#pragma once

#include "toolkit/base/RoutedEvent.h"
#include "toolkit/visual/Behavior.h"
#include "values/FieldIntData.h"

namespace Tesselor {

/// Makes one undo step of how a slider is moved while it has the focus. Does nothing on an element that is no slider.
class SliderIntSaveStateActionCommandBehavior : public Toolkit::BehaviorT<Toolkit::FrameworkElement> {
  TOOLKIT_TYPE(SliderIntSaveStateActionCommandBehavior)
public:
  static inline const Toolkit::DependencyProperty* FieldIntDataProperty = nullptr;

protected:
  void OnAttached() override;
  void OnDetaching() override;

private:
  FieldIntData* Carrier() const { return Get<FieldIntData*>(FieldIntDataProperty); }
  void Remember();
  void OnGotFocus(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnLostFocus(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);

  int32_t remembered = 0;
};

} // namespace Tesselor
