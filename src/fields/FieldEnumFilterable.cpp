#include "fields/FieldEnumFilterable.h"

#include "platform/AsciiCase.h"
#include "toolkit/controls/ComboBox.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(FieldEnumFilterable, FieldEnum, "Tesselor.FieldEnumFilterable")
void FieldEnumFilterable::Describe(Toolkit::TypeBuilder<FieldEnumFilterable>& type) {
  SearchTextProperty = type.Property<std::string>(
      "SearchText", "", 0, [](Toolkit::DependencyObject& object, const Toolkit::PropertyChange& change) {
        static_cast<FieldEnumFilterable&>(object).Filter(change.newValue.AsStringView());
      });
}

FieldEnumFilterable::FieldEnumFilterable() : allOptions(Toolkit::MakePtr<Options>()) {}

void FieldEnumFilterable::InitializeComponent() { LoadEnumDocument("FieldEnumFilterable.xaml"); }

void FieldEnumFilterable::DeserializeOptions(const cJSON* options, bool applyDefaults) {
  FieldEnum::DeserializeOptions(options, applyDefaults);
  for (size_t i = 0; i < enumOptions->Count(); ++i) allOptions->Add(enumOptions->Get(i));
}

void FieldEnumFilterable::Filter(std::string_view searchText) {
  const std::string wanted = UpperCase(searchText);
  const Toolkit::Ptr<EnumItemData> selected(SelectedOption());
  for (size_t i = enumOptions->Count(); i-- > 0;)
    if (selected != enumOptions->Get(i)) enumOptions->RemoveAt(i);
  for (size_t i = 0; i < allOptions->Count(); ++i) {
    EnumItemData* option = allOptions->Get(i);
    if (selected != option && ContainsUpperCase(option->GetValue(), wanted)) enumOptions->Add(option);
  }
  if (selected) SetSelectedEnum(selected->GetValue());
  if (!wanted.empty()) comboBox->SetIsDropDownOpen(true);
}

} // namespace Tesselor
