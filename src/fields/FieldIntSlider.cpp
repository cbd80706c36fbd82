#include "fields/FieldIntSlider.h"

#include "fields/FieldOptions.h"

#include <cjson/cJSON.h>

namespace Tesselor {

TOOLKIT_TYPE_IMPL(FieldIntSlider, BaseField, "Tesselor.FieldIntSlider")
void FieldIntSlider::Describe(Toolkit::TypeBuilder<FieldIntSlider>& type) {
  MaximumProperty = type.Property<int32_t>("Maximum", 100);
  MinimumProperty = type.Property<int32_t>("Minimum", 0);
  WidthProperty = type.Property<int32_t>("Width", 100);
  TickFrequencyProperty = type.Property<int32_t>("TickFrequency", 20);
  LargeChangeProperty = type.Property<int32_t>("LargeChange", 10);
  type.Member<&FieldIntSlider::GetFieldIntData>("FieldIntData");
}

FieldIntSlider::FieldIntSlider() : fieldIntData(Toolkit::MakePtr<FieldIntData>()) { MakeControls(); }

void FieldIntSlider::InitializeComponent() {
  BindToSelf();
  LoadDocument("FieldIntSlider.xaml");
}

void FieldIntSlider::Serialize(cJSON* object, const std::string& key) {
  cJSON_AddNumberToObject(object, key.c_str(), fieldIntData->GetValue());
}

void FieldIntSlider::Deserialize(const cJSON* object, const std::string& key) {
  const cJSON* item = cJSON_GetObjectItem(object, key.c_str());
  if (!cJSON_IsNumber(item)) return;
  fieldIntData->SetValue(item->valueint);
  hasLoadedValue = true;
}

void FieldIntSlider::DeserializeOptions(const cJSON* options, bool applyDefaults) {
  BaseField::DeserializeOptions(options, applyDefaults);
  const FieldOptions own(options);
  if (const auto frequency = own.Integer(FieldOption::TickFrequency)) SetValue(TickFrequencyProperty, *frequency);
  if (const auto change = own.Integer(FieldOption::LargeChange)) SetValue(LargeChangeProperty, *change);
  if (const auto value = own.Integer(FieldOption::Default); value && applyDefaults) fieldIntData->SetValue(*value);
  if (const auto width = own.Integer(FieldOption::Width)) SetValue(WidthProperty, *width);
  if (const auto maximum = own.Integer(FieldOption::Max)) SetValue(MaximumProperty, *maximum);
  if (const auto minimum = own.Integer(FieldOption::Min)) SetValue(MinimumProperty, *minimum);
}

std::string FieldIntSlider::GetValueAsString() const { return std::to_string(fieldIntData->GetValue()); }

} // namespace Tesselor
