#include "platform/OutOfMemory.h"

#include "platform/LogFile.h"

#include <new>
#include <string_view>
#include <unistd.h>

namespace Tesselor {

namespace {

/// Does nothing that could ask for memory again. Neither destructors nor exit handlers run: a half-made document is of
/// no use to them.
[[noreturn]] void OnOutOfMemory() {
  constexpr std::string_view line = "Out of memory: the editor ends, and files stay as they were\n";
  [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, line.data(), line.size());
  LogFile::Write(line.substr(0, line.size() - 1));
  _exit(1);
}

} // namespace

void EndWhenOutOfMemory() { std::set_new_handler(&OnOutOfMemory); }

} // namespace Tesselor
