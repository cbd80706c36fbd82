#include "document/PropertyText.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace Tesselor {

namespace {

std::string NumberText(const cJSON* number) {
  if (number->valuedouble == number->valueint) return std::to_string(number->valueint);
  char text[64];
  std::snprintf(text, sizeof text, "%g", number->valuedouble);
  // Six digits are enough for nearly all values; the others must not come back changed.
  for (int digits : {15, 17}) {
    if (std::strtod(text, nullptr) == number->valuedouble) break;
    std::snprintf(text, sizeof text, "%.*g", digits, number->valuedouble);
  }
  return text;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The parser takes "007" and "1." for numbers and would write them back as 7 and 1.
bool IsMalformedNumber(std::string_view text) {
  const size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return false;
  text.remove_prefix(first);
  if (text.front() == '-')
    text.remove_prefix(1);
  else if (!IsDigit(text.front()))
    return false;
  if (text.empty() || !IsDigit(text.front())) return true;
  if (text.front() == '0' && text.size() > 1 && IsDigit(text[1])) return true;
  const size_t point = text.find('.');
  return point != std::string_view::npos && (point + 1 >= text.size() || !IsDigit(text[point + 1]));
}

} // namespace

std::string PropertyText(const cJSON* value) {
  if (cJSON_IsString(value)) return value->valuestring;
  if (cJSON_IsNumber(value)) return NumberText(value);
  if (cJSON_IsBool(value)) return cJSON_IsTrue(value) ? "true" : "false";
  return PrintJson(value, JsonForm::Compact);
}

JsonPtr ValueOfPropertyText(const std::string& text) {
  // The parser also skips a byte order mark, which would be lost.
  const bool hasMark = !text.empty() && static_cast<unsigned char>(text.front()) == 0xef;
  if (!hasMark && !IsMalformedNumber(text))
    if (JsonParseResult parsed = ParseJson(text, JsonTail::Refused)) return std::move(parsed.json);
  return JsonPtr(cJSON_CreateString(text.c_str()));
}

} // namespace Tesselor
