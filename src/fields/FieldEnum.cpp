#include "fields/FieldEnum.h"

#include "fields/FieldEnumActionCommand.h"
#include "fields/FieldOptions.h"
#include "platform/MessageBoxes.h"
#include "toolkit/controls/ComboBox.h"
#include "values/ActionHistory.h"

#include <cjson/cJSON.h>

namespace Tesselor {

using Toolkit::ComboBox;

TOOLKIT_TYPE_IMPL(FieldEnum, BaseField, "Tesselor.FieldEnum")
void FieldEnum::Describe(Toolkit::TypeBuilder<FieldEnum>& type) {
  WidthProperty = type.Property<int32_t>("Width", 120);
  type.Member<&FieldEnum::ReflectedOptions>("EnumOptions");
  type.Member<&FieldEnum::ReflectedSelection, &FieldEnum::ReflectedChoice>("SelectedOption");
}

FieldEnum::FieldEnum() : enumOptions(Toolkit::MakePtr<Options>()) {}

void FieldEnum::InitializeComponent() { LoadEnumDocument("FieldEnum.xaml"); }

void FieldEnum::LoadEnumDocument(std::string_view name) {
  BindToSelf();
  LoadDocument(name);
  comboBox = Toolkit::Ptr<ComboBox>(FindName<ComboBox>("FieldComboBox"));
  ShowSelectionOf(*this);
}

void FieldEnum::Serialize(cJSON* object, const std::string& key) {
  if (const EnumItemData* selected = SelectedOption())
    cJSON_AddStringToObject(object, key.c_str(), selected->GetValue().CString());
}

void FieldEnum::Deserialize(const cJSON* object, const std::string& key) {
  const cJSON* item = cJSON_GetObjectItem(object, key.c_str());
  if (!cJSON_IsString(item)) return;
  SetSelectedEnum(item->valuestring);
  hasLoadedValue = true;
}

void FieldEnum::DeserializeOptions(const cJSON* options, bool applyDefaults) {
  BaseField::DeserializeOptions(options, applyDefaults);
  const FieldOptions own(options);
  if (const auto width = own.Integer(FieldOption::Width)) SetValue(WidthProperty, *width);
  if (const cJSON* values = own.Item(FieldOption::Values); cJSON_IsArray(values)) {
    for (const cJSON* value = values->child; value; value = value->next)
      if (cJSON_IsString(value)) enumOptions->Add(Toolkit::MakePtr<EnumItemData>(value->valuestring));
  }
  if (const auto text = own.SharedText(FieldOption::Default)) {
    defaultText = *text;
    hasDefault = true;
    if (applyDefaults) SetSelectedEnum(defaultText);
  }
}

bool FieldEnum::IsDefault() const {
  const EnumItemData* selected = SelectedOption();
  return hasDefault && selected && selected->GetValue() == defaultText;
}

std::string FieldEnum::GetValueAsString() const {
  const EnumItemData* selected = SelectedOption();
  return selected ? selected->GetValue().ToString() : std::string();
}

void FieldEnum::SetSelectedEnum(std::string_view value) {
  if (enumOptions->Count() == 0) {
    const std::string text = "ERROR: Enum field '" + std::string(GetLabel()) +
                             "' has no valid options defined. Cannot set value '" + std::string(value) + "'.\n\n" +
                             "This indicates the workspace schema is incomplete or incorrectly generated.";
    ReportError(text, text, "Invalid Workspace Schema");
    return;
  }
  for (size_t i = 0; i < enumOptions->Count(); ++i) {
    if (enumOptions->Get(i)->GetValue().View() == value) {
      Select(enumOptions->Get(i));
      return;
    }
  }
  // The text goes first: what it quotes may change with the selection.
  std::string text = "Default or imported value '" + std::string(value) + "' is not a valid enum option for field '" +
                     std::string(GetLabel()) + "'. Value '" + enumOptions->Get(0)->GetValue().ToString() +
                     "' will be used as a fallback option.";
  Select(enumOptions->Get(0));
  ShowError(std::move(text), AttentionCaption);
}

void FieldEnum::ShowValueOf(BaseField& field) {
  BaseField::ShowValueOf(field);
  ShowSelectionOf(static_cast<FieldEnum&>(field));
}

void FieldEnum::ShowSelectionOf(const FieldEnum& field) {
  // It may have come before the list that it stands in.
  if (comboBox) comboBox->SetSelectedItem(field.SelectedOption());
}

void FieldEnum::Select(EnumItemData* option) {
  static const Toolkit::Symbol name("SelectedOption");
  if (selectedOption == option) return;
  selectedOption = Toolkit::Ptr<EnumItemData>(option);
  NotifyObservers(name);
}

void FieldEnum::Choose(EnumItemData* option) {
  if (!option || selectedOption == option) return;
  const Toolkit::Ptr<EnumItemData> before = selectedOption;
  Select(option);
  ActionHistory::Instance().Push(
      std::make_unique<FieldEnumActionCommand>(Toolkit::Ptr<FieldEnum>(this), before, selectedOption));
}

} // namespace Tesselor
