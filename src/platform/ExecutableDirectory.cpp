#include "platform/ExecutableDirectory.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace Tesselor {

namespace {
std::string& CurrentDirectoryText() {
  static std::string text;
  return text;
}
} // namespace

const std::string& ExecutableDirectory::Get() { return CurrentDirectoryText(); }

void ExecutableDirectory::Set(std::string directory) { CurrentDirectoryText() = std::move(directory); }

void ExecutableDirectory::SetFromProgram(const char* program) {
  if (!program) return;
  std::error_code error;
  std::filesystem::path path = std::filesystem::absolute(program, error);
  if (error) return;
  // A bare name was found along the search path of the shell, so it names nothing in the current directory.
  if (!std::filesystem::path(program).has_parent_path() && !std::filesystem::exists(path, error)) {
    const std::filesystem::path running = std::filesystem::read_symlink("/proc/self/exe", error);
    if (!error) path = running;
  }
  Set(path.parent_path().string());
}

} // namespace Tesselor
