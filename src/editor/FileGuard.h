#pragma once

#include "platform/FileWatch.h"

#include <functional>
#include <optional>
#include <string>

namespace Tesselor {

class NoticeBar;

/// Knows the document's file as it was when it was last read or written, so that what another program does to it
/// shows: at once in the notice bar, and before a save goes over it.
class FileGuard {
public:
  /// The bar outlives the guard. `reload` reads the file into the window.
  FileGuard(NoticeBar& notices, std::function<void()> reload) : notices(notices), reload(std::move(reload)) {}

  /// The file as it is now is what the document came from or was saved to.
  void Take(const std::string& path);
  /// As it was at another time.
  void Take(const std::string& path, std::string state);
  /// True if there is a file at `path`, if it is the one that was taken, and if it is not as it was then.
  bool IsChanged(const std::string& path) const;
  const std::string& State() const { return state; }

private:
  void Look();

  NoticeBar& notices;
  std::function<void()> reload;
  std::string path, state;
  /// What the user was told of last.
  std::string toldState;
  std::optional<FileWatch> watch;
};

} // namespace Tesselor
