#include "fields/FieldRows.h"

#include "fields/AssetIdReader.h"
#include "platform/FileDialogs.h"
#include "toolkit/controls/ButtonBase.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(FieldRows, BaseField, "Tesselor.FieldRows")
void FieldRows::Describe(Toolkit::TypeBuilder<FieldRows>& type) {
  type.Handler<&FieldRows::OnAddItem>("OnAddItem", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&FieldRows::OnRemoveItem>("OnRemoveItem", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&FieldRows::OnMoveUp>("OnMoveUp", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&FieldRows::OnMoveDown>("OnMoveDown", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&FieldRows::OnSelectFile>("OnSelectFile", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&FieldRows::OnInputLostFocus>("OnInputLostFocus", LostFocusEvent);
}

void FieldRows::PrepareRow(FieldRowData& row) const {
  if (itemType == FieldItemType::Uuid) row.SetSelectFileButtonVisibility(Toolkit::Visibility::Visible);
}

int FieldRows::IndexOfSender(Toolkit::Object* sender) const {
  const FieldRowData* row = RowOfButton(sender);
  return row ? RowCollection().IndexOfItem(row) : -1;
}

void FieldRows::FinishEdit() {
  UpdateMoveButtons(RowCollection());
  PushUndoIfChanged();
}

void FieldRows::OnMoveUp(Toolkit::Object* sender, const Toolkit::RoutedEventArgs&) {
  Subject<FieldRows>().MoveRow(sender, -1);
}

void FieldRows::OnMoveDown(Toolkit::Object* sender, const Toolkit::RoutedEventArgs&) {
  Subject<FieldRows>().MoveRow(sender, 1);
}

void FieldRows::MoveRow(Toolkit::Object* sender, int step) {
  const int index = IndexOfSender(sender);
  if (index < 0) return;
  Toolkit::ObservableCollectionBase& rows = RowCollection();
  const int target = index + step;
  if (target < 0 || target >= rows.CountValue()) return;
  rows.Move(static_cast<size_t>(index), static_cast<size_t>(target));
  FinishEdit();
}

void FieldRows::OnAddItem(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  auto& field = Subject<FieldRows>();
  field.AddEmptyRow();
  field.FinishEdit();
}

void FieldRows::OnRemoveItem(Toolkit::Object* sender, const Toolkit::RoutedEventArgs&) {
  auto& field = Subject<FieldRows>();
  const int index = field.IndexOfSender(sender);
  if (index < 0) return;
  field.RowCollection().RemoveAt(static_cast<size_t>(index));
  field.FinishEdit();
}

void FieldRows::OnInputLostFocus(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  auto& field = Subject<FieldRows>();
  if (!field.isRestoring) field.PushUndoIfChanged();
}

void FieldRows::OnSelectFile(Toolkit::Object* sender, const Toolkit::RoutedEventArgs&) {
  const Toolkit::Ptr<FieldRowData> row(RowOfButton(sender));
  if (!row) return;
  const std::optional<std::string> path = FileDialogs::Open();
  if (!path) return;
  if (const std::optional<std::string> id = ReadAssetId(*path)) row->SetValue(*id);
  Subject<FieldRows>().PushUndoIfChanged();
}

} // namespace Tesselor
