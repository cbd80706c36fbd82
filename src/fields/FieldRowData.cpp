#include "fields/FieldRowData.h"

#include "toolkit/controls/ButtonBase.h"

namespace Tesselor {

using Toolkit::Visibility;

TOOLKIT_TYPE_IMPL(FieldRowData, Toolkit::NotifyPropertyChangedBase, "Tesselor.FieldRowData")
void FieldRowData::Describe(Toolkit::TypeBuilder<FieldRowData>& type) {
  type.Member<&FieldRowData::GetValue, &FieldRowData::SetValue>("Value");
  type.Member<&FieldRowData::GetUpButtonVisibility, &FieldRowData::SetUpButtonVisibility>("UpButtonVisibility");
  type.Member<&FieldRowData::GetDownButtonVisibility, &FieldRowData::SetDownButtonVisibility>("DownButtonVisibility");
  type.Member<&FieldRowData::GetSelectFileButtonVisibility, &FieldRowData::SetSelectFileButtonVisibility>(
      "SelectFileButtonVisibility");
}

void FieldRowData::SetValue(const Toolkit::SharedString& newValue) {
  value = newValue;
  OnPropertyChanged("Value");
}

void FieldRowData::SetUpButtonVisibility(Visibility visibility) {
  if (upButtonVisibility == visibility) return;
  upButtonVisibility = visibility;
  OnPropertyChanged("UpButtonVisibility");
}

void FieldRowData::SetDownButtonVisibility(Visibility visibility) {
  if (downButtonVisibility == visibility) return;
  downButtonVisibility = visibility;
  OnPropertyChanged("DownButtonVisibility");
}

void FieldRowData::SetSelectFileButtonVisibility(Visibility visibility) {
  if (selectFileButtonVisibility == visibility) return;
  selectFileButtonVisibility = visibility;
  OnPropertyChanged("SelectFileButtonVisibility");
}

void UpdateMoveButtons(const Toolkit::ObservableCollectionBase& rows) {
  const size_t count = rows.Count();
  if (count == 0) return;
  const auto row = [&rows](size_t index) { return static_cast<FieldRowData*>(rows.ItemAt(index)); };
  row(0)->SetUpButtonVisibility(Visibility::Hidden);
  row(0)->SetDownButtonVisibility(Visibility::Visible);
  row(count - 1)->SetDownButtonVisibility(Visibility::Hidden);
  if (count >= 2) row(count - 1)->SetUpButtonVisibility(Visibility::Visible);
  if (count >= 3) {
    row(1)->SetUpButtonVisibility(Visibility::Visible);
    row(count - 2)->SetDownButtonVisibility(Visibility::Visible);
  }
}

FieldRowData* RowOfButton(Toolkit::Object* sender) {
  const auto* button = Toolkit::DynamicCast<Toolkit::Button>(sender);
  return button ? Toolkit::DynamicCast<FieldRowData>(button->GetDataContext()) : nullptr;
}

} // namespace Tesselor
