#include "fields/MixedValue.h"

#include "fields/NumberText.h"

#include <cjson/cJSON.h>
#include <cmath>

namespace Tesselor {

namespace {

bool IsWholeInteger(double value) { return value >= INT32_MIN && value <= INT32_MAX && value == std::trunc(value); }

/// A whole number is read a second time as an integer, which stops at a point or an exponent: "1e3" is 1.
std::optional<double> MixedNumber(std::string_view text) {
  const std::optional<double> number = ParseDouble(text);
  if (!number || !IsWholeInteger(*number)) return number;
  const std::optional<int32_t> integer = ParseInteger(text);
  return integer ? std::optional<double>(*integer) : std::nullopt;
}

} // namespace

cJSON* CreateMixedJson(const char* text) {
  const std::string_view view(text);
  if (view == "true" || view == "false") return cJSON_CreateBool(view == "true");
  if (const std::optional<double> number = MixedNumber(view)) return cJSON_CreateNumber(*number);
  return cJSON_CreateString(text);
}

std::optional<std::string> MixedText(const cJSON* item) {
  if (cJSON_IsBool(item)) return cJSON_IsTrue(item) ? "true" : "false";
  if (cJSON_IsNumber(item)) return FixedText(item->valuedouble);
  if (cJSON_IsString(item)) return item->valuestring ? item->valuestring : "";
  return std::nullopt;
}

} // namespace Tesselor
