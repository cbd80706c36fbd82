#pragma once

#include "toolkit/base/ObservableCollection.h"
#include "toolkit/base/SharedString.h"
#include "toolkit/visual/UIElement.h"

namespace Tesselor {

/// What the rows of lists and dictionaries have in common: a value as text and the visibility of the row's buttons.
class FieldRowData : public Toolkit::NotifyPropertyChangedBase {
  TOOLKIT_TYPE(FieldRowData)
public:
  const Toolkit::SharedString& GetValue() const { return value; }
  void SetValue(const Toolkit::SharedString& newValue);
  Toolkit::Visibility GetUpButtonVisibility() const { return upButtonVisibility; }
  void SetUpButtonVisibility(Toolkit::Visibility visibility);
  Toolkit::Visibility GetDownButtonVisibility() const { return downButtonVisibility; }
  void SetDownButtonVisibility(Toolkit::Visibility visibility);
  Toolkit::Visibility GetSelectFileButtonVisibility() const { return selectFileButtonVisibility; }
  void SetSelectFileButtonVisibility(Toolkit::Visibility visibility);

protected:
  FieldRowData() = default;

private:
  Toolkit::SharedString value;
  Toolkit::Visibility upButtonVisibility = Toolkit::Visibility::Visible;
  Toolkit::Visibility downButtonVisibility = Toolkit::Visibility::Visible;
  Toolkit::Visibility selectFileButtonVisibility = Toolkit::Visibility::Collapsed;
};

/// Hides the buttons that would move the first row up or the last one down, and shows those that a row lost when it
/// stood at an end. The rows between need no look: only an end hides a button. A hidden button keeps its space.
void UpdateMoveButtons(const Toolkit::ObservableCollectionBase& rows);

/// The row that the pressed button stands in; null if `sender` is no button of a row.
FieldRowData* RowOfButton(Toolkit::Object* sender);

} // namespace Tesselor
