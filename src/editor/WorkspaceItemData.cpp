#include "editor/WorkspaceItemData.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(WorkspaceItemData, Toolkit::NotifyPropertyChangedBase, "Tesselor.WorkspaceItemData")
void WorkspaceItemData::Describe(Toolkit::TypeBuilder<WorkspaceItemData>& type) {
  type.Member<&WorkspaceItemData::GetValue>("Value");
}

} // namespace Tesselor
