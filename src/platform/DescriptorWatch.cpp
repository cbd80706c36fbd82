#include "platform/DescriptorWatch.h"

#include "toolkit/base/Dispatcher.h"

#include <cerrno>
#include <cstdint>
#include <memory>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace Tesselor {

DescriptorWatch::DescriptorWatch(int descriptor, std::function<void(std::string_view)> read)
    : descriptor(descriptor), stop(eventfd(0, EFD_CLOEXEC)),
      read(std::make_shared<std::function<void(std::string_view)>>(std::move(read))), thread([this] { Wait(); }) {}

DescriptorWatch::~DescriptorWatch() {
  const uint64_t one = 1;
  // A counter that was zero takes it.
  [[maybe_unused]] const ssize_t written = write(stop, &one, sizeof one);
  thread.join();
  *read = nullptr;
  close(stop);
  close(descriptor);
}

void DescriptorWatch::Wait() {
  char buffer[4096];
  for (;;) {
    pollfd waiting[] = {{descriptor, POLLIN, 0}, {stop, POLLIN, 0}};
    if (poll(waiting, 2, -1) < 0 && errno != EINTR) return;
    if (waiting[1].revents != 0) return;
    if (waiting[0].revents == 0) continue;
    const ssize_t count = ::read(descriptor, buffer, sizeof buffer);
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) continue;
    if (count < 0) return;
    Toolkit::Dispatcher::Current().PostFromThread(
        [call = read, bytes = std::string(buffer, static_cast<size_t>(count))] {
          if (*call) (*call)(bytes);
        });
    if (count == 0) return;
  }
}

} // namespace Tesselor
