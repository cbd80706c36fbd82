#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace Tesselor {

/// Letter case of ASCII letters, whatever the locale. All other bytes stay as they are and match themselves only.

constexpr char UpperCase(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
constexpr char LowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

/// Inline because the keys of each object of a file are held against lists of names.
constexpr bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                            [](char one, char other) { return LowerCase(one) == LowerCase(other); });
}

/// Whether the upper-case form of `text` contains `upperText`, which is in upper case already. An empty `upperText` is
/// contained in everything.
bool ContainsUpperCase(std::string_view text, std::string_view upperText);
/// The byte at which `upperText` begins for the first time in the upper-case form of `text`; `npos` if it doesn't.
size_t FindUpperCase(std::string_view text, std::string_view upperText);

} // namespace Tesselor
