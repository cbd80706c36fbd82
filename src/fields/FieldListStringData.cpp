#include "fields/FieldListStringData.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(FieldListStringData, FieldRowData, "Tesselor.FieldListData")
void FieldListStringData::Describe(Toolkit::TypeBuilder<FieldListStringData>&) {}

} // namespace Tesselor
