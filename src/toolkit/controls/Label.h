#pragma once

#include "toolkit/controls/ContentControl.h"

namespace Toolkit {

/// A caption.
class Label : public ContentControl {
  TOOLKIT_TYPE(Label)
public:
  Label() = default;
};

} // namespace Toolkit
