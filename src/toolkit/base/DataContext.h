#pragma once

#include "toolkit/base/DependencyProperty.h"

namespace Toolkit {

/// The inherited property that bindings without a source of their own start from.
class DataContext {
public:
  static const DependencyProperty* Property();
};

} // namespace Toolkit
