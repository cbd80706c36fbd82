#include "fields/FieldEnumFilterable.h"

#include "platform/AsciiCase.h"
#include "toolkit/controls/ComboBox.h"
#include "toolkit/controls/TextBox.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(FieldEnumFilterable, FieldEnum, "Tesselor.FieldEnumFilterable")
void FieldEnumFilterable::Describe(Toolkit::TypeBuilder<FieldEnumFilterable>& type) {
  SearchTextProperty = type.Property<std::string>(
      "SearchText", "", 0, [](Toolkit::DependencyObject& object, const Toolkit::PropertyChange& change) {
        static_cast<FieldEnumFilterable&>(object).Filter(change.newValue.AsStringView());
      });
  type.Handler<&FieldEnumFilterable::OnSearchTyped>("OnSearchTyped", Toolkit::TextBox::TextChangedEvent);
  type.Handler<&FieldEnumFilterable::OnSearchKeyDown>("OnSearchKeyDown", KeyDownEvent);
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
  if (const Toolkit::Ptr<FieldEnumFilterable> control = typedInto.Get(); control && !wanted.empty())
    control->comboBox->SetIsDropDownOpen(true);
}

void FieldEnumFilterable::OnSearchTyped(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  // The box of another control follows by its binding, but only once the list was opened.
  Subject<FieldEnumFilterable>().typedInto = Toolkit::WeakPtr<FieldEnumFilterable>(this);
}

void FieldEnumFilterable::OnSearchKeyDown(Toolkit::Object*, const Toolkit::KeyEventArgs& args) {
  if (args.key == Toolkit::Key::Escape) Subject<FieldEnumFilterable>().typedInto.Reset();
}

} // namespace Tesselor
