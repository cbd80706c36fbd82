#pragma once

#include "toolkit/base/Observable.h"
#include "toolkit/controls/Selector.h"
#include "toolkit/visual/InputEvents.h"

namespace Toolkit {

/// An item of a long list that knows whether it is the marked one, so that its template can show it.
class ListLine : public NotifyPropertyChangedBase {
  TOOLKIT_TYPE(ListLine)
public:
  ListLine() = default;
  bool IsSelected() const { return isSelected; }
  void SetIsSelected(bool value);

private:
  bool isSelected = false;
};

struct LineChosenEventArgs : RoutedEventArgs {
  using RoutedEventArgs::RoutedEventArgs;
  Ptr<ListLine> line;
};

/// A list of any length whose lines are made only as far as it was scrolled. It stands in a `ScrollViewer`; its items
/// are `ListLine`s. Its keys move a mark, the selection, and choose what is marked; whoever has the focus in its place,
/// such as a search box, gives it its keys. It begins anew, at its top, when its items are cleared.
class LongList : public Selector {
  TOOLKIT_TYPE(LongList)
public:
  /// How many lines the page keys go.
  static inline const DependencyProperty* LinesOfPageProperty = nullptr;
  /// Bubbling: the user wants what the line stands for, by a click or by Return.
  static const RoutedEvent LineChosenEvent;
  /// Bubbling: the user is done with the list, by Escape.
  static const RoutedEvent ListLeftEvent;

  LongList();
  ListLine* Marked() const { return static_cast<ListLine*>(GetSelectedItem()); }
  /// Null takes the mark away.
  void Mark(ListLine* line) { SetSelectedItem(line); }
  static bool IsWorkedBy(Key key);
  /// Does what the key stands for; false if that is nothing.
  bool Work(Key key);

protected:
  void OnPropertyChanged(const PropertyChange& change) override;
  void OnItemsChanged(const CollectionChange& change) override;
  size_t ContainerCount() const override;
  void OnLayoutChanged(LayoutChange change) override;
  void OnRoutedEvent(const RoutedEventArgs& args) override;

private:
  void MakeLines(size_t count);
  void Step(int distance);
  void Choose(ListLine& line);

  /// Of the first items, whether or not there are so many.
  size_t madeLines;
};

} // namespace Toolkit
