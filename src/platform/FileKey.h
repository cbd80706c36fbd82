#pragma once

#include <string>
#include <string_view>

namespace Tesselor {

/// As sixteen digits, by which texts are told apart: 64-bit FNV-1a.
std::string HashOf(std::string_view text);

/// Names a file by its whole path, links followed: its own name, cut to 100 bytes, and the hash of the path. Fit for
/// a name in a directory.
std::string FileKeyOf(const std::string& path);

} // namespace Tesselor
