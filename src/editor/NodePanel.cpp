#include "editor/NodePanel.h"

#include "editor/PanelBaseField.h"
#include "fields/FieldFactory.h"
#include "fields/FieldList.h"
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
      AddRow(found->second.Get(), *entry);
}

void NodePanel::Close() {
  SetValue(NodePanelVisibilityProperty, Visibility::Collapsed);
  fieldsStack->ClearChildren();
}

void NodePanel::AddRow(BaseField* field, const NodeFieldBlueprint& blueprint) {
  const Toolkit::Ptr<BaseField> copy = sCreateField(&blueprint, true);
  if (!copy) return;
  // From here on the copy's bindings read the properties and carriers of the node's own field.
  copy->SetDataContext(field->GetDataContext());
  if (const auto* list = Toolkit::DynamicCast<FieldList>(field))
    if (auto* listCopy = Toolkit::DynamicCast<FieldList>(copy.Get())) listCopy->ShareRows(*list);
  auto row = Toolkit::MakePtr<PanelBaseField>();
  row->SetNodeField(field);
  row->GetFieldRow()->AddChild(copy.Get());
  row->SetDataContext(field->GetDataContext());
  fieldsStack->AddChild(row.Get());
  row->GetCheckBox()->SetIsChecked(field->GetVisibility() == Visibility::Visible);
}

} // namespace Tesselor
