#include "platform/ProcessIdentity.h"

#include "platform/JsonFile.h"

#include <unistd.h>

namespace Tesselor {

namespace {

/// When the process started, in the system's own unit; empty if none of that number runs.
std::string StartOf(std::string_view pid) {
  const std::string status = ReadTextFile("/proc/" + std::string(pid) + "/stat").value_or("");
  // The second entry is the program's name in parentheses and may hold anything; the 22nd is the start.
  size_t at = status.rfind(')');
  // One that has ended keeps its number until its parent asks for it, which some programs never do.
  if (at != std::string::npos && status.find_first_of("ZX", at) == at + 2) return {};
  for (int i = 0; i < 20 && at != std::string::npos; ++i) at = status.find(' ', at + 1);
  if (at == std::string::npos) return {};
  return status.substr(at + 1, status.find(' ', at + 1) - at - 1);
}

} // namespace

std::string ProcessIdentity::Own() {
  const std::string pid = std::to_string(getpid());
  return pid + "-" + StartOf(pid);
}

bool ProcessIdentity::IsAlive(std::string_view name) {
  const size_t dash = name.find('-');
  if (dash == std::string_view::npos || name.find_first_not_of("0123456789-") != std::string_view::npos) return false;
  const std::string start = StartOf(name.substr(0, dash));
  return !start.empty() && start == name.substr(dash + 1);
}

} // namespace Tesselor
