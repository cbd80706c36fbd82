#pragma once

#include "toolkit/base/Observable.h"

namespace Tesselor {

/// Carries one whole number for all that show or change it.
class FieldIntData : public Toolkit::NotifyPropertyChangedBase {
  TOOLKIT_TYPE(FieldIntData)
public:
  FieldIntData() = default;
  int32_t GetValue() const { return value; }
  void SetValue(int32_t newValue);

private:
  int32_t value = 0;
};

} // namespace Tesselor
