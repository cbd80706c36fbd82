#pragma once

#include <string>
#include <string_view>

namespace Tesselor {

/// Names one run of a process: its number alone is given to others after it.
///
/// The name is "<pid>-<start>" in digits, so that it can stand in a file's name.
class ProcessIdentity {
public:
  static std::string Own();
  /// True if the process of that name runs. A text that is no such name names none.
  static bool IsAlive(std::string_view name);
};

} // namespace Tesselor
