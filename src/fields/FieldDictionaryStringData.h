#pragma once

#include "fields/FieldRowData.h"

namespace Tesselor {

/// One row of a dictionary.
class FieldDictionaryStringData : public FieldRowData {
  TOOLKIT_TYPE(FieldDictionaryStringData)
public:
  FieldDictionaryStringData() = default;
  const Toolkit::SharedString& GetKey() const { return key; }
  void SetKey(const Toolkit::SharedString& newKey);

private:
  Toolkit::SharedString key;
};

} // namespace Tesselor
