#pragma once

#include "toolkit/base/SharedString.h"

#include <cstdint>
#include <span>
#include <string>

struct cJSON;

namespace Tesselor {

class FieldOptions;

/// What the rows of a list or dictionary stand for in JSON. The rows themselves hold text.
enum class FieldItemType : uint8_t { String, Uuid, Int, Float, Bool, Mixed };

/// The type that the option `Type` names, in any letter case; `String` if there is none. A type outside `allowed` is
/// told to the user and becomes `String`.
FieldItemType ReadItemType(const FieldOptions& options, std::span<const FieldItemType> allowed);

/// A row's text as a JSON item, which the caller owns. A text that doesn't convert is told to the user; 0 or false
/// then stands in its place.
cJSON* CreateItemJson(FieldItemType type, const Toolkit::SharedString& text);

/// The row text of an item. An item of another JSON type gives the text of an empty value.
std::string ItemText(FieldItemType type, const cJSON* item);

} // namespace Tesselor
