#pragma once

#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/UserControl.h"

namespace Tesselor {

class BaseField;
class ContentNode;

/// A side panel with a second editor for each body field of one node, and a check box per field that shows or hides
/// it on the node. The copies read the carriers of the node's own fields.
class NodePanel : public Toolkit::UserControl {
  TOOLKIT_TYPE(NodePanel)
public:
  static inline const Toolkit::DependencyProperty* NodePanelVisibilityProperty = nullptr;
  static inline const Toolkit::DependencyProperty* NodeCategoryProperty = nullptr;
  static inline const Toolkit::DependencyProperty* NodeNameProperty = nullptr;

  NodePanel();
  Toolkit::Visibility GetNodePanelVisibility() const { return Get<Toolkit::Visibility>(NodePanelVisibilityProperty); }
  std::string_view GetNodeName() const { return GetString(NodeNameProperty); }
  /// The parent of the rows, which are of the class `PanelBaseField`.
  Toolkit::StackPanel* GetFieldsStack() const { return fieldsStack; }

  /// Fills the panel for the node. A type without body fields leaves it empty and collapsed.
  void OpenNode(ContentNode* node);
  /// Collapses the panel and removes the rows.
  void Close();

private:
  void AddRow(BaseField& field);

  /// Held by the tree that the document describes.
  Toolkit::StackPanel* fieldsStack = nullptr;
};

} // namespace Tesselor
