#pragma once

#include "fields/BaseField.h"
#include "fields/FieldItemType.h"
#include "fields/FieldRowData.h"
#include "toolkit/base/ObservableCollection.h"
#include "toolkit/base/RoutedEvent.h"
#include "toolkit/visual/InputEvents.h"

namespace Tesselor {

/// What lists and dictionaries have in common: rows of text with buttons that add, remove and move them, and an undo
/// that compares snapshots of all rows. The derived class owns the rows and says what a snapshot is.
class FieldRows : public BaseField {
  TOOLKIT_TYPE(FieldRows)
public:
protected:
  FieldRows() = default;

  /// The rows, all of which are `FieldRowData`.
  virtual Toolkit::ObservableCollectionBase& RowCollection() const = 0;
  virtual void AddEmptyRow() = 0;
  /// Makes one undo step of what changed since the last snapshot, if anything did.
  virtual void PushUndoIfChanged() = 0;
  /// Shows the buttons that a new row of this item type has.
  void PrepareRow(FieldRowData& row) const;

  FieldItemType itemType = FieldItemType::String;
  /// The rows are being rebuilt; focus events that this causes are no edits.
  bool isRestoring = false;

private:
  /// The index of the row that the pressed button stands in, or -1.
  int IndexOfSender(Toolkit::Object* sender) const;
  void MoveRow(Toolkit::Object* sender, int step);
  void FinishEdit();

  /// Puts an empty row at a place of this control's field, as an undo step, and the caret into it.
  void AddRowAt(size_t index);
  void FocusRow(size_t index);

  void OnAddItem(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnRemoveItem(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnMoveUp(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnMoveDown(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnInputKeyDown(Toolkit::Object* sender, const Toolkit::KeyEventArgs& args);
  void OnInputLostFocus(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnSelectFile(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
};

} // namespace Tesselor
