#pragma once

#include "editor/NodeCategoryHeader.h"
#include "editor/NodeMenuFilter.h"
#include "editor/NodeTypeList.h"
#include "toolkit/controls/Grid.h"
#include "toolkit/controls/HeaderedContentControl.h"
#include "toolkit/controls/ScrollViewer.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/controls/UserControl.h"
#include "toolkit/visual/InputEvents.h"
#include "toolkit/visual/Transform.h"
#include "workspace/Workspace.h"

#include <memory>
#include <optional>
#include <string>
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
/// The rows are made when they can be seen: a closed menu only remembers which list is due. There is one row per
/// category for as long as the workspace stays; a filter hides rows and lists other entries in them.
///
/// The keys of the search box work the list: Down, Up, PageDown and PageUp move a mark through its entries, and Return
/// takes the marked one, or else the first.
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
  /// Direct: the open menu has another height, as when a category opens.
  static const Toolkit::RoutedEvent ResizedEvent;

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
  /// The rows, made now if they are due: one `Grid` with one `Expander` per category, hidden where nothing passes.
  Toolkit::Grid* GetList();
  /// Null if no entry is marked.
  const NodeTypeList::Entry* Marked() const;

  /// Lists the types of that workspace, whose dictionary is loaded.
  void SetWorkspace(std::shared_ptr<Workspace> newWorkspace);
  /// Lists what the filter lets through.
  void ApplyFilter(const NodeMenuFilter& newFilter);
  /// Shows the menu with the focus in its search box.
  void Open();
  /// At most so large, in pixels: the list becomes shorter and is scrolled instead.
  void FitInto(Toolkit::Size room);
  /// Closes the menu and forgets text and filter. The list stays as it is if there was no text.
  void Hide();

protected:
  void OnLayoutChanged(Toolkit::LayoutChange change) override;
  /// An entry may be wider than the menu, which cuts it off: the canvas must not pan for that.
  Toolkit::Rect Reveal(const Toolkit::Rect& area) override;

private:
  /// One category: its parts belong to the tree.
  struct Row {
    Toolkit::Grid* frame = nullptr;
    Toolkit::Expander* expander = nullptr;
    NodeCategoryHeader* header = nullptr;
    NodeTypeList* types = nullptr;

    bool IsListed() const { return frame->GetVisibility() == Toolkit::Visibility::Visible; }
  };
  /// An entry by its row and its position in it.
  struct Place {
    size_t row, position;
  };

  static void OnVisibilityChanged(Toolkit::DependencyObject& object, const Toolkit::PropertyChange& change);
  static void OnSearchTextChanged(Toolkit::DependencyObject& object, const Toolkit::PropertyChange& change);
  void OnSearchKeyDown(Toolkit::Object* sender, const Toolkit::KeyEventArgs& args);
  void OnCreateGroup(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnCreateLink(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnCreateComment(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);

  const NodeBlueprint* FindBlueprint(const std::string& id) const;
  static bool Passes(const NodeMenuFilter& wanted, const std::string& id, const NodeBlueprint& blueprint);
  void RequestList(const NodeMenuFilter& wanted);
  void MakeListIfDue();
  void MakeRows();
  Row MakeRow(const std::string& category, const std::vector<std::string>& ids);
  /// Lists what passes, and hides the row if that is nothing.
  void FillRow(const Row& row);
  void ExpandRows();
  /// Makes the entries that the viewer shows.
  void BringInEntries();

  /// The next entry in that direction (1 or -1) from one; from none the first or the last.
  std::optional<Place> Next(std::optional<Place> from, int direction) const;
  void MoveMark(int distance);
  /// Marks an entry and brings it into sight, in a row that opens for it.
  void Mark(std::optional<Place> place);
  void TakeMarked();
  std::optional<Place> FirstToTake() const;
  /// Typing must not go on in a box that is no longer seen.
  void HandFocusOn();

  Toolkit::Ptr<Toolkit::ScaleTransform> scale;
  Categories categories;
  std::shared_ptr<Workspace> workspace;
  NodeMenuFilter filter;
  /// Held by the tree that the document describes.
  Toolkit::Grid* list = nullptr;
  Toolkit::ScrollViewer* viewer = nullptr;
  Toolkit::FrameworkElement* body = nullptr;
  Toolkit::FrameworkElement* noMatchText = nullptr;
  /// Of an entry, as the first one that was laid out has it.
  float entryHeight = 0;
  float toldHeight = 0;
  std::vector<Row> rows;
  std::optional<Place> marked;
  /// What the rows show, or will show once they are made.
  NodeMenuFilter listFilter;
  bool listIsDue = false;
};

} // namespace Tesselor
