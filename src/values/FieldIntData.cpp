#include "values/FieldIntData.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(FieldIntData, Toolkit::NotifyPropertyChangedBase, "Tesselor.FieldIntData")
void FieldIntData::Describe(Toolkit::TypeBuilder<FieldIntData>& type) {
  type.Member<&FieldIntData::GetValue, &FieldIntData::SetValue>("Value");
}

void FieldIntData::SetValue(int32_t newValue) {
  if (value == newValue) return;
  value = newValue;
  OnPropertyChanged("Value");
}

} // namespace Tesselor
