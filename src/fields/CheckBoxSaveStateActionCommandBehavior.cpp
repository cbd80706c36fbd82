#include "fields/CheckBoxSaveStateActionCommandBehavior.h"

#include "fields/CheckBoxValueActionCommand.h"
#include "fields/FieldName.h"
#include "toolkit/controls/CheckBox.h"
#include "values/ActionHistory.h"

namespace Tesselor {

using Toolkit::RoutedEventHandler;

TOOLKIT_TYPE_IMPL(CheckBoxSaveStateActionCommandBehavior, Toolkit::Behavior,
                  "Tesselor.CheckBoxSaveStateActionCommandBehavior")
void CheckBoxSaveStateActionCommandBehavior::Describe(
    Toolkit::TypeBuilder<CheckBoxSaveStateActionCommandBehavior>& type) {
  FieldCheckboxDataProperty = type.Property<FieldCheckboxData*>("FieldCheckboxData", nullptr);
}

void CheckBoxSaveStateActionCommandBehavior::OnAttached() {
  BehaviorT::OnAttached();
  if (auto* box = Toolkit::DynamicCast<Toolkit::CheckBox>(GetAssociatedObject()))
    box->AddHandler(Toolkit::ButtonBase::ClickEvent,
                    RoutedEventHandler::From<&CheckBoxSaveStateActionCommandBehavior::OnClick>(this));
}

void CheckBoxSaveStateActionCommandBehavior::OnDetaching() {
  BehaviorT::OnDetaching();
  if (auto* box = Toolkit::DynamicCast<Toolkit::CheckBox>(GetAssociatedObject()))
    box->RemoveHandler(Toolkit::ButtonBase::ClickEvent,
                       RoutedEventHandler::From<&CheckBoxSaveStateActionCommandBehavior::OnClick>(this));
}

void CheckBoxSaveStateActionCommandBehavior::OnClick(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  // The binding has carried the new state to the carrier before the click is raised.
  if (auto* carrier = Get<FieldCheckboxData*>(FieldCheckboxDataProperty))
    ActionHistory::Instance().Push(std::make_unique<CheckBoxValueActionCommand>(
        Toolkit::Ptr<FieldCheckboxData>(carrier), carrier->GetValue(), NameOfFieldOf(GetAssociatedObject(), "a box")));
}

} // namespace Tesselor
