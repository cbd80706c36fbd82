#pragma once

#include "fields/BaseField.h"
#include "toolkit/controls/CheckBox.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/UserControl.h"

namespace Tesselor {

/// One row of the node panel: a check box that shows or hides a field on its node, and a copy of the field.
class PanelBaseField : public Toolkit::UserControl {
  TOOLKIT_TYPE(PanelBaseField)
public:
  static inline const Toolkit::DependencyProperty* IsFieldVisibleProperty = nullptr;

  PanelBaseField();
  /// Setting it from code does not touch the node's field.
  Toolkit::CheckBox* GetCheckBox() const { return checkBox; }
  Toolkit::StackPanel* GetFieldRow() const { return fieldRow; }
  BaseField* GetNodeField() const { return nodeField.Get(); }
  void SetNodeField(BaseField* field) { nodeField = Toolkit::Ptr<BaseField>(field); }

private:
  void OnCheckBoxClick(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);

  /// Both are held by the tree that the document describes.
  Toolkit::CheckBox* checkBox = nullptr;
  Toolkit::StackPanel* fieldRow = nullptr;
  Toolkit::Ptr<BaseField> nodeField;
};

} // namespace Tesselor
