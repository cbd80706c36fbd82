#include "document/DocumentPrint.h"

#include "platform/JsonFile.h"

#include <algorithm>

namespace Tesselor {

namespace {

constexpr size_t BeginningLength = 200;

bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\n'; }

/// Behind the closing quote of the string that starts at `position`.
size_t SkipString(const std::string& text, size_t position) {
  for (++position; position < text.size() && text[position] != '"'; ++position)
    if (text[position] == '\\') ++position;
  return position + 1;
}

size_t SkipScalar(const std::string& text, size_t position) {
  if (position < text.size() && text[position] == '"') return SkipString(text, position);
  while (position < text.size() && text[position] != ',' && text[position] != ']' && text[position] != '}' &&
         !IsSpace(text[position]))
    ++position;
  return position;
}

} // namespace

DocumentPrint::DocumentPrint(const cJSON* document) : printed(PrintJson(document)) {
  size_t position = 0;
  if (!printed.empty()) Record(document, position, 0);
  left = printed.size() * MostCopies;
}

void DocumentPrint::Append(std::string& text, const cJSON* json) {
  const auto found = ranges.find(json);
  if (found == ranges.end()) {
    text += PrintJson(json);
    return;
  }
  Range range = found->second;
  const bool isCut = range.end - range.start > left && range.end - range.start > BeginningLength;
  if (isCut) {
    range.end = range.start + BeginningLength;
    while ((static_cast<unsigned char>(printed[range.end]) & 0xc0) == 0x80) --range.end;
  }
  left -= std::min(left, range.end - range.start);
  // Strings have their line ends escaped, so each line end here begins a line with at least `depth` tabs.
  size_t start = range.start;
  while (start < range.end) {
    const size_t lineEnd = printed.find('\n', start);
    if (lineEnd == std::string::npos || lineEnd >= range.end) break;
    text.append(printed, start, lineEnd + 1 - start);
    start = lineEnd + 1 + range.depth;
  }
  if (start < range.end) text.append(printed, start, range.end - start);
  if (isCut) text += "...";
}

void DocumentPrint::Record(const cJSON* value, size_t& position, size_t depth) {
  if (!cJSON_IsObject(value) && !cJSON_IsArray(value)) {
    position = SkipScalar(printed, position);
    return;
  }
  const size_t start = position++;
  const auto skipToContent = [this, &position] {
    while (position < printed.size() && (IsSpace(printed[position]) || printed[position] == ',')) ++position;
  };
  const cJSON* child = nullptr;
  cJSON_ArrayForEach(child, value) {
    skipToContent();
    if (cJSON_IsObject(value)) {
      position = SkipString(printed, position);
      // The colon and the tab behind it.
      position += 2;
    }
    Record(child, position, depth + 1);
  }
  skipToContent();
  ++position;
  ranges.emplace(value, Range{start, position, depth});
}

} // namespace Tesselor
