#include "fields/FieldObject.h"

#include "fields/FieldFactory.h"
#include "fields/FieldOptions.h"
#include "toolkit/controls/StackPanel.h"

#include <cjson/cJSON.h>

namespace Tesselor {

using Toolkit::StackPanel;

TOOLKIT_TYPE_IMPL(FieldObject, BaseField, "Tesselor.FieldObject")
void FieldObject::Describe(Toolkit::TypeBuilder<FieldObject>&) {}

FieldObject::FieldObject() {
  MakeControls();
  fieldsContainer = Toolkit::Ptr<StackPanel>(FindName<StackPanel>("FieldsContainer"));
}

void FieldObject::InitializeComponent() {
  BindToSelf();
  LoadDocument("FieldObject.xaml");
}

void FieldObject::Serialize(cJSON* object, const std::string& key) {
  cJSON* nested = cJSON_CreateObject();
  for (const std::string& id : fieldOrder) fields.at(id)->Serialize(nested, id);
  const cJSON* member = nullptr;
  cJSON_ArrayForEach(member, kept.get()) cJSON_AddItemToObject(nested, member->string, cJSON_Duplicate(member, true));
  cJSON_AddItemToObject(object, key.c_str(), nested);
}

void FieldObject::Deserialize(const cJSON* object, const std::string& key) {
  const cJSON* item = cJSON_GetObjectItem(object, key.c_str());
  if (!cJSON_IsObject(item)) return;
  for (const std::string& id : fieldOrder) fields.at(id)->Deserialize(item, id);
  if (lacksFields) {
    kept.reset(cJSON_Duplicate(item, true));
    for (const std::string& id : fieldOrder) cJSON_DeleteItemFromObject(kept.get(), id.c_str());
  }
  hasLoadedValue = true;
}

void FieldObject::DeserializeOptions(const cJSON* options, bool applyDefaults) {
  BaseField::DeserializeOptions(options, applyDefaults);
  const FieldOptions own(options);
  const cJSON* descriptions = own.Item(FieldOption::Fields);
  if (!cJSON_IsArray(descriptions)) return;
  for (const cJSON* description = descriptions->child; description; description = description->next)
    AddField(description, applyDefaults);
}

void FieldObject::AddField(const cJSON* description, bool applyDefaults) {
  const cJSON* id = cJSON_GetObjectItem(description, "Id");
  const cJSON* type = cJSON_GetObjectItem(description, "Type");
  Toolkit::Ptr<BaseField> field;
  if (cJSON_IsString(id) && cJSON_IsString(type))
    field = CreateField(type->valuestring, cJSON_GetObjectItem(description, "Options"), applyDefaults);
  if (!field) {
    lacksFields = true;
    return;
  }
  fieldOrder.emplace_back(id->valuestring);
  if (fieldsContainer) fieldsContainer->AddChild(field.Get());
  fields[id->valuestring] = std::move(field);
}

void FieldObject::ShowValueOf(BaseField& field) {
  BaseField::ShowValueOf(field);
  if (!fieldsContainer) return;
  // Each child in its place, also one that a later child of its id has taken the place of.
  const auto* shown = static_cast<const FieldObject&>(field).fieldsContainer.Get();
  for (size_t i = 0; shown && i < shown->ChildCount(); ++i)
    if (auto* child = Toolkit::DynamicCast<BaseField>(shown->Child(i)))
      fieldsContainer->AddChild(MakeSecondControl(*child).Get());
}

BaseField* FieldObject::FindField(const std::string& id) const {
  const auto found = fields.find(id);
  return found == fields.end() ? nullptr : found->second.Get();
}

} // namespace Tesselor
