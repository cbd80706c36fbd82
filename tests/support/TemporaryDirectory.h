#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

namespace TestSupport {

/// A fresh directory that goes with its whole content at the end of the scope.
class TemporaryDirectory {
public:
  TemporaryDirectory() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tesselor-test-XXXXXX").string();
    directory = mkdtemp(pattern.data());
  }
  ~TemporaryDirectory() {
    std::error_code error;
    std::filesystem::remove_all(directory, error);
  }
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  const std::filesystem::path& Path() const { return directory; }
  std::string operator/(std::string_view name) const { return (directory / name).string(); }

  /// Writes a file below the directory, making its parents, and returns its path.
  std::string Write(std::string_view name, std::string_view text) const {
    const std::filesystem::path path = directory / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
  }
  static std::string Read(const std::filesystem::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
  }

private:
  std::filesystem::path directory;
};

/// Makes a directory the current one until the end of the scope.
class CurrentDirectoryScope {
public:
  explicit CurrentDirectoryScope(const std::filesystem::path& path) : former(std::filesystem::current_path()) {
    std::filesystem::current_path(path);
  }
  ~CurrentDirectoryScope() { std::filesystem::current_path(former); }
  CurrentDirectoryScope(const CurrentDirectoryScope&) = delete;
  CurrentDirectoryScope& operator=(const CurrentDirectoryScope&) = delete;

private:
  std::filesystem::path former;
};

} // namespace TestSupport
