#include "fields/FieldItemType.h"

#include "fields/FieldOptions.h"
#include "fields/MixedValue.h"
#include "fields/NumberText.h"
#include "fields/WrittenNumber.h"
#include "platform/AsciiCase.h"
#include "platform/MessageBoxes.h"

#include <array>
#include <cjson/cJSON.h>

namespace Tesselor {

namespace {

/// In the order of `FieldItemType`.
constexpr std::array<std::string_view, 6> typeNames = {"string", "uuid", "int", "float", "bool", "mixed"};

cJSON* CreateBoolJson(std::string_view text) {
  if (text != "true" && text != "false")
    ShowError("Unknown value in a boolean dictionary: " + std::string(text), AttentionCaption);
  return cJSON_CreateBool(text == "true");
}

} // namespace

FieldItemType ReadItemType(const FieldOptions& options, std::span<const FieldItemType> allowed) {
  const char* text = options.Text(FieldOption::Type);
  if (!text) return FieldItemType::String;
  const std::string name = LowerCase(std::string_view(text));
  for (const FieldItemType type : allowed)
    if (typeNames[static_cast<size_t>(type)] == name) return type;
  ShowError("The following type is not supported by field List: " + name, AttentionCaption);
  return FieldItemType::String;
}

cJSON* CreateItemJson(FieldItemType type, const Toolkit::SharedString& text) {
  switch (type) {
  case FieldItemType::Int: return cJSON_CreateNumber(WrittenInteger(text));
  case FieldItemType::Float: return cJSON_CreateNumber(WrittenDouble(text));
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
