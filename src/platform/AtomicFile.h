#pragma once

#include <string>
#include <string_view>

namespace Tesselor {

enum class FileWriteResult {
  Written,
  /// The file could not be opened for writing, or nothing can be created beside it.
  OpenFailed,
  /// The text could not be brought to the disk, which may be full.
  WriteFailed,
};

/// Replaces files as a whole: the text goes into a temporary file in the same directory, is flushed to the disk, and
/// takes the file's name. On any failure the old file is there unchanged, and no temporary file stays behind.
class AtomicFile {
public:
  /// Keeps the mode of an existing file; a new one gets the process's usual mode. A symbolic link is followed, and
  /// the file behind it replaced. What is no regular file, such as a device, is written in place.
  static FileWriteResult Write(const std::string& path, std::string_view text);
};

} // namespace Tesselor
