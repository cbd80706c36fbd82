#include "fields/FieldItemType.h"

#include "fields/FieldErrorBox.h"
#include "fields/FieldOptions.h"
#include "fields/MixedValue.h"
#include "fields/NumberText.h"

#include <algorithm>
#include <array>
#include <cjson/cJSON.h>

namespace Tesselor {

namespace {

/// In the order of `FieldItemType`.
constexpr std::array<std::string_view, 6> typeNames = {"string", "uuid", "int", "float", "bool", "mixed"};

cJSON* CreateBoolJson(std::string_view text) {
  if (text != "true" && text != "false") ShowFieldError("Unknown value in a boolean dictionary: " + std::string(text));
  return cJSON_CreateBool(text == "true");
}

cJSON* CreateIntJson(std::string_view text) {
  const std::optional<int32_t> number = ParseInteger(text);
  if (!number) ShowIntegerError(text);
  return cJSON_CreateNumber(number.value_or(0));
}

cJSON* CreateFloatJson(std::string_view text) {
  const std::optional<double> number = ParseDouble(text);
  if (!number) ShowDoubleError(text);
  return cJSON_CreateNumber(number.value_or(0));
}

} // namespace

FieldItemType ReadItemType(const FieldOptions& options, std::span<const FieldItemType> allowed) {
  const char* text = options.Text(FieldOption::Type);
  if (!text) return FieldItemType::String;
  std::string name(text);
  std::transform(name.begin(), name.end(), name.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  for (const FieldItemType type : allowed)
    if (typeNames[static_cast<size_t>(type)] == name) return type;
  ShowFieldError("The following type is not supported by field List: " + name);
  return FieldItemType::String;
}

cJSON* CreateItemJson(FieldItemType type, const Toolkit::SharedString& text) {
  switch (type) {
  case FieldItemType::Int: return CreateIntJson(text);
  case FieldItemType::Float: return CreateFloatJson(text);
  case FieldItemType::Bool: return CreateBoolJson(text);
  case FieldItemType::Mixed: return CreateMixedJson(text.CString());
  case FieldItemType::String:
  case FieldItemType::Uuid: break;
  }
  return cJSON_CreateString(text.CString());
}

std::string ItemText(FieldItemType type, const cJSON* item) {
  switch (type) {
  case FieldItemType::Int: return std::to_string(IntegerMember(item));
  case FieldItemType::Float: return FixedText(item->valuedouble);
  case FieldItemType::Bool: return cJSON_IsTrue(item) ? "true" : "false";
  case FieldItemType::Mixed: return MixedText(item).value_or("");
  case FieldItemType::String:
  case FieldItemType::Uuid: break;
  }
  return cJSON_IsString(item) && item->valuestring ? item->valuestring : "";
}

} // namespace Tesselor
