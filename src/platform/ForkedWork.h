#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace Tesselor {

class DescriptorWatch;

/// Work that takes longer than a user may wait, done by a forked child: it has everything as it stood in one moment,
/// and what it changes is gone with it. The loop is held by the fork only.
class ForkedWork {
public:
  using Result = std::optional<std::string>;

  /// `done` gets what `work` returns, by the loop; nothing also if the child failed. It must not let go of this, and
  /// goes after the call. Null if there can be no child.
  static std::unique_ptr<ForkedWork> Start(const std::function<Result()>& work, std::function<void(Result)> done);
  /// Ends the child; `done` is not called any more.
  ~ForkedWork();
  ForkedWork(const ForkedWork&) = delete;
  ForkedWork& operator=(const ForkedWork&) = delete;

  bool IsRunning() const { return child >= 0; }
  /// Waits for work that returns no text; `done` is called before this returns.
  void Finish();

private:
  ForkedWork(pid_t child, int descriptor, std::function<void(Result)> done);
  void Take(std::string_view bytes);
  void Ended();

  pid_t child;
  std::string text;
  std::function<void(Result)> done;
  std::unique_ptr<DescriptorWatch> watch;
};

} // namespace Tesselor
