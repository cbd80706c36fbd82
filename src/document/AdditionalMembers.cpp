#include "document/AdditionalMembers.h"

#include "document/PropertyText.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePinData.h"

namespace Tesselor {

namespace {

constexpr char PropertyType[] = "PropertyType";
constexpr char Direct[] = "Direct";
constexpr char Compute[] = "Compute";
constexpr char PropertyValue[] = "Value";
constexpr char Description[] = "Description";
constexpr char DefaultContainer[] = "Parameters";

} // namespace

JsonPtr PropertyNodeJson(const cJSON* member) {
  JsonPtr object(cJSON_CreateObject());
  cJSON_AddStringToObject(object.get(), Keys::Key, member->string);
  if (cJSON_IsNull(member)) return object;
  const auto formula = cJSON_IsObject(member) ? JsonText(cJSON_GetObjectItem(member, Compute)) : std::nullopt;
  cJSON_AddStringToObject(object.get(), PropertyType, formula ? Compute : Direct);
  cJSON_AddStringToObject(object.get(), PropertyValue, (formula ? *formula : PropertyText(member)).c_str());
  return object;
}

void AddProperty(cJSON* json, const cJSON* written) {
  const auto key = JsonText(cJSON_GetObjectItem(written, Keys::Key));
  const cJSON* value = cJSON_GetObjectItem(written, PropertyValue);
  if (!key || !value) return;
  JsonPtr member;
  if (!cJSON_IsString(value)) {
    member.reset(cJSON_Duplicate(value, true));
  } else if (JsonText(cJSON_GetObjectItem(written, PropertyType)) == Compute) {
    member.reset(cJSON_CreateObject());
    cJSON_AddStringToObject(member.get(), Compute, value->valuestring);
  } else {
    member = ValueOfPropertyText(value->valuestring);
  }
  cJSON_AddItemToObject(json, key->c_str(), member.release());
}

const char* ParametersKey(const NodePinData& pin) {
  return pin.blueprint->Label.empty() ? DefaultContainer : pin.blueprint->Label.c_str();
}

JsonPtr ParameterNodeJson(const cJSON* parameter) {
  JsonPtr object(cJSON_CreateObject());
  cJSON_AddStringToObject(object.get(), Keys::Key, parameter->string);
  if (const cJSON* value = cJSON_GetObjectItem(parameter, PropertyValue); value && !cJSON_IsNull(value))
    cJSON_AddStringToObject(object.get(), PropertyValue, PropertyText(value).c_str());
  if (const auto description = JsonText(cJSON_GetObjectItem(parameter, Description)))
    cJSON_AddStringToObject(object.get(), Description, description->c_str());
  return object;
}

void AddParameter(cJSON* container, const cJSON* written) {
  const auto key = JsonText(cJSON_GetObjectItem(written, Keys::Key));
  if (!key) return;
  cJSON* parameter = cJSON_AddObjectToObject(container, key->c_str());
  if (const auto text = JsonText(cJSON_GetObjectItem(written, PropertyValue)))
    cJSON_AddItemToObject(parameter, PropertyValue, ValueOfPropertyText(*text).release());
  if (const auto text = JsonText(cJSON_GetObjectItem(written, Description)); text && !text->empty())
    cJSON_AddStringToObject(parameter, Description, text->c_str());
}

} // namespace Tesselor
