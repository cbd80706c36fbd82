#include "editor/NodePanel.h"

#include "editor/PanelBaseField.h"
#include "nodes/ContentNode.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/markup/GUI.h"

namespace Tesselor {

using Toolkit::Visibility;

TOOLKIT_TYPE_IMPL(NodePanel, Toolkit::UserControl, "Tesselor.NodePanel")
void NodePanel::Describe(Toolkit::TypeBuilder<NodePanel>& type) {
  NodePanelVisibilityProperty = type.Property<Visibility>("NodePanelVisibility", Visibility::Collapsed);
  NodeCategoryProperty = type.Property<Toolkit::SharedString>("NodeCategory");
  NodeNameProperty = type.Property<Toolkit::SharedString>("NodeName");
}

NodePanel::NodePanel() {
  SetDataContext(this);
  Toolkit::GUI::LoadComponent(*this, "NodePanel.xaml");
  fieldsStack = FindName<Toolkit::StackPanel>("FieldsStack");
  TOOLKIT_ASSERT(fieldsStack);
}

void NodePanel::OpenNode(ContentNode* node) {
  Close();
  if (!node->HasBlueprint() || node->Blueprint().content.empty()) return;
  const NodeBlueprint& blueprint = node->Blueprint();
  SetValue(NodePanelVisibilityProperty, Visibility::Visible);
  const std::string* schemaType = blueprint.schema.Find("Type");
  SetValue(NodeNameProperty, schemaType ? *schemaType : node->TypeId());
  for (const auto& entry : blueprint.content)
    if (const auto found = node->contentFields.find(entry->Id); found != node->contentFields.end())
      AddRow(*found->second);
}

void NodePanel::Close() {
  SetValue(NodePanelVisibilityProperty, Visibility::Collapsed);
  fieldsStack->ClearChildren();
}

void NodePanel::AddRow(BaseField& field) {
  auto row = Toolkit::MakePtr<PanelBaseField>();
  row->SetNodeField(&field);
  row->GetFieldRow()->AddChild(BaseField::MakeSecondControl(field).Get());
  row->SetDataContext(&field);
  fieldsStack->AddChild(row.Get());
  row->GetCheckBox()->SetIsChecked(field.GetVisibility() == Visibility::Visible);
}

} // namespace Tesselor
