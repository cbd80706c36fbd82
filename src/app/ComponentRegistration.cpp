#include "app/ComponentRegistration.h"

#include "app/App.h"
#include "editor/EditorRegistration.h"
#include "editor/MainView.h"
#include "fields/FieldRegistration.h"
#include "nodes/NodeRegistration.h"

namespace Tesselor {

void RegisterComponents() {
  App::StaticType();
  RegisterFieldTypes();
  RegisterNodeTypes();
  RegisterEditorTypes();
  WorkspaceItemData::StaticType();
  MainView::StaticType();
}

} // namespace Tesselor
