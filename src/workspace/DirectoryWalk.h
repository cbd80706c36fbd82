#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace Tesselor {

/// One entry of a directory. Symbolic links count as what they lead to.
struct DirectoryEntry {
  /// The directory's path as it was given, joined with the name.
  std::filesystem::path path;
  std::string name;
  bool isDirectory = false;
  bool isRegularFile = false;
};

/// Receives what the file system refused, as a text for the log.
using DirectoryErrorHandler = std::function<void(const std::string& message)>;

/// The entries of a directory, sorted by the bytes of their names: the file system's own order differs between
/// machines, and which of two equal ids wins must not. A directory that can't be read has no entries.
std::vector<DirectoryEntry> ListDirectory(const std::filesystem::path& directory,
                                          const DirectoryErrorHandler& onError = {});

/// Visits what lies below a directory at any depth and is no directory itself, in the order of `ListDirectory`, a
/// subdirectory's content in its place. `entersDirectory` may be empty, for all. A directory that
/// several links lead to is entered once, by the first way in that order.
void WalkFiles(const std::filesystem::path& directory, const std::function<void(const DirectoryEntry&)>& visit,
               const std::function<bool(const DirectoryEntry&)>& entersDirectory = {},
               const DirectoryErrorHandler& onError = {});

} // namespace Tesselor
