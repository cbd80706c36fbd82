#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace Tesselor {

/// What a file held, in a place of the user's, for as long as the file is being overwritten: below the state
/// directory, else in the system's directory of temporary files.
class SpareCopy {
public:
  /// Brings `text` to the disk. False if it is not there.
  bool Write(const std::string& path, std::string_view text);
  /// The file is whole. A copy that nobody removes stays, also when the process ends.
  void Remove();

  /// The copies of a file whose writers ended before it was whole, oldest first.
  static std::vector<std::filesystem::path> LeftOf(const std::string& path);

private:
  std::string file;
};

} // namespace Tesselor
