#pragma once

#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/UserControl.h"
#include "toolkit/visual/InputEvents.h"

namespace Tesselor {

class BaseField;
class ContentNode;

/// An inspector beside the canvas: a second control for each body field of one node, and a check box per field that
/// shows or hides it on the node. The user may drag its left edge.
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

  /// Null while the panel is closed.
  ContentNode* Node() const { return node.Get(); }
  /// Fills the panel for the node. A type without body fields leaves it empty and collapsed.
  void OpenNode(ContentNode* node);
  /// Collapses the panel and removes the rows.
  void Close();

private:
  void AddRow(BaseField& field);
  void OnCloseButtonClicked(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnGripPressed(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);
  void OnGripMoved(Toolkit::Object* sender, const Toolkit::MouseEventArgs& args);
  void OnGripReleased(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);

  // Held by the tree that the document describes.
  Toolkit::StackPanel* fieldsStack = nullptr;
  Toolkit::FrameworkElement* resizeGrip = nullptr;
  Toolkit::Ptr<ContentNode> node;
  /// Where on the grip it is held.
  float heldAt = 0;
};

} // namespace Tesselor
