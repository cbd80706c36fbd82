#pragma once

#include "platform/JsonFile.h"

#include <string>

namespace Tesselor {

/// A value as the text that a property or parameter node shows: strings as they are, numbers as short as keeps them,
/// arrays and objects as unformatted JSON.
std::string PropertyText(const cJSON* value);

/// The way back: the JSON value if all of the text is one, else a string with the text.
JsonPtr ValueOfPropertyText(const std::string& text);

} // namespace Tesselor
