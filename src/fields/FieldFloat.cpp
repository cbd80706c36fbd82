#include "fields/FieldFloat.h"

#include "fields/FieldOptions.h"
#include "fields/NumberFilter.h"
#include "fields/NumberText.h"
#include "fields/WrittenNumber.h"
#include "toolkit/controls/TextBox.h"

#include <cjson/cJSON.h>

namespace Tesselor {

using Toolkit::TextBox;

TOOLKIT_TYPE_IMPL(FieldFloat, BaseField, "Tesselor.FieldFloat")
void FieldFloat::Describe(Toolkit::TypeBuilder<FieldFloat>& type) {
  WidthProperty = type.Property<int32_t>("Width", 75);
  type.Member<&FieldFloat::GetFieldTextData>("FieldTextData");
}

FieldFloat::FieldFloat() {
  static const Toolkit::SharedString initialText("0.0");
  fieldTextData = Toolkit::MakePtr<FieldTextData>(initialText);
  InitializeComponent();
  inputText = Toolkit::Ptr<TextBox>(FindName<TextBox>("InputText"));
  if (inputText)
    inputText->AddHandler(TextBox::TextChangedEvent,
                          Toolkit::RoutedEventHandler::From<&FieldFloat::OnTextChanged>(this));
}

void FieldFloat::InitializeComponent() {
  BindToSelf();
  LoadDocument("FieldFloat.xaml");
}

void FieldFloat::Serialize(cJSON* object, const std::string& key) {
  cJSON_AddNumberToObject(object, key.c_str(), WrittenDouble(fieldTextData->GetValue()));
}

void FieldFloat::Deserialize(const cJSON* object, const std::string& key) {
  DeserializeValue(cJSON_GetObjectItem(object, key.c_str()));
}

void FieldFloat::DeserializeOptions(const cJSON* options, bool applyDefaults) {
  BaseField::DeserializeOptions(options, applyDefaults);
  const FieldOptions own(options);
  if (const auto width = own.Integer(FieldOption::Width)) SetValue(WidthProperty, *width);
  // The bounds come after the default, which they therefore do not clamp. They are whole numbers.
  if (const auto value = own.Number(FieldOption::Default)) {
    defaultValue = *value;
    hasDefault = true;
    if (applyDefaults) fieldTextData->SetValue(FloatText(defaultValue));
  }
  if (const auto maximum = own.Integer(FieldOption::Max)) maxValue = *maximum;
  if (const auto minimum = own.Integer(FieldOption::Min)) minValue = *minimum;
}

void FieldFloat::DeserializeValue(const cJSON* item) {
  if (!cJSON_IsNumber(item)) return;
  fieldTextData->SetValue(FloatText(item->valuedouble));
  hasLoadedValue = true;
}

bool FieldFloat::IsDefault() const {
  if (!hasDefault) return false;
  const std::optional<double> number = ParseDouble(fieldTextData->GetValue());
  return number && AreNear(defaultValue, *number);
}

std::string FieldFloat::GetValueAsString() const { return std::string(fieldTextData->GetValue()); }

void FieldFloat::OnTextChanged(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  const auto filtered = FilterFloatText(inputText->GetText(), minValue, maxValue);
  if (!filtered) return;
  // Setting the text comes back here, until the filter has nothing left to change.
  inputText->SetText(*filtered);
  // While the binding carries a text to the box, it does not carry the box's answer back.
  fieldTextData->SetValue(inputText->GetText());
}

} // namespace Tesselor
