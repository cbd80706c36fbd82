#include "fields/FieldMixed.h"

#include "fields/FieldOptions.h"
#include "fields/MixedValue.h"

#include <cjson/cJSON.h>

namespace Tesselor {

TOOLKIT_TYPE_IMPL(FieldMixed, BaseField, "Tesselor.FieldMixed")
void FieldMixed::Describe(Toolkit::TypeBuilder<FieldMixed>& type) {
  WidthProperty = type.Property<int32_t>("Width", 75);
  type.Member<&FieldMixed::GetFieldTextData>("FieldTextData");
}

FieldMixed::FieldMixed() : fieldTextData(Toolkit::MakePtr<FieldTextData>()) {}

void FieldMixed::InitializeComponent() {
  BindToSelf();
  LoadDocument("FieldMixed.xaml");
}

void FieldMixed::Serialize(cJSON* object, const std::string& key) {
  cJSON_AddItemToObject(object, key.c_str(), CreateMixedJson(fieldTextData->GetText().CString()));
}

void FieldMixed::Deserialize(const cJSON* object, const std::string& key) {
  const auto text = MixedText(cJSON_GetObjectItem(object, key.c_str()));
  if (!text) return;
  fieldTextData->SetValue(*text);
  hasLoadedValue = true;
}

void FieldMixed::DeserializeOptions(const cJSON* options, bool applyDefaults) {
  BaseField::DeserializeOptions(options, applyDefaults);
  const FieldOptions own(options);
  if (const auto width = own.Integer(FieldOption::Width)) SetValue(WidthProperty, *width);
  if (const auto text = own.SharedText(FieldOption::Default); text && applyDefaults) fieldTextData->SetValue(*text);
}

std::string FieldMixed::GetValueAsString() const { return std::string(fieldTextData->GetValue()); }

} // namespace Tesselor
