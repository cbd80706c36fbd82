#pragma once

#include <string>

namespace Tesselor {

/// The directory that the program was started from, by which it finds the data installed beside it. One process-wide
/// text, set by `main` before the run starts; empty means unknown and turns those searches off.
class ExecutableDirectory {
public:
  static const std::string& Get();
  static void Set(std::string directory);

  /// Takes the directory of `argv[0]`, made absolute from the current directory. On failure the text stays as it is.
  static void SetFromProgram(const char* program);
};

} // namespace Tesselor
