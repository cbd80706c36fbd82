#include "platform/EndSignals.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace Tesselor {

namespace {

constexpr int endSignals[] = {SIGTERM, SIGHUP, SIGINT};

/// Where the handler writes, which may do little else.
volatile int writeEnd = -1;

void OnSignal(int signal) {
  const int formerError = errno;
  const char byte = static_cast<char>(signal);
  [[maybe_unused]] const ssize_t written = write(writeEnd, &byte, 1);
  errno = formerError;
}

} // namespace

EndSignals::EndSignals(std::function<void(int)> received) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
  writeEnd = ends[1];
  watch.emplace(ends[0], [received = std::move(received)](std::string_view bytes) { received(bytes.front()); });
  for (const int signal : endSignals) {
    struct sigaction former {};
    if (sigaction(signal, nullptr, &former) == 0 && former.sa_handler == SIG_IGN) continue;
    struct sigaction action {};
    action.sa_handler = &OnSignal;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
  }
}

EndSignals::~EndSignals() {
  if (!watch) return;
  for (const int signal : endSignals) {
    struct sigaction present {};
    if (sigaction(signal, nullptr, &present) == 0 && present.sa_handler == &OnSignal) std::signal(signal, SIG_DFL);
  }
  watch.reset();
  close(writeEnd);
  writeEnd = -1;
}

void TakeFailedWritesAsErrors() {
  for (const int signal : {SIGPIPE, SIGXFSZ}) std::signal(signal, SIG_IGN);
}

void OccupyStandardDescriptors() {
  for (int descriptor = open("/dev/null", O_RDONLY); descriptor >= 0; descriptor = open("/dev/null", O_RDONLY)) {
    if (descriptor <= STDERR_FILENO) continue;
    close(descriptor);
    return;
  }
}

} // namespace Tesselor
