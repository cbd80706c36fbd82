#pragma once

#include "toolkit/controls/ContentControl.h"

namespace Toolkit {

/// A caption.
class Label : public ContentControl {
  TOOLKIT_TYPE(Label)
public:
  Label() = default;
};

/// A small window with an explanation, shown while the mouse rests on its owner.
class ToolTip : public ContentControl {
  TOOLKIT_TYPE(ToolTip)
public:
  ToolTip() = default;
};

} // namespace Toolkit
