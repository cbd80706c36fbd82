#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace TestSupport {

/// One run of the built program in a directory, without a display. It is ended after a minute, which counts as a hang.
struct ProgramRun {
  int exitCode = -1;
  bool hung = false;
  std::string standardError;
  /// The run's log; empty if it wrote none below `directory`.
  std::string log;

  /// What the run is given, in the child before the program starts.
  using Surroundings = std::function<void()>;

  ProgramRun(const std::filesystem::path& directory, const std::vector<std::string>& arguments,
             const Surroundings& surroundings = {});
  bool Logged(const std::string& text) const { return log.find(text) != std::string::npos; }
};

} // namespace TestSupport
