#pragma once

#include <string>
#include <string_view>

struct cJSON;

namespace Tesselor {

/// A value on one line, cut to a length that can be read.
std::string ShortText(const cJSON* value);
/// A text that was cut to such a length between two characters.
std::string ShortText(std::string_view text);

/// Appends one step of a JSON path: `.Name`, or `["a key"]` for a key that is no plain word.
void AppendKey(std::string& path, std::string_view key);
void AppendIndex(std::string& path, size_t index);

} // namespace Tesselor
