#include "fields/FieldDictionary.h"

#include "fields/FieldDictionaryActionCommand.h"
#include "fields/FieldOptions.h"
#include "values/ActionHistory.h"

#include <cjson/cJSON.h>

namespace Tesselor {

TOOLKIT_TYPE_IMPL(FieldDictionary, FieldRows, "Tesselor.FieldDictionary")
void FieldDictionary::Describe(Toolkit::TypeBuilder<FieldDictionary>& type) {
  WidthProperty = type.Property<int32_t>("Width", 75);
  type.Member<&FieldDictionary::ReflectedRows>("Dictionary");
  type.Handler<&FieldDictionary::OnDictionaryLoaded>("OnDictionaryLoaded", LoadedEvent);
}

FieldDictionary::FieldDictionary() : rows(Toolkit::MakePtr<Rows>()) { MakeControls(); }

void FieldDictionary::InitializeComponent() {
  BindToSelf();
  LoadDocument("FieldDictionary.xaml");
}

void FieldDictionary::Serialize(cJSON* object, const std::string& key) {
  if (rows->Count() == 0) return;
  cJSON* members = cJSON_CreateObject();
  for (size_t i = 0; i < rows->Count(); ++i) {
    const FieldDictionaryStringData& row = *rows->Get(i);
    cJSON_AddItemToObject(members, row.GetKey().CString(), CreateItemJson(itemType, row.GetValue()));
  }
  cJSON_AddItemToObject(object, key.c_str(), members);
}

void FieldDictionary::Deserialize(const cJSON* object, const std::string& key) {
  const cJSON* item = cJSON_GetObjectItem(object, key.c_str());
  if (!cJSON_IsObject(item)) return;
  for (const cJSON* member = item->child; member; member = member->next)
    AddRow(member->string, ItemText(itemType, member));
  hasLoadedValue = true;
}

void FieldDictionary::DeserializeOptions(const cJSON* options, bool applyDefaults) {
  BaseField::DeserializeOptions(options, applyDefaults);
  const FieldOptions own(options);
  if (const auto width = own.Integer(FieldOption::Width)) SetValue(WidthProperty, *width);
  static constexpr FieldItemType allowed[] = {FieldItemType::String, FieldItemType::Uuid, FieldItemType::Int,
                                              FieldItemType::Float,  FieldItemType::Bool, FieldItemType::Mixed};
  itemType = ReadItemType(own, allowed);
}

std::string FieldDictionary::GetValueAsString() const {
  std::string text;
  for (size_t i = 0; i < rows->Count(); ++i) {
    if (i > 0) text += ' ';
    text += rows->Get(i)->GetKey().View();
    text += ' ';
    text += rows->Get(i)->GetValue().View();
  }
  return text;
}

FieldDictionary::Values FieldDictionary::GetValues() const {
  Values values;
  values.reserve(rows->Count());
  for (size_t i = 0; i < rows->Count(); ++i) values.emplace_back(rows->Get(i)->GetKey(), rows->Get(i)->GetValue());
  return values;
}

void FieldDictionary::SetValues(const Values& values) {
  isRestoring = true;
  rows->Clear();
  for (const auto& [key, value] : values) AddRow(key, value);
  UpdateMoveButtons(*rows);
  previousValues = GetValues();
  isRestoring = false;
}

void FieldDictionary::AddRow(const Toolkit::SharedString& key, const Toolkit::SharedString& value) {
  auto row = Toolkit::MakePtr<FieldDictionaryStringData>();
  row->SetKey(key);
  row->SetValue(value);
  PrepareRow(*row);
  rows->Add(std::move(row));
}

void FieldDictionary::PushUndoIfChanged() {
  Values current = GetValues();
  if (current == previousValues) return;
  ActionHistory::Instance().Push(std::make_unique<FieldDictionaryActionCommand>(Toolkit::Ptr<FieldDictionary>(this),
                                                                                std::move(previousValues), current));
  previousValues = std::move(current);
}

void FieldDictionary::OnDictionaryLoaded(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  if (!IsSecondControl()) previousValues = GetValues();
}

} // namespace Tesselor
