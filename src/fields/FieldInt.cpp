#include "fields/FieldInt.h"

#include "fields/FieldOptions.h"
#include "fields/NumberFilter.h"
#include "fields/NumberText.h"
#include "fields/WrittenNumber.h"
#include "toolkit/controls/TextBox.h"

#include <cjson/cJSON.h>

namespace Tesselor {

using Toolkit::TextBox;

TOOLKIT_TYPE_IMPL(FieldInt, BaseField, "Tesselor.FieldInt")
void FieldInt::Describe(Toolkit::TypeBuilder<FieldInt>& type) {
  WidthProperty = type.Property<int32_t>("Width", 75);
  type.Member<&FieldInt::GetFieldTextData>("FieldTextData");
}

FieldInt::FieldInt() {
  static const Toolkit::SharedString initialText("0");
  fieldTextData = Toolkit::MakePtr<FieldTextData>(initialText);
  InitializeComponent();
  inputText = Toolkit::Ptr<TextBox>(FindName<TextBox>("InputText"));
  if (inputText)
    inputText->AddHandler(TextBox::TextChangedEvent, Toolkit::RoutedEventHandler::From<&FieldInt::OnTextChanged>(this));
}

void FieldInt::InitializeComponent() {
  BindToSelf();
  LoadDocument("FieldInt.xaml");
}

void FieldInt::Serialize(cJSON* object, const std::string& key) {
  cJSON_AddNumberToObject(object, key.c_str(), WrittenInteger(fieldTextData->GetValue()));
}

void FieldInt::Deserialize(const cJSON* object, const std::string& key) {
  DeserializeValue(cJSON_GetObjectItem(object, key.c_str()));
}

void FieldInt::DeserializeOptions(const cJSON* options, bool applyDefaults) {
  BaseField::DeserializeOptions(options, applyDefaults);
  const FieldOptions own(options);
  if (const auto width = own.Integer(FieldOption::Width)) SetValue(WidthProperty, *width);
  // The bounds come after the default, which they therefore do not clamp.
  if (const auto value = own.Integer(FieldOption::Default)) {
    defaultValue = *value;
    hasDefault = true;
    if (applyDefaults) fieldTextData->SetValue(std::to_string(defaultValue));
  }
  maxValue = own.Integer(FieldOption::Max).value_or(maxValue);
  minValue = own.Integer(FieldOption::Min).value_or(minValue);
}

void FieldInt::DeserializeValue(const cJSON* item) {
  if (!cJSON_IsNumber(item)) return;
  fieldTextData->SetValue(std::to_string(item->valueint));
  hasLoadedValue = true;
}

bool FieldInt::IsDefault() const {
  if (!hasDefault) return false;
  const std::optional<int32_t> number = ParseInteger(fieldTextData->GetValue());
  return number && *number == defaultValue;
}

std::string FieldInt::GetValueAsString() const { return std::string(fieldTextData->GetValue()); }

void FieldInt::OnTextChanged(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  const auto filtered = FilterIntegerText(inputText->GetText(), minValue, maxValue);
  if (!filtered) return;
  // Setting the text comes back here, until the filter has nothing left to change.
  inputText->SetText(*filtered);
  // While the binding carries a text to the box, it does not carry the box's answer back.
  fieldTextData->SetValue(inputText->GetText());
}

} // namespace Tesselor
