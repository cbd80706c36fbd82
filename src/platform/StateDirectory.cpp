#include "platform/StateDirectory.h"

#include <cstdlib>
#include <pwd.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace Tesselor {

namespace fs = std::filesystem;

fs::path FindStateDirectory() {
  // A relative path would mean another place in each directory from which the program is started.
  if (const char* state = std::getenv("XDG_STATE_HOME"); state && *state == '/') return fs::path(state) / "tesselor";
  const char* home = std::getenv("HOME");
  if (!home) {
    // Whoever starts a program without an environment has a home all the same.
    const passwd* user = getpwuid(geteuid());
    home = user ? user->pw_dir : nullptr;
  }
  return home && *home == '/' ? fs::path(home) / ".local/state/tesselor" : fs::path();
}

bool MakePrivateDirectory(const fs::path& directory) {
  std::error_code error;
  if (directory.empty()) return false;
  if (fs::is_directory(directory, error)) return true;
  if (directory.has_parent_path() && directory != directory.parent_path() &&
      !MakePrivateDirectory(directory.parent_path()))
    return false;
  return mkdir(directory.c_str(), 0700) == 0 || fs::is_directory(directory, error);
}

} // namespace Tesselor
