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
  /// Where the parser gave up and what stands there: "line 3, column 7: nope}", on one printable line, cut to a length
  /// that suits a log line or a box. Columns are counted in characters. Empty only for a text that parses.
  std::string detail;
  /// The text may be valid, but there was no memory for its tree.
  bool ranOutOfMemory = false;

  explicit operator bool() const { return json != nullptr; }
};

/// Such a detail for a place in a text.
std::string DescribePlace(std::string_view text, size_t position);

/// The whole file as bytes; nothing if it can't be opened or read. A directory, a pipe or a device is no file, and is
/// never waited for.
std::optional<std::string> ReadTextFile(const std::string& path);

/// What to do about text behind the first value.
enum class JsonTail { Ignored, Refused };

/// How many objects and arrays may stand in each other. A text that nests deeper doesn't parse, so that a hostile one
/// can't exhaust the stack.
inline constexpr size_t JsonNestingLimit = CJSON_NESTING_LIMIT;

/// Parses a text.
///
/// The tree's strings end at a zero byte, so a zero character inside a JSON string stands there as the two bytes C0 80,
/// which are no UTF-8 and can't mean anything else. `PrintJson` writes them as the escape of the zero character again.
JsonParseResult ParseJson(const std::string& text, JsonTail tail = JsonTail::Ignored);

/// A text in which JSON values stand behind each other, or among anything else. Their zero characters are kept as
/// `ParseJson` keeps them.
class JsonRun {
public:
  explicit JsonRun(const std::string& text);

  const std::string& Text() const { return text; }
  /// The value that begins at `position` of the text, or behind white space there, and moves the position behind it.
  /// Null, with the position as it was, if none begins there.
  JsonPtr ParseAt(size_t& position) const;

private:
  std::string text;
};

enum class JsonForm {
  /// What all files have: tabs, no line end behind the last brace.
  Formatted,
  /// Without any space.
  Compact,
};

/// How deeply a text nests, if it is valid, else about how deeply: 1 for an object without objects or arrays in it.
size_t JsonNesting(std::string_view text);

/// Empty if memory runs out.
std::string PrintJson(const cJSON* json, JsonForm form = JsonForm::Formatted);

/// The text of a JSON string; nothing for null and for items of other types.
std::optional<std::string> JsonText(const cJSON* item);

} // namespace Tesselor
