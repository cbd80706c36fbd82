#include "document/LossText.h"

#include "platform/JsonFile.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace Tesselor {

namespace {

constexpr size_t LongestText = 80;
constexpr std::string_view Ellipsis = "…";

constexpr bool IsWordCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '$';
}

std::string_view Cut(std::string_view text, size_t length) {
  if (text.size() <= length) return text;
  while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xc0) == 0x80) --length;
  return text.substr(0, length);
}

std::string Quote(std::string_view text) {
  const JsonPtr json(cJSON_CreateString(std::string(Cut(text, LongestText)).c_str()));
  return PrintJson(json.get());
}

std::string NumberText(double value) {
  char text[40];
  std::snprintf(text, sizeof text, "%.15g", value);
  if (std::strtod(text, nullptr) != value) std::snprintf(text, sizeof text, "%.17g", value);
  return text;
}

/// Goes no further than what is shown in the end, however large the value is.
void AppendValue(std::string& text, const cJSON* value) {
  if (text.size() > LongestText) return;
  if (cJSON_IsObject(value) || cJSON_IsArray(value)) {
    const bool isObject = cJSON_IsObject(value);
    text += isObject ? '{' : '[';
    for (const cJSON* item = value->child; item && text.size() <= LongestText; item = item->next) {
      if (item != value->child) text += ", ";
      if (isObject) text += Quote(item->string ? item->string : "") + ": ";
      AppendValue(text, item);
    }
    text += isObject ? '}' : ']';
  } else if (cJSON_IsString(value)) {
    text += Quote(value->valuestring);
  } else if (cJSON_IsNumber(value)) {
    text += NumberText(value->valuedouble);
  } else {
    text += PrintJson(value);
  }
}

} // namespace

std::string ShortText(std::string_view text) {
  const std::string_view cut = Cut(text, LongestText);
  return std::string(cut).append(cut.size() < text.size() ? Ellipsis : "");
}

std::string ShortText(const cJSON* value) {
  std::string text;
  AppendValue(text, value);
  return ShortText(text);
}

void AppendKey(std::string& path, std::string_view key) {
  if (!key.empty() && key.size() <= LongestText && std::all_of(key.begin(), key.end(), IsWordCharacter))
    path.append(".").append(key);
  else
    path.append("[").append(Quote(key)).append("]");
}

void AppendIndex(std::string& path, size_t index) { path.append("[").append(std::to_string(index)).append("]"); }

} // namespace Tesselor
