#include "fields/FieldList.h"

#include "fields/FieldListActionCommand.h"
#include "fields/FieldOptions.h"
#include "values/ActionHistory.h"

#include <cjson/cJSON.h>

namespace Tesselor {

TOOLKIT_TYPE_IMPL(FieldList, FieldRows, "Tesselor.FieldList")
void FieldList::Describe(Toolkit::TypeBuilder<FieldList>& type) {
  WidthProperty = type.Property<int32_t>("Width", 75);
  type.Member<&FieldList::ReflectedRows>("List");
  type.Handler<&FieldList::OnListLoaded>("OnListLoaded", LoadedEvent);
}

FieldList::FieldList() : rows(Toolkit::MakePtr<Rows>()) { MakeControls(); }

void FieldList::InitializeComponent() {
  BindToSelf();
  LoadDocument("FieldList.xaml");
}

void FieldList::Serialize(cJSON* object, const std::string& key) {
  if (rows->Count() == 0 && !hasLoadedValue) return;
  cJSON* array = cJSON_CreateArray();
  for (size_t i = 0; i < rows->Count(); ++i)
    cJSON_AddItemToArray(array, CreateItemJson(itemType, rows->Get(i)->GetValue()));
  cJSON_AddItemToObject(object, key.c_str(), array);
}

void FieldList::Deserialize(const cJSON* object, const std::string& key) {
  DeserializeValue(cJSON_GetObjectItem(object, key.c_str()));
}

void FieldList::DeserializeOptions(const cJSON* options, bool applyDefaults) {
  BaseField::DeserializeOptions(options, applyDefaults);
  const FieldOptions own(options);
  if (const auto width = own.Integer(FieldOption::Width)) SetValue(WidthProperty, *width);
  static constexpr FieldItemType allowed[] = {FieldItemType::String, FieldItemType::Uuid, FieldItemType::Int,
                                              FieldItemType::Float};
  itemType = ReadItemType(own, allowed);
}

void FieldList::DeserializeValue(const cJSON* item) {
  if (!cJSON_IsArray(item)) return;
  hasLoadedValue = true;
  for (const cJSON* element = item->child; element; element = element->next) AddRow(ItemText(itemType, element));
}

std::string FieldList::GetValueAsString() const {
  std::string text;
  for (size_t i = 0; i < rows->Count(); ++i) {
    if (i > 0) text += ' ';
    text += rows->Get(i)->GetValue().View();
  }
  return text;
}

FieldList::Values FieldList::GetValues() const {
  Values values;
  values.reserve(rows->Count());
  for (size_t i = 0; i < rows->Count(); ++i) values.push_back(rows->Get(i)->GetValue());
  return values;
}

void FieldList::SetValues(const Values& values) {
  isRestoring = true;
  rows->Clear();
  for (const Toolkit::SharedString& value : values) AddRow(value);
  UpdateMoveButtons(*rows);
  previousValues = GetValues();
  isRestoring = false;
}

void FieldList::AddRow(const Toolkit::SharedString& value) {
  auto row = Toolkit::MakePtr<FieldListStringData>();
  row->SetValue(value);
  PrepareRow(*row);
  rows->Add(std::move(row));
}

void FieldList::PushUndoIfChanged() {
  Values current = GetValues();
  if (current == previousValues) return;
  ActionHistory::Instance().Push(
      std::make_unique<FieldListActionCommand>(Toolkit::Ptr<FieldList>(this), std::move(previousValues), current));
  previousValues = std::move(current);
}

void FieldList::OnListLoaded(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  if (!IsSecondControl()) previousValues = GetValues();
}

} // namespace Tesselor
