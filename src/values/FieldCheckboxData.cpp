#include "values/FieldCheckboxData.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(FieldCheckboxData, Toolkit::NotifyPropertyChangedBase, "Tesselor.FieldCheckboxData")
void FieldCheckboxData::Describe(Toolkit::TypeBuilder<FieldCheckboxData>& type) {
  type.Member<&FieldCheckboxData::GetValue, &FieldCheckboxData::SetValue>("Value");
}

void FieldCheckboxData::SetValue(bool newValue) {
  if (value == newValue) return;
  value = newValue;
  OnPropertyChanged("Value");
}

} // namespace Tesselor
