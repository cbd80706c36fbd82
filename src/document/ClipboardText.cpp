#include "document/ClipboardText.h"

#include "platform/LogFile.h"

#include <algorithm>
#include <string_view>

namespace Tesselor {

namespace {

constexpr char Space[] = " \t\r\n";

/// Behind the comment that begins at `position`; `position` itself if none does.
size_t SkipComment(std::string_view text, size_t position) {
  const std::string_view start = text.substr(position, 2);
  if (start != "//" && start != "/*") return position;
  const bool isLine = start == "//";
  const size_t end = text.find(isLine ? "\n" : "*/", position + 2);
  return end == std::string_view::npos ? text.size() : end + (isLine ? 0 : 2);
}

std::string WithoutComments(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  bool isInString = false;
  for (size_t i = 0; i < text.size();) {
    const size_t next = std::min(text.find_first_of(isInString ? "\"\\" : "\"/", i), text.size());
    result.append(text.substr(i, next - i));
    i = next;
    if (i == text.size()) break;
    if (const size_t behind = isInString ? i : SkipComment(text, i); behind > i) {
      i = behind;
      continue;
    }
    // What a backslash escapes ends no string.
    const size_t length = text[i] == '\\' ? 2 : 1;
    if (text[i] == '"') isInString = !isInString;
    result.append(text.substr(i, length));
    i += length;
  }
  return result;
}

/// Where the next object may begin: at a "{" behind a "}", even if both stand in a string. The end of the text if there
/// is none.
size_t NextCut(const std::string& text, size_t position) {
  while ((position = text.find('}', position)) != std::string::npos) {
    position = text.find_first_not_of(Space, position + 1);
    if (position == std::string::npos) break;
    if (text[position] == '{') return position;
  }
  return text.size();
}

} // namespace

std::vector<JsonPtr> ReadClipboardText(const std::string& text, bool* isAnyTooDeep) {
  std::vector<JsonPtr> objects;
  const JsonRun run(WithoutComments(text));
  const std::string& content = run.Text();
  // Each piece is read from where it begins, as far as its value goes: beyond the cut if that stands in a string. What
  // is read in vain ends at the next cut that stands in none, so that no part of the text is read often.
  for (size_t position = content.find_first_not_of(Space); position < content.size();
       position = content.find_first_not_of(Space, position)) {
    const size_t cut = NextCut(content, position);
    JsonPtr value = run.ParseAt(position);
    const bool isTooDeep =
        !value && JsonNesting(std::string_view(content).substr(position, cut - position)) > JsonNestingLimit;
    if (isTooDeep) {
      LogFile::Write("Pasted content is nested too deeply, ignoring...");
      if (isAnyTooDeep) *isAnyTooDeep = true;
    } else if (!value)
      LogFile::Write("Pasted content is not valid JSON, ignoring...");
    else if (!cJSON_IsObject(value.get()))
      LogFile::Write("Pasted content is not a JSON object, ignoring...");
    else
      objects.push_back(std::move(value));
    position = std::max(position, cut);
  }
  return objects;
}

} // namespace Tesselor
