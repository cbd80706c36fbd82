#include "workspace/DirectoryWalk.h"

#include <algorithm>
#include <cerrno>
#include <set>
#include <sys/stat.h>
#include <system_error>
#include <utility>

namespace Tesselor {

namespace {

using DirectoryIdentity = std::pair<dev_t, ino_t>;

void Report(const DirectoryErrorHandler& onError, const std::filesystem::path& path, const std::error_code& error) {
  if (onError) onError("Failed to read directory: " + path.string() + " - " + error.message());
}

struct Walk {
  const std::function<void(const DirectoryEntry&)>& visit;
  const std::function<bool(const DirectoryEntry&)>& entersDirectory;
  const DirectoryErrorHandler& onError;
  /// Links may lead back to a directory or to it by many ways, which multiply from one level to the next.
  std::set<DirectoryIdentity> visited;

  void Enter(const std::filesystem::path& directory) {
    struct stat status {};
    if (stat(directory.c_str(), &status) != 0) {
      Report(onError, directory, std::error_code(errno, std::generic_category()));
      return;
    }
    if (!visited.emplace(status.st_dev, status.st_ino).second) return;
    for (const DirectoryEntry& entry : ListDirectory(directory, onError)) {
      if (!entry.isDirectory)
        visit(entry);
      else if (!entersDirectory || entersDirectory(entry))
        Enter(entry.path);
    }
  }
};

} // namespace

std::vector<DirectoryEntry> ListDirectory(const std::filesystem::path& directory,
                                          const DirectoryErrorHandler& onError) {
  std::vector<DirectoryEntry> entries;
  std::error_code error;
  std::filesystem::directory_iterator found(directory, error);
  for (const std::filesystem::directory_iterator end; !error && found != end; found.increment(error)) {
    // An entry that is gone by now, or a link that leads nowhere, is of neither kind.
    std::error_code entryError;
    const std::filesystem::file_status status = found->status(entryError);
    entries.push_back({found->path(), found->path().filename().string(), std::filesystem::is_directory(status),
                       std::filesystem::is_regular_file(status)});
  }
  if (error) Report(onError, directory, error);
  std::sort(entries.begin(), entries.end(),
            [](const DirectoryEntry& a, const DirectoryEntry& b) { return a.name < b.name; });
  return entries;
}

void WalkFiles(const std::filesystem::path& directory, const std::function<void(const DirectoryEntry&)>& visit,
               const std::function<bool(const DirectoryEntry&)>& entersDirectory,
               const DirectoryErrorHandler& onError) {
  Walk{visit, entersDirectory, onError, {}}.Enter(directory);
}

} // namespace Tesselor
