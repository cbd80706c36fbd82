#include "values/FieldTextData.h"

#include <cstring>

namespace Tesselor {

TOOLKIT_TYPE_IMPL(FieldTextData, Toolkit::NotifyPropertyChangedBase, "Tesselor.FieldTextData")
void FieldTextData::Describe(Toolkit::TypeBuilder<FieldTextData>& type) {
  type.Member<&FieldTextData::GetText, &FieldTextData::AssignValue>("Value");
}

bool FieldTextData::SetValue(const Toolkit::SharedString& newText) {
  static const Toolkit::Symbol valueName("Value");
  if (text.CString() == newText.CString() || std::strcmp(text.CString(), newText.CString()) == 0) return false;
  text = newText;
  OnPropertyChanged(valueName);
  return true;
}

} // namespace Tesselor
