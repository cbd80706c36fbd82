#pragma once

#include "toolkit/base/Observable.h"

namespace Tesselor {

/// Carries one truth value for all that show or change it.
class FieldCheckboxData : public Toolkit::NotifyPropertyChangedBase {
  TOOLKIT_TYPE(FieldCheckboxData)
public:
  FieldCheckboxData() = default;
  bool GetValue() const { return value; }
  void SetValue(bool newValue);

private:
  bool value = false;
};

} // namespace Tesselor
