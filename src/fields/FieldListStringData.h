#pragma once

#include "fields/FieldRowData.h"

namespace Tesselor {

/// One row of a list.
class FieldListStringData : public FieldRowData {
  TOOLKIT_TYPE(FieldListStringData)
public:
  FieldListStringData() = default;
};

} // namespace Tesselor
