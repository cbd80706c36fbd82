#pragma once

#include "toolkit/controls/ContentControl.h"

namespace Toolkit {

/// Base of the classes that have a document of their own; the document's root element describes the object itself.
class UserControl : public ContentControl {
  TOOLKIT_TYPE(UserControl)
public:
  UserControl() = default;
};

} // namespace Toolkit
