#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

namespace Tesselor {

/// Waits on a thread of its own until something can be read from a descriptor, so that the loop, which waits for the
/// window system alone, needn't look again and again. Owns the descriptor.
class DescriptorWatch {
public:
  /// `read` gets what has come, on the loop, and nothing when the other end is closed.
  DescriptorWatch(int descriptor, std::function<void(std::string_view bytes)> read);
  /// Afterwards `read` is not called any more.
  ~DescriptorWatch();
  DescriptorWatch(const DescriptorWatch&) = delete;
  DescriptorWatch& operator=(const DescriptorWatch&) = delete;

private:
  void Wait();

  int descriptor;
  int stop;
  /// Null once the watch has gone, of which what is posted learns by this.
  std::shared_ptr<std::function<void(std::string_view)>> read;
  std::thread thread;
};

} // namespace Tesselor
