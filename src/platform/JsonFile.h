#pragma once

#include <cjson/cJSON.h>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace Tesselor {

struct JsonDeleter {
  void operator()(cJSON* json) const { cJSON_Delete(json); }
};

/// Owns a JSON tree.
using JsonPtr = std::unique_ptr<cJSON, JsonDeleter>;

/// The tree, or null with what is known of the failure.
struct JsonParseResult {
  JsonPtr json;
  /// The text at which the parser gave up: one printable line, cut to a length that suits a log line or a box. Empty
  /// if there is none, as behind the end of a truncated text.
  std::string detail;

  explicit operator bool() const { return json != nullptr; }
};

/// The whole file as bytes; nothing if it can't be opened or read, as for a directory.
std::optional<std::string> ReadTextFile(const std::string& path);

/// What to do about text behind the first value.
enum class JsonTail { Ignored, Refused };

/// Parses a text. Nesting deeper than the parser's limit (1000) is an error, so a hostile file can't exhaust the stack.
///
/// The tree's strings end at a zero byte, so a zero character inside a JSON string stands there as the two bytes C0 80,
/// which are no UTF-8 and can't mean anything else. `PrintJson` writes them as the escape of the zero character again.
JsonParseResult ParseJson(const std::string& text, JsonTail tail = JsonTail::Ignored);

enum class JsonForm {
  /// What all files have: tabs, no line end behind the last brace.
  Formatted,
  /// Without any space.
  Compact,
};

/// Empty if memory runs out.
std::string PrintJson(const cJSON* json, JsonForm form = JsonForm::Formatted);

/// The text of a JSON string; nothing for null and for items of other types.
std::optional<std::string> JsonText(const cJSON* item);

} // namespace Tesselor
