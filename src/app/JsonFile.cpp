#include "app/JsonFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tesselor {

namespace {

constexpr size_t longestDetail = 120;

/// Cuts `text` for a single line without splitting a UTF-8 sequence, and takes out what would break the line.
std::string DetailFrom(std::string_view text) {
  const bool isCut = text.size() > longestDetail;
  size_t length = isCut ? longestDetail : text.size();
  if (isCut)
    while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xc0) == 0x80) --length;
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

} // namespace

std::optional<std::string> ReadTextFile(const std::string& path) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return std::nullopt;
  std::optional<std::string> text;
  struct stat status {};
  if (fstat(descriptor, &status) == 0) {
    text.emplace();
    // One byte more than the file has lets the last read see the end. The size is only a hint: a pipe has none.
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

JsonParseResult ParseJson(const std::string& text) {
  JsonParseResult result;
  // The terminating zero belongs to the text, or a number at the very end would have no end.
  result.json.reset(cJSON_ParseWithLengthOpts(text.c_str(), text.size() + 1, nullptr, false));
  if (!result.json) {
    const char* position = cJSON_GetErrorPtr();
    if (position && position >= text.c_str() && position <= text.c_str() + text.size())
      result.detail = DetailFrom({position, static_cast<size_t>(text.c_str() + text.size() - position)});
  }
  return result;
}

std::string PrintJson(const cJSON* json) {
  struct Free {
    void operator()(char* text) const { cJSON_free(text); }
  };
  const std::unique_ptr<char, Free> text(cJSON_Print(json));
  return text ? std::string(text.get()) : std::string();
}

std::optional<std::string> JsonText(const cJSON* item) {
  if (!cJSON_IsString(item) || !item->valuestring) return std::nullopt;
  return item->valuestring;
}

} // namespace Tesselor
