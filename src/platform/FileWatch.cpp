#include "platform/FileWatch.h"

#include <cstring>
#include <string>
#include <sys/inotify.h>
#include <system_error>
#include <unistd.h>

namespace Tesselor {

namespace {

/// Whether one of the events that stand behind each other in `bytes` is about the entry of that name.
bool Names(std::string_view bytes, const std::string& name) {
  inotify_event event;
  while (bytes.size() >= sizeof event) {
    std::memcpy(&event, bytes.data(), sizeof event);
    bytes.remove_prefix(sizeof event);
    if (event.len > bytes.size()) return false;
    // The name is filled up with zeros.
    if (event.len > 0 && name == bytes.data()) return true;
    bytes.remove_prefix(event.len);
  }
  return false;
}

} // namespace

FileWatch::FileWatch(const std::string& path, std::function<void()> touched) {
  std::error_code error;
  std::filesystem::path file = std::filesystem::absolute(path, error);
  // Behind a link it is the file's own directory that changes.
  if (!error) file = std::filesystem::weakly_canonical(file, error);
  const int descriptor = error ? -1 : inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
  if (descriptor < 0) return;
  // Other programs replace a file as well as write into it.
  if (inotify_add_watch(descriptor, file.parent_path().c_str(),
                        IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE) < 0) {
    close(descriptor);
    return;
  }
  watch.emplace(descriptor, [name = file.filename().string(), touched = std::move(touched)](std::string_view bytes) {
    if (Names(bytes, name)) touched();
  });
}

} // namespace Tesselor
