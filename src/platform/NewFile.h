#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace Tesselor {

/// Makes an empty file for writing whose name, `beginning<process>-<number>end`, no other file has; its path goes into
/// `path`. Returns its descriptor, negative on failure, with `errno` set.
int CreateNewFile(const std::filesystem::path& beginning, std::string_view end, mode_t mode, std::string& path);

/// The process in a name that `CreateNewFile` made, from behind the beginning on. Zero if there is none.
int ProcessOfNewFile(std::string_view name);
/// True if no such process runs on this machine.
bool HasEnded(int process);

/// True if the descriptor took all of it.
bool WriteAll(int descriptor, std::string_view text);

} // namespace Tesselor
