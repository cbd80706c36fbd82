#include "fields/FieldCheckbox.h"

#include "fields/FieldOptions.h"

#include <cjson/cJSON.h>

namespace Tesselor {

TOOLKIT_TYPE_IMPL(FieldCheckbox, BaseField, "Tesselor.FieldCheckbox")
void FieldCheckbox::Describe(Toolkit::TypeBuilder<FieldCheckbox>& type) {
  type.Member<&FieldCheckbox::GetFieldCheckboxData>("FieldCheckboxData");
}

FieldCheckbox::FieldCheckbox() : fieldCheckboxData(Toolkit::MakePtr<FieldCheckboxData>()) {}

void FieldCheckbox::InitializeComponent() {
  BindToSelf();
  LoadDocument("FieldCheckbox.xaml");
}

void FieldCheckbox::Serialize(cJSON* object, const std::string& key) {
  cJSON_AddBoolToObject(object, key.c_str(), fieldCheckboxData->GetValue());
}

void FieldCheckbox::Deserialize(const cJSON* object, const std::string& key) {
  const cJSON* item = cJSON_GetObjectItem(object, key.c_str());
  if (!cJSON_IsBool(item)) return;
  fieldCheckboxData->SetValue(cJSON_IsTrue(item));
  hasLoadedValue = true;
}

void FieldCheckbox::DeserializeOptions(const cJSON* options, bool applyDefaults) {
  BaseField::DeserializeOptions(options, applyDefaults);
  const FieldOptions own(options);
  if (!own.Has(FieldOption::Default)) return;
  defaultValue = own.IsTrue(FieldOption::Default);
  hasDefault = true;
  if (applyDefaults) fieldCheckboxData->SetValue(defaultValue);
}

bool FieldCheckbox::IsDefault() const { return hasDefault && fieldCheckboxData->GetValue() == defaultValue; }

std::string FieldCheckbox::GetValueAsString() const { return fieldCheckboxData->GetValue() ? "true" : "false"; }

} // namespace Tesselor
