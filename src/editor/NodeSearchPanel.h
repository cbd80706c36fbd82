#pragma once

#include "editor/NodeSearchResult.h"
#include "nodes/CommentNode.h"
#include "nodes/ContentNode.h"
#include "nodes/GroupNode.h"
#include "toolkit/base/ObservableCollection.h"
#include "toolkit/controls/UserControl.h"
#include "toolkit/visual/InputEvents.h"

#include <string>
#include <vector>

namespace Tesselor {

struct SearchResultSelectedEventArgs : Toolkit::RoutedEventArgs {
  using RoutedEventArgs::RoutedEventArgs;
  Toolkit::Ptr<BaseNode> node;
};

/// Finds nodes by what they hold and tells which one the user chose, by a click or with the keys in its text box. It
/// works on the document's lists as they were when it opened, and never follows the document.
class NodeSearchPanel : public Toolkit::UserControl {
  TOOLKIT_TYPE(NodeSearchPanel)
public:
  static inline const Toolkit::DependencyProperty* PanelVisibilityProperty = nullptr;
  static inline const Toolkit::DependencyProperty* SearchTextProperty = nullptr;
  /// "3 matches", or that there are none.
  static inline const Toolkit::DependencyProperty* CountTextProperty = nullptr;
  static const Toolkit::RoutedEvent SearchResultSelectedEvent;

  /// The document's lists at one moment. Empty entries are skipped.
  struct Snapshot {
    std::vector<Toolkit::Ptr<ContentNode>> contentNodes;
    std::vector<Toolkit::Ptr<GroupNode>> groupNodes;
    std::vector<Toolkit::Ptr<CommentNode>> commentNodes;
  };
  using Results = Toolkit::ObservableCollection<NodeSearchResult>;

  NodeSearchPanel();
  bool IsOpen() const { return Get<Toolkit::Visibility>(PanelVisibilityProperty) == Toolkit::Visibility::Visible; }
  std::string_view GetSearchText() const { return GetString(SearchTextProperty); }
  void SetSearchText(std::string_view text) { SetValue(SearchTextProperty, text); }
  Results* GetSearchResults() const { return results.Get(); }
  NodeSearchResult* GetSelectedResult() const { return static_cast<NodeSearchResult*>(list->Marked()); }

  /// Takes the snapshot, searches it for the present text, shows the panel and selects the text for overtyping.
  void Open(Snapshot newSnapshot);
  /// Deselects the selected result and closes the panel. The results stay.
  void Reset();
  /// Forgets results and snapshot, without closing the panel.
  void Forget();
  /// Lists the content nodes, then the groups, then the comments that match. An empty text matches everything.
  void Search(std::string_view text);

private:
  static void OnSearchTextChanged(Toolkit::DependencyObject& object, const Toolkit::PropertyChange& change);
  void OnClearButtonClicked(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  /// By the mouse or by Return.
  void OnResultClicked(Toolkit::Object* sender, const Toolkit::LineChosenEventArgs& args);
  void OnResultsLeft(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args) { Reset(); }
  Toolkit::ObservableCollectionBase* ReflectedResults() const { return results.Get(); }
  void OnSearchKeyDown(Toolkit::Object* sender, const Toolkit::KeyEventArgs& args);
  void ShowCount();
  /// What was typed last may wait for a pause in typing.
  void SearchNow();
  void RefreshIndex();
  void ReadAhead();

  Toolkit::Ptr<Results> results;
  /// Held by the tree that the document describes.
  Toolkit::LongList* list = nullptr;
  Snapshot snapshot;
  NodeSearchIndex index;
  /// Of the history when the texts were read.
  uint64_t indexedRevision = 0;
  std::string searchedText;
};

} // namespace Tesselor
