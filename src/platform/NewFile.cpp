#include "platform/NewFile.h"

#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace Tesselor {

namespace {

constexpr int mostAttempts = 100;

} // namespace

int CreateNewFile(const std::filesystem::path& beginning, std::string_view end, mode_t mode, std::string& path) {
  static std::atomic<unsigned> counter = 0;
  for (int i = 0; i < mostAttempts; ++i) {
    path = beginning.string() + std::to_string(getpid()) + "-" + std::to_string(counter++) + std::string(end);
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (descriptor >= 0 || errno != EEXIST) return descriptor;
  }
  return -1;
}

int ProcessOfNewFile(std::string_view name) {
  int process = 0;
  std::from_chars(name.data(), name.data() + name.size(), process);
  return process;
}

bool HasEnded(int process) { return process > 0 && kill(process, 0) != 0 && errno == ESRCH; }

bool WriteAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(descriptor, text.data(), text.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    text.remove_prefix(static_cast<size_t>(count));
  }
  return true;
}

} // namespace Tesselor
