#include "fields/FieldNumber.h"

#include "fields/FieldOptions.h"
#include "toolkit/controls/TextBox.h"

#include <cjson/cJSON.h>

namespace Tesselor {

using Toolkit::TextBox;

TOOLKIT_TYPE_IMPL(FieldNumber, BaseField, "Tesselor.FieldNumber")
void FieldNumber::Describe(Toolkit::TypeBuilder<FieldNumber>& type) {
  WidthProperty = type.Property<int32_t>("Width", 75);
  type.Member<&FieldNumber::GetFieldTextData>("FieldTextData");
  type.Handler<&FieldNumber::OnInputLostFocus>("OnInputLostFocus", LostFocusEvent);
}

FieldNumber::FieldNumber(const Toolkit::SharedString& initialText, Bounds widest)
    : fieldTextData(Toolkit::MakePtr<FieldTextData>(initialText)), bounds(widest) {}

FieldNumber::~FieldNumber() = default;

void FieldNumber::LoadNumberDocument(std::string_view name) {
  BindToSelf();
  LoadDocument(name);
  inputText = Toolkit::Ptr<TextBox>(FindName<TextBox>("InputText"));
  if (inputText)
    inputText->AddHandler(TextBox::TextChangedEvent,
                          Toolkit::RoutedEventHandler::From<&FieldNumber::OnTextChanged>(this));
}

void FieldNumber::Serialize(cJSON* object, const std::string& key) {
  cJSON_AddNumberToObject(object, key.c_str(), WrittenNumber(fieldTextData->GetValue()));
}

void FieldNumber::Deserialize(const cJSON* object, const std::string& key) {
  DeserializeValue(cJSON_GetObjectItem(object, key.c_str()));
}

void FieldNumber::DeserializeOptions(const cJSON* options, bool applyDefaults) {
  BaseField::DeserializeOptions(options, applyDefaults);
  const FieldOptions own(options);
  if (const auto width = own.Integer(FieldOption::Width)) SetValue(WidthProperty, *width);
  // The bounds come after the default, which they therefore do not clamp. They are whole numbers.
  if (const auto value = ReadDefault(own)) {
    defaultValue = *value;
    hasDefault = true;
    if (applyDefaults) TakeText(TextOf(defaultValue));
  }
  if (const auto maximum = own.Integer(FieldOption::Max)) bounds.max = *maximum;
  if (const auto minimum = own.Integer(FieldOption::Min)) bounds.min = *minimum;
}

void FieldNumber::DeserializeValue(const cJSON* item) {
  if (!cJSON_IsNumber(item)) return;
  TakeText(TextOf(NumberOf(*item)));
  hasLoadedValue = true;
}

void FieldNumber::TakeText(const std::string& text) {
  if (!fieldTextData->SetValue(text) || HasControls()) return;
  // What the box would make of a text that it is given.
  while (const auto filtered = Filter(fieldTextData->GetValue(), bounds, NumberEntry::Complete))
    if (!fieldTextData->SetValue(*filtered)) break;
}

bool FieldNumber::IsDefault() const { return hasDefault && IsSame(defaultValue, fieldTextData->GetValue()); }

std::string FieldNumber::GetValueAsString() const { return std::string(fieldTextData->GetValue()); }

void FieldNumber::OnTextChanged(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  const auto& field = Subject<FieldNumber>();
  const NumberEntry entry = inputText->IsFocused() ? NumberEntry::Growing : NumberEntry::Complete;
  if (const auto filtered = Filter(inputText->GetText(), field.bounds, entry)) ReplaceText(*filtered);
}

void FieldNumber::ReplaceText(const std::string& text) {
  // Setting the text filters it again, until there is nothing left to change.
  inputText->SetText(text);
  // While the binding carries a text to the box, it does not carry the box's answer back.
  Subject<FieldNumber>().fieldTextData->SetValue(inputText->GetText());
}

void FieldNumber::OnInputLostFocus(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  if (const auto finished = Finish(inputText->GetText(), Subject<FieldNumber>().bounds)) ReplaceText(*finished);
}

} // namespace Tesselor
