#include "fields/FieldRows.h"

#include "fields/AssetIdReader.h"
#include "platform/FileDialogs.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/ListView.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/visual/Descendants.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(FieldRows, BaseField, "Tesselor.FieldRows")
void FieldRows::Describe(Toolkit::TypeBuilder<FieldRows>& type) {
  type.Handler<&FieldRows::OnAddItem>("OnAddItem", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&FieldRows::OnRemoveItem>("OnRemoveItem", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&FieldRows::OnMoveUp>("OnMoveUp", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&FieldRows::OnMoveDown>("OnMoveDown", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&FieldRows::OnSelectFile>("OnSelectFile", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&FieldRows::OnInputKeyDown>("OnInputKeyDown", KeyDownEvent);
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
  AddRowAt(Subject<FieldRows>().RowCollection().Count());
}

void FieldRows::OnInputKeyDown(Toolkit::Object* sender, const Toolkit::KeyEventArgs& args) {
  auto& field = Subject<FieldRows>();
  const auto* box = Toolkit::DynamicCast<Toolkit::TextBox>(sender);
  const auto* row = box ? Toolkit::DynamicCast<FieldRowData>(box->GetDataContext()) : nullptr;
  const int index = row ? field.RowCollection().IndexOfItem(row) : -1;
  if (args.key != Toolkit::Key::Return || args.isRepeat || index < 0) return;
  args.handled = true;
  // What was typed is a step of its own.
  field.PushUndoIfChanged();
  AddRowAt(static_cast<size_t>(index) + 1);
}

void FieldRows::AddRowAt(size_t index) {
  auto& field = Subject<FieldRows>();
  Toolkit::ObservableCollectionBase& rows = field.RowCollection();
  field.AddEmptyRow();
  if (index + 1 < rows.Count()) rows.Move(rows.Count() - 1, index);
  field.FinishEdit();
  FocusRow(index);
}

void FieldRows::FocusRow(size_t index) {
  const auto* list = FindName<Toolkit::ListView>("ListView");
  if (!list) return;
  UpdateLayout();
  const auto* row = list->GetItemContainerGenerator().ContainerFromIndex(index);
  auto* box = row ? Toolkit::FirstDescendant<Toolkit::TextBox>(*row) : nullptr;
  if (!box) return;
  box->Focus();
  box->BringIntoView();
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
