#pragma once

#include "toolkit/controls/Panel.h"

namespace Toolkit {

enum class Orientation : uint8_t { Horizontal, Vertical };
const EnumDescription& DescribeEnum(Orientation);

/// Places children one behind the other.
class StackPanel : public Panel {
  TOOLKIT_TYPE(StackPanel)
public:
  static inline const DependencyProperty* OrientationProperty = nullptr;
  StackPanel() = default;
  Orientation GetOrientation() const { return Get<Orientation>(OrientationProperty); }
  void SetOrientation(Orientation value) { SetValue(OrientationProperty, value); }

protected:
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  void RenderChildren(Painter& painter) override;
};

} // namespace Toolkit
