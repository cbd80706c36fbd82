#include "fields/FieldText.h"

#include "fields/FieldOptions.h"

#include <cjson/cJSON.h>

namespace Tesselor {

TOOLKIT_TYPE_IMPL(FieldText, BaseField, "Tesselor.FieldText")
void FieldText::Describe(Toolkit::TypeBuilder<FieldText>& type) {
  WidthProperty = type.Property<int32_t>("Width", 200);
  HeightProperty = type.Property<int32_t>("Height", 60);
  type.Member<&FieldText::GetFieldTextData>("FieldTextData");
  type.Handler<&FieldText::OnInputLostFocus>("OnInputLostFocus", LostFocusEvent);
}

FieldText::FieldText() : fieldTextData(Toolkit::MakePtr<FieldTextData>()) {}

void FieldText::InitializeComponent() {
  BindToSelf();
  LoadDocument("FieldText.xaml");
}

void FieldText::Serialize(cJSON* object, const std::string& key) {
  cJSON_AddStringToObject(object, key.c_str(), fieldTextData->GetText().CString());
}

void FieldText::Deserialize(const cJSON* object, const std::string& key) {
  const cJSON* item = cJSON_GetObjectItem(object, key.c_str());
  if (!cJSON_IsString(item)) return;
  fieldTextData->SetValue(item->valuestring);
  hasLoadedValue = true;
}

void FieldText::DeserializeOptions(const cJSON* options, bool applyDefaults) {
  BaseField::DeserializeOptions(options, applyDefaults);
  const FieldOptions own(options);
  if (const auto width = own.Integer(FieldOption::Width)) SetValue(WidthProperty, *width);
  if (const auto height = own.Integer(FieldOption::Height)) SetValue(HeightProperty, *height);
  if (const auto text = own.SharedText(FieldOption::Default); text && applyDefaults) fieldTextData->SetValue(*text);
}

std::string FieldText::GetValueAsString() const { return std::string(fieldTextData->GetValue()); }

} // namespace Tesselor
