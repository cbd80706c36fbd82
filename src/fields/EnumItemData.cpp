#include "fields/EnumItemData.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(EnumItemData, Toolkit::NotifyPropertyChangedBase, "Tesselor.EnumItemData")
void EnumItemData::Describe(Toolkit::TypeBuilder<EnumItemData>& type) {
  type.Member<&EnumItemData::GetValue, &EnumItemData::SetValue>("Value");
}

void EnumItemData::SetValue(const Toolkit::SharedString& newValue) {
  value = newValue;
  OnPropertyChanged("Value");
}

} // namespace Tesselor
