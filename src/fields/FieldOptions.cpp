#include "fields/FieldOptions.h"

#include "platform/AsciiCase.h"

#include <cjson/cJSON.h>
#include <functional>
#include <string_view>

namespace Tesselor {

namespace {

constexpr size_t optionCount = static_cast<size_t>(FieldOption::Count);

/// In the order of `FieldOption`.
constexpr std::array<std::string_view, optionCount> names = {
    "active",        "default", "description", "fields", "fontsize", "height",   "isnodename",
    "isuuid",        "label",   "largechange", "max",    "min",      "required", "text",
    "tickfrequency", "type",    "useuuid",     "values", "width"};

} // namespace

int32_t IntegerMember(const cJSON* item) {
  // The parser gives true a 1.
  return cJSON_IsNumber(item) ? item->valueint : 0;
}

FieldOptions::FieldOptions(const cJSON* options) {
  if (!options) return;
  for (const cJSON* child = options->child; child; child = child->next) {
    if (!child->string) continue;
    const std::string_view key(child->string);
    for (size_t i = 0; i < optionCount; ++i) {
      if (!EqualsIgnoringCase(names[i], key)) continue;
      if (!items[i]) items[i] = child;
      break;
    }
  }
}

std::optional<int32_t> FieldOptions::Integer(FieldOption option) const {
  const cJSON* item = Item(option);
  return item ? std::optional<int32_t>(IntegerMember(item)) : std::nullopt;
}

std::optional<bool> FieldOptions::Boolean(FieldOption option) const {
  const cJSON* item = Item(option);
  return cJSON_IsBool(item) ? std::optional<bool>(cJSON_IsTrue(item)) : std::nullopt;
}

bool FieldOptions::IsTrue(FieldOption option) const { return cJSON_IsTrue(Item(option)); }

std::optional<double> FieldOptions::Number(FieldOption option) const {
  const cJSON* item = Item(option);
  return cJSON_IsNumber(item) ? std::optional<double>(item->valuedouble) : std::nullopt;
}

const char* FieldOptions::Text(FieldOption option) const {
  const cJSON* item = Item(option);
  return cJSON_IsString(item) ? item->valuestring : nullptr;
}

std::optional<Toolkit::SharedString> FieldOptions::SharedText(FieldOption option) const {
  const char* text = Text(option);
  if (!text) return std::nullopt;
  static std::array<Toolkit::SharedString, 1024> recentTexts;
  const std::string_view view(text);
  Toolkit::SharedString& recent = recentTexts[std::hash<std::string_view>()(view) % recentTexts.size()];
  if (recent.View() != view) recent = Toolkit::SharedString(view);
  return recent;
}

} // namespace Tesselor
