#include "editor/EditorRegistration.h"

#include "editor/CreateNodeButton.h"
#include "editor/LossPanel.h"
#include "editor/NodeCategoryHeader.h"
#include "editor/NodeEditorCanvas.h"
#include "editor/NodePanel.h"
#include "editor/NodeSearchPanel.h"
#include "editor/NodeTypeList.h"
#include "editor/NoticeBar.h"
#include "editor/PanelBaseField.h"
#include "editor/StatusLine.h"
#include "editor/VersionsPanel.h"
#include "graph/Connection.h"
#include "graph/ConnectionPath.h"

namespace Tesselor {

void RegisterEditorTypes() {
  BasicRectangle::StaticType();
  BasicLine::StaticType();
  NodeSearchResult::StaticType();
  Connection::StaticType();
  ConnectionPath::StaticType();

  NodesMenu::StaticType();
  CreateNodeButton::StaticType();
  NodeTypeList::StaticType();
  NodeCategoryHeader::StaticType();
  NodeEditorCanvas::StaticType();
  PanelBaseField::StaticType();
  NodePanel::StaticType();
  NodeSearchPanel::StaticType();
  LossLine::StaticType();
  LossPanel::StaticType();
  NoticeAction::StaticType();
  NoticeLine::StaticType();
  NoticeBar::StaticType();
  StatusLine::StaticType();
  VersionLine::StaticType();
  VersionsPanel::StaticType();
}

} // namespace Tesselor
