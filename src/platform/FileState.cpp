#include "platform/FileState.h"

#include <sys/stat.h>

namespace Tesselor {

std::string FileStateOf(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return {};
  std::string state;
  for (const auto part : {static_cast<long long>(status.st_dev), static_cast<long long>(status.st_ino),
                          static_cast<long long>(status.st_size), static_cast<long long>(status.st_mtim.tv_sec),
                          static_cast<long long>(status.st_mtim.tv_nsec)})
    state += std::to_string(part) + ' ';
  return state;
}

} // namespace Tesselor
