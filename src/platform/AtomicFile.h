#pragma once

#include <filesystem>
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
///
/// A file of several names, of another owner, or in a directory that takes no new entry is written in place instead,
/// after a `SpareCopy` of the old bytes has reached the disk; a write that fails brings them back. That copy stays only
/// if the process ends in between.
class AtomicFile {
public:
  /// Keeps the mode, the owner and the other names of an existing file; a new one gets the process's usual mode. A
  /// symbolic link is followed, and the file behind it replaced. What is no regular file, such as a device, is written
  /// in place. Takes away what writes of processes that have ended left in the directory.
  static FileWriteResult Write(const std::string& path, std::string_view text);
  /// Takes away what ended processes have left in a directory that no other machine writes to.
  static void RemoveLeftovers(const std::filesystem::path& directory);
};

} // namespace Tesselor
