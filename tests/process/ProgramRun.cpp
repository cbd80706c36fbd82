#include "process/ProgramRun.h"

#include "TemporaryDirectory.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace TestSupport {

namespace fs = std::filesystem;

ProgramRun::ProgramRun(const fs::path& directory, const std::vector<std::string>& arguments,
                       const Surroundings& surroundings) {
  const fs::path errors = directory / "stderr.txt";
  fs::remove_all(directory / "NodeEditorLogs");
  const pid_t child = fork();
  if (child == 0) {
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
    if (chdir(directory.c_str()) != 0) _exit(126);
    const int file = open(errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    dup2(file, 2);
    close(file);
    if (surroundings) surroundings();
    std::vector<char*> argv{const_cast<char*>(TESSELOR_PROGRAM)};
    for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    execv(TESSELOR_PROGRAM, argv.data());
    _exit(127);
  }
  int status = 0;
  const auto start = std::chrono::steady_clock::now();
  while (waitpid(child, &status, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() - start > std::chrono::minutes(1)) {
      hung = true;
      kill(child, SIGKILL);
      waitpid(child, &status, 0);
      break;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  // A crash shows as 128 and the signal, as in a shell.
  exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  standardError = TemporaryDirectory::Read(errors);
  if (fs::exists(directory / "NodeEditorLogs"))
    for (const fs::directory_entry& entry : fs::directory_iterator(directory / "NodeEditorLogs"))
      log += TemporaryDirectory::Read(entry.path());
}

} // namespace TestSupport
