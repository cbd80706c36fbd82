#pragma once

#include "toolkit/controls/Panel.h"

namespace Toolkit {

enum class Dock : uint8_t { Left, Top, Right, Bottom };
const EnumDescription& DescribeEnum(Dock);

/// Places children along its edges; the last one fills the rest.
class DockPanel : public Panel {
  TOOLKIT_TYPE(DockPanel)
public:
  static inline const DependencyProperty* DockProperty = nullptr;
  static inline const DependencyProperty* LastChildFillProperty = nullptr;
  DockPanel() = default;

protected:
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
};

} // namespace Toolkit
