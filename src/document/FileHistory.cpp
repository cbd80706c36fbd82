#include "document/FileHistory.h"

#include "platform/AtomicFile.h"
#include "platform/FileKey.h"
#include "platform/JsonFile.h"
#include "platform/StateDirectory.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <system_error>

namespace Tesselor {

namespace fs = std::filesystem;
using Clock = std::chrono::system_clock;

namespace {

constexpr std::string_view extension = ".version";

/// The milliseconds of its time, padded so that names sort by them, and the hash of its content.
std::string NameOf(Clock::time_point time, const std::string& hash) {
  const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch()).count();
  char digits[24];
  std::snprintf(digits, sizeof digits, "%015lld", static_cast<long long>(milliseconds));
  return std::string(digits) + "-" + hash + std::string(extension);
}

/// Oldest first. What bears no such name is no version.
std::vector<FileHistory::Version> VersionsIn(const fs::path& directory) {
  std::vector<FileHistory::Version> versions;
  std::error_code error;
  fs::directory_iterator entries(directory, error);
  for (const fs::directory_iterator end; !error && entries != end; entries.increment(error)) {
    std::error_code entryError;
    const uintmax_t size = entries->file_size(entryError);
    const long long time = std::atoll(entries->path().filename().c_str());
    if (entryError || time <= 0 || entries->path().extension() != extension) continue;
    versions.push_back({entries->path(), Clock::time_point(std::chrono::milliseconds(time)), size});
  }
  std::sort(versions.begin(), versions.end(), [](const auto& a, const auto& b) { return a.file < b.file; });
  return versions;
}

} // namespace

bool FileHistory::IsWanted() {
  const char* value = std::getenv("TESSELOR_HISTORY");
  return !value || std::strcmp(value, "0") != 0;
}

fs::path FileHistory::DirectoryOf(const std::string& path) const { return directory / FileKeyOf(path); }

bool FileHistory::Keep(const std::string& path, Clock::time_point now) {
  std::error_code error;
  if (!fs::exists(path, error)) return true;
  const std::optional<std::string> text = ReadTextFile(path);
  const fs::path versions = DirectoryOf(path);
  if (!text || !MakePrivateDirectory(versions)) return false;
  const std::string hash = HashOf(*text);
  const fs::path kept = versions / NameOf(now, hash);
  for (const Version& version : VersionsIn(versions)) {
    if (!version.file.stem().string().ends_with(hash) || version.size != text->size()) continue;
    // The same again becomes the newest.
    if (ReadTextFile(version.file.string()) == text) fs::rename(version.file, kept, error);
  }
  if (!fs::exists(kept, error) && AtomicFile::Write(kept.string(), *text) != FileWriteResult::Written) return false;
  Prune(versions, now);
  return true;
}

std::vector<FileHistory::Version> FileHistory::VersionsOf(const std::string& path) const {
  std::vector<Version> versions = VersionsIn(DirectoryOf(path));
  std::reverse(versions.begin(), versions.end());
  return versions;
}

void FileHistory::Prune(const fs::path& versions, Clock::time_point now) const {
  std::error_code error;
  const std::vector<Version> own = VersionsIn(versions);
  for (size_t i = 0; i + newestKept < own.size(); ++i)
    if (now - own[i].time > ageKept) fs::remove(own[i].file, error);
  std::vector<Version> all;
  uintmax_t bytes = 0;
  for (fs::directory_iterator files(directory, error), end; !error && files != end; files.increment(error))
    for (Version& version : VersionsIn(files->path())) {
      bytes += version.size;
      all.push_back(std::move(version));
    }
  std::sort(all.begin(), all.end(), [](const Version& a, const Version& b) { return a.time < b.time; });
  for (size_t i = 0; i < all.size() && bytes > mostBytes; ++i) {
    bytes -= all[i].size;
    fs::remove(all[i].file, error);
    // Only an empty directory goes.
    fs::remove(all[i].file.parent_path(), error);
  }
}

} // namespace Tesselor
