#include "editor/NodePanel.h"

#include "editor/PanelBaseField.h"
#include "nodes/ContentNode.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/markup/GUI.h"
#include "toolkit/visual/Input.h"

#include <algorithm>

namespace Tesselor {

using Toolkit::Visibility;

namespace {
/// Pixels.
constexpr float NarrowestPanel = 260, RoomForCanvas = 300;
} // namespace

TOOLKIT_TYPE_IMPL(NodePanel, Toolkit::UserControl, "Tesselor.NodePanel")
void NodePanel::Describe(Toolkit::TypeBuilder<NodePanel>& type) {
  NodePanelVisibilityProperty = type.Property<Visibility>("NodePanelVisibility", Visibility::Collapsed);
  NodeCategoryProperty = type.Property<Toolkit::SharedString>("NodeCategory");
  NodeNameProperty = type.Property<Toolkit::SharedString>("NodeName");
  type.Handler<&NodePanel::OnCloseButtonClicked>("OnCloseButtonClicked", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&NodePanel::OnGripPressed>("OnGripPressed", MouseLeftButtonDownEvent);
  type.Handler<&NodePanel::OnGripMoved>("OnGripMoved", MouseMoveEvent);
  type.Handler<&NodePanel::OnGripReleased>("OnGripReleased", MouseLeftButtonUpEvent);
}

NodePanel::NodePanel() {
  SetDataContext(this);
  Toolkit::GUI::LoadComponent(*this, "NodePanel.xaml");
  fieldsStack = FindName<Toolkit::StackPanel>("FieldsStack");
  resizeGrip = FindName<Toolkit::FrameworkElement>("ResizeGrip");
  TOOLKIT_ASSERT(fieldsStack && resizeGrip);
}

void NodePanel::OpenNode(ContentNode* opened) {
  Close();
  if (!opened->HasBlueprint() || opened->Blueprint().content.empty()) return;
  node = Toolkit::Ptr<ContentNode>(opened);
  const NodeBlueprint& blueprint = node->Blueprint();
  SetValue(NodePanelVisibilityProperty, Visibility::Visible);
  const std::string* schemaType = blueprint.schema.Find("Type");
  SetValue(NodeNameProperty, schemaType ? *schemaType : node->TypeId());
  SetValue(NodeCategoryProperty, node->DisplayName());
  for (const auto& entry : blueprint.content)
    if (const auto found = node->contentFields.find(entry->Id); found != node->contentFields.end())
      AddRow(*found->second);
}

void NodePanel::Close() {
  // What is typed in it becomes its step while the control is still there.
  SetValue(NodePanelVisibilityProperty, Visibility::Collapsed);
  fieldsStack->ClearChildren();
  node.Reset();
}

void NodePanel::AddRow(BaseField& field) {
  auto row = Toolkit::MakePtr<PanelBaseField>();
  row->SetNodeField(&field);
  row->GetFieldRow()->AddChild(BaseField::MakeSecondControl(field).Get());
  row->SetDataContext(&field);
  fieldsStack->AddChild(row.Get());
  row->GetCheckBox()->SetIsChecked(field.GetVisibility() == Visibility::Visible);
}

void NodePanel::OnCloseButtonClicked(Toolkit::Object*, const Toolkit::RoutedEventArgs&) { Close(); }

void NodePanel::OnGripPressed(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  heldAt = Toolkit::Mouse::GetPosition(resizeGrip).x;
  resizeGrip->CaptureMouse();
  args.handled = true;
}

void NodePanel::OnGripMoved(Toolkit::Object*, const Toolkit::MouseEventArgs&) {
  if (!resizeGrip->HasMouseCapture()) return;
  const auto* around = Toolkit::DynamicCast<Toolkit::FrameworkElement>(UIParent());
  const float widest = around ? around->ActualWidth() - RoomForCanvas : NarrowestPanel;
  const float wanted = ActualWidth() - Toolkit::Mouse::GetPosition(this).x + heldAt;
  SetWidth(std::clamp(wanted, NarrowestPanel, std::max(widest, NarrowestPanel)));
}

void NodePanel::OnGripReleased(Toolkit::Object*, const Toolkit::MouseButtonEventArgs&) {
  resizeGrip->ReleaseMouseCapture();
}

} // namespace Tesselor
