#pragma once

#include "editor/NodeMenuFilter.h"
#include "toolkit/controls/Grid.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/controls/UserControl.h"
#include "toolkit/visual/Transform.h"
#include "workspace/Workspace.h"

#include <memory>
#include <vector>

namespace Tesselor {

struct CreateGroupEventArgs : Toolkit::RoutedEventArgs {
  using RoutedEventArgs::RoutedEventArgs;
};
struct CreateLinkEventArgs : Toolkit::RoutedEventArgs {
  using RoutedEventArgs::RoutedEventArgs;
};
struct CreateCommentEventArgs : Toolkit::RoutedEventArgs {
  using RoutedEventArgs::RoutedEventArgs;
};

/// The palette of node types, by category, with a search box and three fixed buttons. It stands on the canvas panel
/// and only raises events; the view makes the nodes.
///
/// The rows are made when they can be seen: a closed menu only remembers which list is due.
class NodesMenu : public Toolkit::UserControl {
  TOOLKIT_TYPE(NodesMenu)
public:
  /// Category name to node ids, in the order of the rows.
  using Categories = OrderedTable<std::vector<std::string>>;

  static inline const Toolkit::DependencyProperty* NodesMenuVisibilityProperty = nullptr;
  static inline const Toolkit::DependencyProperty* SearchTextProperty = nullptr;
  static const Toolkit::RoutedEvent CreateGroupEvent, CreateLinkEvent, CreateCommentEvent;
  /// Bubbling: the menu is no longer seen, for whatever reason.
  static const Toolkit::RoutedEvent ClosedEvent;

  NodesMenu();

  Toolkit::Visibility GetNodesMenuVisibility() const { return Get<Toolkit::Visibility>(NodesMenuVisibilityProperty); }
  void SetNodesMenuVisibility(Toolkit::Visibility value) { SetValue(NodesMenuVisibilityProperty, value); }
  bool IsOpen() const { return GetNodesMenuVisibility() == Toolkit::Visibility::Visible; }
  std::string_view GetSearchText() const { return GetString(SearchTextProperty); }
  void SetSearchText(std::string_view text) { SetValue(SearchTextProperty, text); }
  Toolkit::TextBox* GetSearchTextBox() const;
  /// The canvas sets it to the inverse of the zoom, so that the menu keeps its size on the screen.
  Toolkit::ScaleTransform* GetScaleTransform() const { return scale.Get(); }
  const NodeMenuFilter& GetFilter() const { return filter; }
  /// The rows, made now if they are due: one `Grid` with one `Expander` per category.
  Toolkit::Grid* GetList();

  /// Lists the types of that workspace, whose dictionary is loaded.
  void SetWorkspace(std::shared_ptr<Workspace> newWorkspace);
  /// Lists what the filter lets through.
  void ApplyFilter(const NodeMenuFilter& newFilter);
  /// Shows the menu with the focus in its search box.
  void Open();
  /// Closes the menu and forgets text and filter. The list stays as it is if there was no text.
  void Hide();

private:
  static void OnVisibilityChanged(Toolkit::DependencyObject& object, const Toolkit::PropertyChange& change);
  static void OnSearchTextChanged(Toolkit::DependencyObject& object, const Toolkit::PropertyChange& change);
  void OnCreateGroup(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnCreateLink(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnCreateComment(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);

  const NodeBlueprint* FindBlueprint(const std::string& id) const;
  static bool Passes(const NodeMenuFilter& wanted, const std::string& id, const NodeBlueprint& blueprint);
  void RequestList(const NodeMenuFilter& wanted);
  void MakeListIfDue();
  void MakeRows(const Categories& table);
  void MakeRow(const std::string& category, const std::vector<std::string>& ids);
  void ExpandRows();
  /// Typing must not go on in a box that is no longer seen.
  void HandFocusOn();

  Toolkit::Ptr<Toolkit::ScaleTransform> scale;
  Categories categories;
  std::shared_ptr<Workspace> workspace;
  NodeMenuFilter filter;
  /// Held by the tree that the document describes.
  Toolkit::Grid* list = nullptr;
  /// What the rows show, or will show once they are made.
  NodeMenuFilter listFilter;
  bool listIsDue = false;
};

} // namespace Tesselor
