#include "fields/FieldDictionaryStringData.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(FieldDictionaryStringData, FieldRowData, "Tesselor.FieldDictionaryData")
void FieldDictionaryStringData::Describe(Toolkit::TypeBuilder<FieldDictionaryStringData>& type) {
  type.Member<&FieldDictionaryStringData::GetKey, &FieldDictionaryStringData::SetKey>("Key");
}

void FieldDictionaryStringData::SetKey(const Toolkit::SharedString& newKey) {
  key = newKey;
  OnPropertyChanged("Key");
}

} // namespace Tesselor
