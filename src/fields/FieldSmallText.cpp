#include "fields/FieldSmallText.h"

#include "fields/FieldName.h"
#include "fields/FieldOptions.h"
#include "fields/FieldOwner.h"
#include "fields/TextBoxValueActionCommand.h"
#include "platform/Uuid.h"
#include "toolkit/controls/ButtonBase.h"
#include "values/ActionHistory.h"

#include <cjson/cJSON.h>

namespace Tesselor {

using Toolkit::Visibility;

TOOLKIT_TYPE_IMPL(FieldSmallText, BaseField, "Tesselor.FieldSmallText")
void FieldSmallText::Describe(Toolkit::TypeBuilder<FieldSmallText>& type) {
  WidthProperty = type.Property<int32_t>("Width", 75);
  IsUUIDVisibilityProperty = type.Property<Visibility>("IsUUIDVisibility", Visibility::Collapsed);
  GenerateNodeNameVisibilityProperty = type.Property<Visibility>("GenerateNodeNameVisibility", Visibility::Collapsed);
  type.Member<&FieldSmallText::GetFieldTextData>("FieldTextData");
  type.Handler<&FieldSmallText::GenerateUUIDEvent>("GenerateUUIDEvent", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&FieldSmallText::GenerateNodeNameEvent>("GenerateNodeNameEvent", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&FieldSmallText::OnInputLostFocus>("OnInputLostFocus", LostFocusEvent);
}

FieldSmallText::FieldSmallText() : fieldTextData(Toolkit::MakePtr<FieldTextData>()) {}

void FieldSmallText::InitializeComponent() {
  BindToSelf();
  LoadDocument("FieldSmallText.xaml");
}

void FieldSmallText::Serialize(cJSON* object, const std::string& key) {
  if (fieldTextData->GetText().IsEmpty() && !ShouldSerialize()) return;
  cJSON_AddStringToObject(object, key.c_str(), fieldTextData->GetText().CString());
}

void FieldSmallText::Deserialize(const cJSON* object, const std::string& key) {
  const cJSON* item = cJSON_GetObjectItem(object, key.c_str());
  if (!cJSON_IsString(item)) return;
  fieldTextData->SetValue(item->valuestring);
  hasLoadedValue = true;
}

void FieldSmallText::DeserializeOptions(const cJSON* options, bool applyDefaults) {
  BaseField::DeserializeOptions(options, applyDefaults);
  const FieldOptions own(options);
  if (const auto width = own.Integer(FieldOption::Width)) SetValue(WidthProperty, *width);
  if (own.Has(FieldOption::IsUUID)) {
    const bool isShown = own.IsTrue(FieldOption::IsUUID);
    SetValue(IsUUIDVisibilityProperty, isShown ? Visibility::Visible : Visibility::Collapsed);
    fieldTextData->SetValue(GenerateSystemUuid());
  }
  if (own.Has(FieldOption::IsNodeName)) {
    const bool isShown = own.IsTrue(FieldOption::IsNodeName);
    SetValue(GenerateNodeNameVisibilityProperty, isShown ? Visibility::Visible : Visibility::Collapsed);
  }
  if (const auto text = own.SharedText(FieldOption::Default)) {
    defaultText = *text;
    hasDefault = true;
    if (applyDefaults) fieldTextData->SetValue(defaultText);
  }
}

bool FieldSmallText::IsDefault() const { return hasDefault && fieldTextData->GetText() == defaultText; }

std::string FieldSmallText::GetValueAsString() const { return std::string(fieldTextData->GetValue()); }

void FieldSmallText::GenerateUUIDEvent(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  Subject<FieldSmallText>().Replace(GenerateSystemUuid());
}

void FieldSmallText::Replace(const Toolkit::SharedString& text) {
  const Toolkit::SharedString before = fieldTextData->GetText();
  if (fieldTextData->SetValue(text))
    ActionHistory::Instance().Push(
        std::make_unique<TextBoxValueActionCommand>(fieldTextData, before, text, NameOf(*this, text)));
}

void FieldSmallText::GenerateNodeNameEvent(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  auto& field = Subject<FieldSmallText>();
  std::string name;
  if (field.ownerNode) {
    name = field.ownerNode->NodeName();
    if (name.empty()) name = field.ownerNode->FindUpstreamName();
  }
  field.Replace(name + "_inline");
}

void FieldSmallText::OnInputLostFocus(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  const auto& field = Subject<FieldSmallText>();
  if (field.ownerNode && field.Get<Visibility>(GenerateNodeNameVisibilityProperty) == Visibility::Visible)
    field.ownerNode->SetNodeName(field.fieldTextData->GetValue());
}

} // namespace Tesselor
