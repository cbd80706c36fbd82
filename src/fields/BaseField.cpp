#include "fields/BaseField.h"

#include "fields/FieldOptions.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/markup/GUI.h"

#include <utility>

namespace Tesselor {

TOOLKIT_TYPE_IMPL(BaseField, Toolkit::UserControl, "Tesselor.BaseField")
void BaseField::Describe(Toolkit::TypeBuilder<BaseField>& type) {
  LabelProperty = type.Property<std::string>("Label", "Data");
  DescriptionProperty = type.Property<std::string>("Description");
}

void BaseField::DeserializeOptions(const cJSON* options, bool) {
  const FieldOptions common(options);
  if (const auto label = common.SharedText(FieldOption::Label)) SetValue(LabelProperty, *label);
  if (const auto description = common.SharedText(FieldOption::Description)) SetValue(DescriptionProperty, *description);
  active = common.Boolean(FieldOption::Active).value_or(active);
  required = common.Boolean(FieldOption::Required).value_or(required);
}

Toolkit::Ptr<BaseField> BaseField::MakeSecondControl(BaseField& field) {
  const Toolkit::Ptr<Toolkit::Object> made = Toolkit::Ptr<Toolkit::Object>::Adopt(field.GetType().Create());
  Toolkit::Ptr<BaseField> control(Toolkit::DynamicCast<BaseField>(made.Get()));
  TOOLKIT_ASSERT(control);
  control->ShowValueOf(field.Subject<BaseField>());
  return control;
}

void BaseField::ShowValueOf(BaseField& field) {
  MakeControls();
  subject = Toolkit::Ptr<BaseField>(&field);
  // From here on the bindings of the control's document read the properties, carriers and collections of that one.
  SetDataContext(&field);
}

void BaseField::MakeControls() {
  if (hasControls) return;
  hasControls = true;
  InitializeComponent();
}

void BaseField::ShareSize(std::shared_ptr<FieldSize> size) {
  if (HasSizeOfItsOptions()) sharedSize = std::move(size);
}

Toolkit::Size BaseField::MeasureOverride(Toolkit::Size available) {
  if (!hasControls && sharedSize && sharedSize->isKnown && sharedSize->available == available)
    return sharedSize->wanted;
  MakeControls();
  const Toolkit::Size wanted = UserControl::MeasureOverride(available);
  if (sharedSize && !sharedSize->isKnown) *sharedSize = {true, available, wanted};
  return wanted;
}

void BaseField::BindToSelf() { SetDataContext(this); }

void BaseField::LoadDocument(std::string_view name) { Toolkit::GUI::LoadComponent(*this, name); }

} // namespace Tesselor
