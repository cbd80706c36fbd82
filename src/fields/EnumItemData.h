#pragma once

#include "toolkit/base/Observable.h"
#include "toolkit/base/SharedString.h"

namespace Tesselor {

/// One option of an enum field.
class EnumItemData : public Toolkit::NotifyPropertyChangedBase {
  TOOLKIT_TYPE(EnumItemData)
public:
  EnumItemData() = default;
  explicit EnumItemData(Toolkit::SharedString value) : value(std::move(value)) {}
  const Toolkit::SharedString& GetValue() const { return value; }
  void SetValue(const Toolkit::SharedString& newValue);

private:
  Toolkit::SharedString value;
};

} // namespace Tesselor
