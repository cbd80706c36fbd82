#include "editor/PanelBaseField.h"

#include "toolkit/base/Diagnostics.h"
#include "toolkit/markup/GUI.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(PanelBaseField, Toolkit::UserControl, "Tesselor.PanelBaseField")
void PanelBaseField::Describe(Toolkit::TypeBuilder<PanelBaseField>& type) {
  IsFieldVisibleProperty = type.Property<bool>("IsFieldVisible", true);
  type.Handler<&PanelBaseField::OnCheckBoxClick>("OnCheckBoxClick", Toolkit::ButtonBase::ClickEvent);
}

PanelBaseField::PanelBaseField() {
  Toolkit::GUI::LoadComponent(*this, "PanelBaseField.xaml");
  checkBox = FindName<Toolkit::CheckBox>("CheckBox");
  fieldRow = FindName<Toolkit::StackPanel>("FieldRow");
  TOOLKIT_ASSERT(checkBox && fieldRow);
}

void PanelBaseField::OnCheckBoxClick(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  if (nodeField)
    nodeField->SetVisibility(checkBox->IsChecked() ? Toolkit::Visibility::Visible : Toolkit::Visibility::Collapsed);
}

} // namespace Tesselor
