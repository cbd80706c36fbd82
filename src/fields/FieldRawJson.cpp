#include "fields/FieldRawJson.h"

#include "fields/FieldOptions.h"
#include "platform/JsonFile.h"
#include "platform/MessageBoxes.h"

#include <algorithm>

namespace Tesselor {

namespace {

/// Whether the whole text is one JSON value that the parser would take inside a file as well.
bool IsCompleteJson(const char* text) {
  // The parser skips a byte order mark at the very start only.
  if (static_cast<unsigned char>(text[0]) == 0xef) return false;
  return static_cast<bool>(ParseJson(text, JsonTail::Refused));
}

} // namespace

TOOLKIT_TYPE_IMPL(FieldRawJson, BaseField, "Tesselor.FieldRawJson")
void FieldRawJson::Describe(Toolkit::TypeBuilder<FieldRawJson>& type) {
  WidthProperty = type.Property<int32_t>("Width", 250);
  type.Member<&FieldRawJson::GetFieldTextData>("FieldTextData");
}

FieldRawJson::FieldRawJson() {
  static const Toolkit::SharedString initialText("{\n    \n}");
  lastValidText = initialText;
  fieldTextData = Toolkit::MakePtr<FieldTextData>(initialText);
  MakeControls();
}

void FieldRawJson::InitializeComponent() {
  BindToSelf();
  LoadDocument("FieldRawJson.xaml");
}

void FieldRawJson::Serialize(cJSON* object, const std::string& key) {
  cJSON_AddRawToObject(object, key.c_str(), TextToSave().CString());
}

const Toolkit::SharedString& FieldRawJson::TextToSave() {
  if (!RememberIfValid())
    ShowError("Field '" + std::string(GetLabel()) +
                  "' does not hold valid JSON. The last valid value is saved instead.",
              AttentionCaption);
  return lastValidText;
}

void FieldRawJson::Deserialize(const cJSON* object, const std::string& key) {
  const cJSON* item = cJSON_GetObjectItem(object, key.c_str());
  if (!item) return;
  const std::string printed = PrintJson(item);
  if (printed.empty()) return;
  lastValidText = Toolkit::SharedString(printed);
  fieldTextData->SetValue(lastValidText);
  hasLoadedValue = true;
}

void FieldRawJson::DeserializeOptions(const cJSON* options, bool applyDefaults) {
  BaseField::DeserializeOptions(options, applyDefaults);
  const FieldOptions own(options);
  if (const auto width = own.Integer(FieldOption::Width)) SetValue(WidthProperty, *width);
  if (const auto text = own.SharedText(FieldOption::Default); text && applyDefaults) {
    fieldTextData->SetValue(*text);
    RememberIfValid();
  }
}

std::string FieldRawJson::GetValueAsString() const { return std::string(fieldTextData->GetValue()); }

void FieldRawJson::OnRoutedEvent(const Toolkit::RoutedEventArgs& args) {
  BaseField::OnRoutedEvent(args);
  // An editing session begins with what may have been undone to, and ends with what was typed.
  auto& field = Subject<FieldRawJson>();
  if (args.event == &GotFocusEvent) field.RememberIfValid();
  if (args.event == &LostFocusEvent && !field.RememberIfValid()) field.NoteLeftText();
}

bool FieldRawJson::RememberIfValid() {
  const Toolkit::SharedString& text = fieldTextData->GetText();
  if (text == lastValidText) return true;
  if (IsCompleteJson(text.CString())) {
    lastValidText = text;
    return true;
  }
  for (const auto& [left, valid] : leftTexts)
    if (left.CString() == text.CString()) lastValidText = valid;
  return false;
}

void FieldRawJson::NoteLeftText() {
  const Toolkit::SharedString& text = fieldTextData->GetText();
  // Each time that it was typed is a text of its own, which its undo step shares.
  const auto isNoted = [&text](const auto& noted) { return noted.first.CString() == text.CString(); };
  if (std::none_of(leftTexts.begin(), leftTexts.end(), isNoted)) leftTexts.emplace_back(text, lastValidText);
}

} // namespace Tesselor
