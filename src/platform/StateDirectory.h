#pragma once

#include <filesystem>

namespace Tesselor {

/// Where the program keeps what is its user's but no document: `$XDG_STATE_HOME/tesselor`, by default
/// `~/.local/state/tesselor`. Empty if the user has no home; nothing is made.
std::filesystem::path FindStateDirectory();

/// Makes a directory and all above it that are missing, for the user alone. True if it is there.
bool MakePrivateDirectory(const std::filesystem::path& directory);

} // namespace Tesselor
