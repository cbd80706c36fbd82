#include "platform/JsonFile.h"

#include "platform/JsonMemory.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tesselor {

namespace {

constexpr size_t longestDetail = 120;

constexpr bool IsInsideCharacter(char c) { return (static_cast<unsigned char>(c) & 0xc0) == 0x80; }

/// Cuts `text` for a single line without splitting a UTF-8 sequence, and takes out what would break the line.
std::string DetailFrom(std::string_view text) {
  const bool isCut = text.size() > longestDetail;
  size_t length = isCut ? longestDetail : text.size();
  if (isCut)
    while (length > 0 && IsInsideCharacter(text[length])) --length;
  std::string detail;
  bool pendingBlank = false;
  for (const char c : text.substr(0, length)) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte <= 0x20 || byte == 0x7f) {
      pendingBlank = true;
      continue;
    }
    if (pendingBlank && !detail.empty()) detail += ' ';
    pendingBlank = false;
    detail += c;
  }
  if (isCut && !detail.empty()) detail += "...";
  return detail;
}

constexpr std::string_view nullEscape = "\\u0000";
/// How a zero character stands in the strings of a tree.
constexpr std::string_view keptNull = "\xc0\x80";

/// The text with the zero characters in its strings, written as they are or as escapes, in the form that a tree keeps.
/// Nothing if there are none.
std::optional<std::string> KeepNulls(const std::string& text) {
  if (text.find(nullEscape) == std::string::npos && text.find('\0') == std::string::npos) return std::nullopt;
  std::string result;
  result.reserve(text.size());
  bool isInString = false;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (isInString && (c == '\0' || text.compare(i, nullEscape.size(), nullEscape) == 0)) {
      result += keptNull;
      if (c != '\0') i += nullEscape.size() - 1;
      continue;
    }
    result += c;
    if (c == '"') isInString = !isInString;
    // An escaped quote ends no string, and an escaped backslash begins no escape.
    if (isInString && c == '\\' && i + 1 < text.size()) result += text[++i];
  }
  return result;
}

/// The printed text with escapes for the zero characters that its strings hold.
std::string WriteNulls(std::string_view text) {
  std::string result;
  for (size_t at = text.find(keptNull); at != std::string_view::npos; at = text.find(keptNull)) {
    result.append(text.substr(0, at)).append(nullEscape);
    text.remove_prefix(at + keptNull.size());
  }
  return result.append(text);
}

} // namespace

std::optional<std::string> ReadTextFile(const std::string& path) {
  // Opening a FIFO or some devices would wait for another process, for ever if there is none.
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) return std::nullopt;
  std::optional<std::string> text;
  struct stat status {};
  if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
    text.emplace();
    // One byte more than the file has lets the last read see the end. The size is only a hint: it may grow, and files
    // that the system makes up have none.
    size_t used = 0;
    text->resize(static_cast<size_t>(status.st_size > 0 ? status.st_size : 0) + 1);
    for (;;) {
      if (used == text->size()) text->resize(text->size() * 2);
      const ssize_t count = read(descriptor, text->data() + used, text->size() - used);
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) {
        text.reset();
        break;
      }
      if (count == 0) break;
      used += static_cast<size_t>(count);
    }
    if (text) text->resize(used);
  }
  close(descriptor);
  return text;
}

std::string DescribePlace(std::string_view text, size_t position) {
  position = std::min(position, text.size());
  const std::string_view before = text.substr(0, position);
  const size_t lines = static_cast<size_t>(std::count(before.begin(), before.end(), '\n'));
  const std::string_view line = before.substr(before.find_last_of('\n') + 1);
  const size_t column = line.size() - static_cast<size_t>(std::count_if(line.begin(), line.end(), &IsInsideCharacter));
  const std::string detail = DetailFrom(text.substr(position));
  return "line " + std::to_string(lines + 1) + ", column " + std::to_string(column + 1) +
         (detail.empty() ? ", where the text ends" : ": " + detail);
}

JsonParseResult ParseJson(const std::string& original, JsonTail tail) {
  JsonParseResult result;
  const std::optional<std::string> kept = KeepNulls(original);
  const std::string& text = kept ? *kept : original;
  const JsonMemory memory;
  // The terminating zero belongs to the text, or a number at the very end would have no end.
  result.json.reset(cJSON_ParseWithLengthOpts(text.c_str(), text.size() + 1, nullptr, tail == JsonTail::Refused));
  result.ranOutOfMemory = memory.RanOut();
  if (result.ranOutOfMemory) {
    result.json.reset();
    result.detail = "not enough memory";
  } else if (!result.json) {
    const char* position = cJSON_GetErrorPtr();
    if (!position || position < text.c_str() || position > text.c_str() + text.size()) position = text.c_str();
    const auto place = static_cast<size_t>(position - text.c_str());
    result.detail = DescribePlace(text, place);
    // One more would be too deep.
    if (JsonNesting(std::string_view(text).substr(0, place + 1)) > JsonNestingLimit)
      result.detail += ", nested more than " + std::to_string(JsonNestingLimit) + " levels deep";
  }
  return result;
}

JsonRun::JsonRun(const std::string& original) : text(KeepNulls(original).value_or(original)) {}

JsonPtr JsonRun::ParseAt(size_t& position) const {
  const char* start = text.c_str() + position;
  const char* end = start;
  JsonPtr json(cJSON_ParseWithLengthOpts(start, text.size() + 1 - position, &end, false));
  if (json) position += static_cast<size_t>(end - start);
  return json;
}

size_t JsonNesting(std::string_view text) {
  size_t depth = 0, deepest = 0;
  bool isInString = false;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '"')
      isInString = !isInString;
    else if (isInString)
      i += c == '\\' ? 1 : 0;
    else if (c == '{' || c == '[')
      deepest = std::max(deepest, ++depth);
    else if (c == '}' || c == ']')
      depth -= depth > 0 ? 1 : 0;
  }
  return deepest;
}

std::string PrintJson(const cJSON* json, JsonForm form) {
  struct Free {
    void operator()(char* text) const { cJSON_free(text); }
  };
  const std::unique_ptr<char, Free> printed(form == JsonForm::Formatted ? cJSON_Print(json)
                                                                        : cJSON_PrintUnformatted(json));
  return printed ? WriteNulls(printed.get()) : std::string();
}

std::optional<std::string> JsonText(const cJSON* item) {
  if (!cJSON_IsString(item) || !item->valuestring) return std::nullopt;
  return item->valuestring;
}

} // namespace Tesselor
