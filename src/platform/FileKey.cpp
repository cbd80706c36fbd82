#include "platform/FileKey.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace Tesselor {

namespace fs = std::filesystem;

std::string HashOf(std::string_view text) {
  uint64_t hash = 14695981039346656037u;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
  char digits[17];
  std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash));
  return digits;
}

std::string FileKeyOf(const std::string& path) {
  std::error_code error;
  fs::path whole = fs::weakly_canonical(fs::absolute(path, error), error);
  if (error) whole = path;
  return whole.filename().string().substr(0, 100) + "-" + HashOf(whole.string());
}

} // namespace Tesselor
