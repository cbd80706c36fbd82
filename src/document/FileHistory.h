#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Tesselor {

/// The former versions of saved files. Each save first keeps what it replaces; the same content twice in a row of
/// versions is kept once, under the time at which it was last replaced. Knows files only, and tells nobody anything.
class FileHistory {
public:
  /// A version stays while it is one of this many of its file's newest, or as young as this.
  static constexpr size_t newestKept = 20;
  static constexpr std::chrono::hours ageKept{30 * 24};
  /// Beyond this many bytes in all the oldest versions go, whatever they are.
  static constexpr uintmax_t bytesKept = uintmax_t(200) << 20;

  struct Version {
    std::filesystem::path file;
    std::chrono::system_clock::time_point time;
    uintmax_t size = 0;
  };

  explicit FileHistory(std::filesystem::path directory, uintmax_t bytesKept = FileHistory::bytesKept)
      : directory(std::move(directory)), mostBytes(bytesKept) {}

  /// False if `TESSELOR_HISTORY=0` stands in the environment.
  static bool IsWanted();

  /// Keeps the content of a file as it is at a time. True if it is kept, or if there is no such file.
  bool Keep(const std::string& path, std::chrono::system_clock::time_point now = std::chrono::system_clock::now());
  /// Of that file, newest first.
  std::vector<Version> VersionsOf(const std::string& path) const;

private:
  std::filesystem::path DirectoryOf(const std::string& path) const;
  void Prune(const std::filesystem::path& versions, std::chrono::system_clock::time_point now) const;

  std::filesystem::path directory;
  uintmax_t mostBytes;
};

} // namespace Tesselor
