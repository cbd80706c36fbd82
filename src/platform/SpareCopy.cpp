#include "platform/SpareCopy.h"

#include "platform/FileKey.h"
#include "platform/NewFile.h"
#include "platform/StateDirectory.h"

#include <algorithm>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace Tesselor {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view extension = ".before";

/// Empty if the environment names no state directory.
fs::path OwnDirectory() {
  const fs::path state = FindStateDirectory();
  return state.empty() ? state : state / "overwritten";
}

fs::path TemporaryDirectory() {
  std::error_code error;
  return fs::temp_directory_path(error);
}

/// Anybody may put a file of that name into a directory of temporary files.
bool IsOwn(const fs::path& file) {
  struct stat status {};
  return lstat(file.c_str(), &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == geteuid();
}

} // namespace

bool SpareCopy::Write(const std::string& path, std::string_view text) {
  fs::path directory = OwnDirectory();
  if (!MakePrivateDirectory(directory)) directory = TemporaryDirectory();
  if (directory.empty()) return false;
  const int descriptor = CreateNewFile(directory / (FileKeyOf(path) + "-"), extension, 0600, file);
  if (descriptor < 0) {
    file.clear();
    return false;
  }
  const bool isWritten = WriteAll(descriptor, text) && fsync(descriptor) == 0;
  if (close(descriptor) == 0 && isWritten) return true;
  Remove();
  return false;
}

void SpareCopy::Remove() {
  if (!file.empty()) unlink(std::exchange(file, {}).c_str());
}

std::vector<fs::path> SpareCopy::LeftOf(const std::string& path) {
  const std::string beginning = FileKeyOf(path) + "-";
  std::vector<std::pair<fs::file_time_type, fs::path>> found;
  for (const fs::path& directory : {OwnDirectory(), TemporaryDirectory()}) {
    std::error_code error;
    fs::directory_iterator entries(directory, error);
    for (const fs::directory_iterator end; !error && entries != end; entries.increment(error)) {
      const std::string name = entries->path().filename().string();
      if (!name.starts_with(beginning) || !name.ends_with(extension) || !IsOwn(entries->path())) continue;
      std::error_code timeError;
      if (HasEnded(ProcessOfNewFile(std::string_view(name).substr(beginning.size()))))
        found.emplace_back(entries->last_write_time(timeError), entries->path());
    }
  }
  std::sort(found.begin(), found.end());
  std::vector<fs::path> copies;
  for (auto& [time, file] : found) copies.push_back(std::move(file));
  return copies;
}

} // namespace Tesselor
