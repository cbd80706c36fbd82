#include "platform/TextureRoot.h"

#include "platform/ExecutableDirectory.h"

#include <filesystem>
#include <system_error>

namespace Tesselor {

std::string FindTextureRoot() {
  std::error_code error;
  if (std::filesystem::is_directory("Assets", error)) return {};
  if (ExecutableDirectory::Get().empty()) return {};
  const std::string installed = ExecutableDirectory::Get() + "/../Data";
  return std::filesystem::is_directory(installed, error) ? installed : std::string();
}

} // namespace Tesselor
