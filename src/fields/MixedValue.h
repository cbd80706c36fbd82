#pragma once

#include <optional>
#include <string>

struct cJSON;

namespace Tesselor {

/// The JSON value that a text without a type of its own looks like: true or false, a number that it begins with, else
/// a string. The caller owns the item. `text` must end with a zero byte.
cJSON* CreateMixedJson(const char* text);

/// The text of a truth value, number or string; nothing for other items.
std::optional<std::string> MixedText(const cJSON* item);

} // namespace Tesselor
