#pragma once

#include <string>
#include <string_view>

namespace Tesselor {

/// The text with ASCII letters in upper case; all other bytes stay.
std::string UpperCase(std::string_view text);

/// Whether the upper-case form of `text` contains `upperText`, which is in upper case already. An empty `upperText` is
/// contained in everything.
bool ContainsUpperCase(std::string_view text, std::string_view upperText);

} // namespace Tesselor
