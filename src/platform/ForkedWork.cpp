#include "platform/ForkedWork.h"

#include "platform/DescriptorWatch.h"
#include "platform/LogFile.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <new>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace Tesselor {

namespace {

/// An exception ends the child, or it would go on as a second editor where the parent has its handlers.
[[noreturn]] void RunChild(int descriptor, const std::function<ForkedWork::Result()>& work) noexcept {
  // The loop of the parent answers signals and writes the log, and tells the user itself what a failed child means.
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) std::signal(signal, SIG_IGN);
  LogFile::SetSink([](std::string_view) {});
  std::set_new_handler([] { _exit(1); });
  [[maybe_unused]] const int niceness = nice(10);
  const ForkedWork::Result text = work();
  if (!text) _exit(1);
  for (size_t at = 0; at < text->size();) {
    const ssize_t count = write(descriptor, text->data() + at, text->size() - at);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) _exit(1);
    at += static_cast<size_t>(count);
  }
  _exit(0);
}

} // namespace

std::unique_ptr<ForkedWork> ForkedWork::Start(const std::function<Result()>& work, std::function<void(Result)> done) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return nullptr;
  const pid_t child = fork();
  if (child == 0) {
    // With a reader of its own the child would wait for ever once the parent is gone.
    close(ends[0]);
    RunChild(ends[1], work);
  }
  close(ends[1]);
  if (child < 0) {
    close(ends[0]);
    return nullptr;
  }
  return std::unique_ptr<ForkedWork>(new ForkedWork(child, ends[0], std::move(done)));
}

ForkedWork::ForkedWork(pid_t child, int descriptor, std::function<void(Result)> done)
    : child(child), done(std::move(done)),
      watch(std::make_unique<DescriptorWatch>(descriptor, [this](std::string_view bytes) { Take(bytes); })) {}

ForkedWork::~ForkedWork() {
  if (child < 0) return;
  kill(child, SIGKILL);
  while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
  }
}

void ForkedWork::Finish() {
  if (!IsRunning()) return;
  watch.reset();
  Ended();
}

void ForkedWork::Take(std::string_view bytes) {
  text += bytes;
  if (bytes.empty()) Ended();
}

void ForkedWork::Ended() {
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  child = -1;
  // What the callback holds, such as a whole document, is needed no longer than for this call.
  const auto tell = std::exchange(done, nullptr);
  tell(status == 0 ? Result(std::move(text)) : std::nullopt);
}

} // namespace Tesselor
