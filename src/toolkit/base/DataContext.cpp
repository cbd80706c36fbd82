#include "toolkit/base/DataContext.h"

namespace Toolkit {

const DependencyProperty* DataContext::Property() {
  static const DependencyProperty* property = [] {
    DependencyProperty declared;
    declared.name = Symbol("DataContext");
    declared.kind = ValueKind::Any;
    declared.flags = DependencyProperty::Inherits;
    return DependencyProperty::Register(std::move(declared));
  }();
  return property;
}

} // namespace Toolkit
