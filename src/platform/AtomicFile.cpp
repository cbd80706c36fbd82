#include "platform/AtomicFile.h"

#include "platform/JsonFile.h"
#include "platform/NewFile.h"
#include "platform/SpareCopy.h"

#include <cerrno>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <optional>
#include <set>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace Tesselor {

namespace {

constexpr int mostLinks = 40;
constexpr std::string_view temporaryPrefix = ".tesselor-", temporarySuffix = ".tmp";
constexpr std::time_t leftoverSeconds = 600;

/// The path that the chain of symbolic links at `path` ends in, whether there is a file or not.
std::filesystem::path FollowLinks(std::filesystem::path path) {
  std::error_code error;
  for (int i = 0; i < mostLinks && std::filesystem::is_symlink(path, error); ++i) {
    const std::filesystem::path target = std::filesystem::read_symlink(path, error);
    if (error) break;
    path = target.is_absolute() ? target : path.parent_path() / target;
  }
  return path;
}

/// What is no regular file takes bytes and keeps none.
FileWriteResult WriteToDevice(const std::string& path, std::string_view text) {
  // A pipe that nobody reads is refused, where opening it otherwise would wait for a reader.
  const int descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) return FileWriteResult::OpenFailed;
  const bool isWritten = fcntl(descriptor, F_SETFL, 0) == 0 && WriteAll(descriptor, text);
  return close(descriptor) == 0 && isWritten ? FileWriteResult::Written : FileWriteResult::WriteFailed;
}

/// The file's bytes become the text's, and nothing of a longer file stays behind it.
bool Overwrite(int descriptor, std::string_view text) {
  return lseek(descriptor, 0, SEEK_SET) == 0 && WriteAll(descriptor, text) &&
         ftruncate(descriptor, static_cast<off_t>(text.size())) == 0 && fsync(descriptor) == 0;
}

bool IsDiskFull(int error) { return error == ENOSPC || error == EDQUOT || error == EFBIG || error == EIO; }

/// Asks for the room before the first byte of the old file is touched. Where a file system can't tell, the write will.
bool HasRoom(int descriptor, size_t size, size_t oldSize) {
  if (size <= oldSize) return true;
  // Not the portable call: what stands in for it where a file system can't tell has to read the file.
  if (fallocate(descriptor, 0, 0, static_cast<off_t>(size)) == 0 || !IsDiskFull(errno)) return true;
  [[maybe_unused]] const int truncated = ftruncate(descriptor, static_cast<off_t>(oldSize));
  return false;
}

/// For a file that no other can take the place of: one with more names, or in a directory that takes no new entry.
FileWriteResult WriteInPlace(const std::string& path, std::string_view text) {
  const int descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (descriptor < 0) return FileWriteResult::OpenFailed;
  const std::optional<std::string> old = ReadTextFile(path);
  SpareCopy spare;
  bool isWritten = false, isWhole = true;
  if (old && spare.Write(path, *old) && HasRoom(descriptor, text.size(), old->size())) {
    isWritten = Overwrite(descriptor, text);
    isWhole = isWritten || Overwrite(descriptor, *old);
  }
  // The bytes have reached the disk by now, or the old ones are back.
  close(descriptor);
  // Of a file that is neither the old nor the new one the spare is the last copy.
  if (isWhole) spare.Remove();
  return isWritten ? FileWriteResult::Written : FileWriteResult::WriteFailed;
}

bool IsLeftover(std::string_view name) {
  return name.starts_with(temporaryPrefix) && name.ends_with(temporarySuffix) &&
         HasEnded(ProcessOfNewFile(name.substr(temporaryPrefix.size())));
}

void RemoveLeftoversOf(const std::filesystem::path& directory, std::time_t before) {
  std::error_code error;
  std::filesystem::directory_iterator entries(directory, error);
  std::vector<std::filesystem::path> leftovers;
  for (const std::filesystem::directory_iterator end; !error && entries != end; entries.increment(error)) {
    struct stat status {};
    if (!IsLeftover(entries->path().filename().string()) || stat(entries->path().c_str(), &status) != 0) continue;
    if (status.st_mtime < before) leftovers.push_back(entries->path());
  }
  for (const std::filesystem::path& path : leftovers) unlink(path.c_str());
}

/// Once for each directory that is written to. A file that was touched lately may be another machine's.
void RemoveOldLeftovers(const std::filesystem::path& directory) {
  static std::set<std::string> visited;
  if (visited.insert(directory.string()).second) RemoveLeftoversOf(directory, std::time(nullptr) - leftoverSeconds);
}

/// Makes the new name itself survive a power failure. Not every file system can; the file is complete either way.
void FlushDirectory(const std::filesystem::path& directory) {
  const int descriptor = open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

} // namespace

void AtomicFile::RemoveLeftovers(const std::filesystem::path& directory) {
  RemoveLeftoversOf(directory, std::numeric_limits<std::time_t>::max());
}

FileWriteResult AtomicFile::Write(const std::string& path, std::string_view text) {
  const std::filesystem::path target = FollowLinks(path);
  // A link that leads back to itself leads to no file.
  std::error_code error;
  if (!target.has_filename() || std::filesystem::is_symlink(target, error)) return FileWriteResult::OpenFailed;
  struct stat old {};
  const bool exists = stat(target.c_str(), &old) == 0;
  if (exists && S_ISDIR(old.st_mode)) return FileWriteResult::OpenFailed;
  if (exists && !S_ISREG(old.st_mode)) return WriteToDevice(target.string(), text);
  // Renaming asks nothing of the file that goes, so a write-protected one has to be refused here.
  if (exists && access(target.c_str(), W_OK) != 0) return FileWriteResult::OpenFailed;
  if (exists && old.st_nlink > 1) return WriteInPlace(target.string(), text);

  const std::filesystem::path directory = target.has_parent_path() ? target.parent_path() : ".";
  RemoveOldLeftovers(directory);
  std::string temporary;
  const int descriptor = CreateNewFile(directory / temporaryPrefix, temporarySuffix, 0666, temporary);
  if (descriptor < 0) {
    if (IsDiskFull(errno)) return FileWriteResult::WriteFailed;
    return exists ? WriteInPlace(target.string(), text) : FileWriteResult::OpenFailed;
  }
  bool isWritten = WriteAll(descriptor, text), isReplaceable = true;
  if (exists) {
    // Only a privileged process may give files away: what belongs to another user or group stays theirs in place. The
    // new file may have its group from the directory. A change of owner clears special mode bits, so the mode comes
    // last.
    struct stat made {};
    if (fstat(descriptor, &made) != 0 || made.st_uid != old.st_uid || made.st_gid != old.st_gid)
      isReplaceable = fchown(descriptor, old.st_uid, old.st_gid) == 0;
    isWritten = isWritten && fchmod(descriptor, old.st_mode & 07777) == 0;
  }
  isWritten = isWritten && fsync(descriptor) == 0;
  isWritten = close(descriptor) == 0 && isWritten;
  if (isWritten && isReplaceable) {
    if (std::rename(temporary.c_str(), target.c_str()) == 0) {
      FlushDirectory(directory);
      return FileWriteResult::Written;
    }
    // As in a directory where each may only replace what is theirs.
    isReplaceable = !exists || (errno != EPERM && errno != EACCES);
    isWritten = !isReplaceable;
  }
  unlink(temporary.c_str());
  return isWritten ? WriteInPlace(target.string(), text) : FileWriteResult::WriteFailed;
}

} // namespace Tesselor
