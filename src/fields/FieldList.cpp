#include "fields/FieldList.h"

#include "actions/ActionHistory.h"
#include "app/FileDialogs.h"
#include "fields/AssetIdReader.h"
#include "fields/EventAttribute.h"
#include "fields/FieldListActionCommand.h"
#include "fields/FieldOptions.h"
#include "toolkit/controls/ButtonBase.h"

#include <cjson/cJSON.h>

namespace Tesselor {

TOOLKIT_TYPE_IMPL(FieldList, BaseField, "Tesselor.FieldList")
void FieldList::Describe(Toolkit::TypeBuilder<FieldList>& type) {
  WidthProperty = type.Property<int32_t>("Width", 75);
  type.Member<&FieldList::ReflectedRows>("List");
}

FieldList::FieldList() : rows(Toolkit::MakePtr<Rows>()) { InitializeComponent(); }

void FieldList::InitializeComponent() {
  BindToSelf();
  LoadDocument("FieldList.xaml");
}

bool FieldList::ConnectEvent(Toolkit::Object* source, const char* eventName, const char* handlerName) {
  const EventAttribute attribute(source, eventName, handlerName);
  const Toolkit::RoutedEvent& click = Toolkit::ButtonBase::ClickEvent;
  return attribute.Connect<&FieldList::OnListLoaded>(LoadedEvent, "OnListLoaded", this) ||
         attribute.Connect<&FieldList::OnAddItem>(click, "OnAddItem", this) ||
         attribute.Connect<&FieldList::OnRemoveItem>(click, "OnRemoveItem", this) ||
         attribute.Connect<&FieldList::OnMoveUp>(click, "OnMoveUp", this) ||
         attribute.Connect<&FieldList::OnMoveDown>(click, "OnMoveDown", this) ||
         attribute.Connect<&FieldList::OnSelectFile>(click, "OnSelectFile", this) ||
         attribute.Connect<&FieldList::OnInputLostFocus>(LostFocusEvent, "OnInputLostFocus", this);
}

void FieldList::ShareRows(const FieldList& other) { rows = other.rows; }

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
  if (itemType == FieldItemType::Uuid) row->SetSelectFileButtonVisibility(Toolkit::Visibility::Visible);
  rows->Add(std::move(row));
}

void FieldList::PushUndoIfChanged() {
  Values current = GetValues();
  if (current == previousValues) return;
  ActionHistory::Instance().Push(
      std::make_unique<FieldListActionCommand>(Toolkit::Ptr<FieldList>(this), std::move(previousValues), current));
  previousValues = std::move(current);
}

void FieldList::MoveRow(Toolkit::Object* sender, int step) {
  const FieldRowData* row = RowOfButton(sender);
  const int index = row ? rows->IndexOfItem(row) : -1;
  if (index < 0) return;
  const int target = index + step;
  if (target >= 0 && target < rows->CountValue()) rows->Move(static_cast<size_t>(index), static_cast<size_t>(target));
  UpdateMoveButtons(*rows);
  PushUndoIfChanged();
}

void FieldList::OnListLoaded(Toolkit::Object*, const Toolkit::RoutedEventArgs&) { previousValues = GetValues(); }

void FieldList::OnAddItem(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  AddRow({});
  UpdateMoveButtons(*rows);
  PushUndoIfChanged();
}

void FieldList::OnRemoveItem(Toolkit::Object* sender, const Toolkit::RoutedEventArgs&) {
  const FieldRowData* row = RowOfButton(sender);
  const int index = row ? rows->IndexOfItem(row) : -1;
  if (index < 0) return;
  rows->RemoveAt(static_cast<size_t>(index));
  UpdateMoveButtons(*rows);
  PushUndoIfChanged();
}

void FieldList::OnInputLostFocus(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  if (!isRestoring) PushUndoIfChanged();
}

void FieldList::OnSelectFile(Toolkit::Object* sender, const Toolkit::RoutedEventArgs&) {
  const Toolkit::Ptr<FieldRowData> row(RowOfButton(sender));
  if (!row) return;
  const std::optional<std::string> path = FileDialogs::Open();
  if (!path) return;
  if (const std::optional<std::string> id = ReadAssetId(*path)) row->SetValue(*id);
}

} // namespace Tesselor
