#include "platform/AtomicFile.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace Tesselor {

namespace {

constexpr int mostLinks = 40;
constexpr int mostAttempts = 100;

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

bool WriteAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(descriptor, text.data(), text.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    text.remove_prefix(static_cast<size_t>(count));
  }
  return true;
}

/// A new empty file in `directory`; its path goes into `path`. Negative on failure.
int CreateTemporary(const std::filesystem::path& directory, std::string& path) {
  static std::atomic<unsigned> counter = 0;
  for (int i = 0; i < mostAttempts; ++i) {
    path = (directory / (".tesselor-" + std::to_string(getpid()) + "-" + std::to_string(counter++) + ".tmp")).string();
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor >= 0 || errno != EEXIST) return descriptor;
  }
  return -1;
}

FileWriteResult WriteInPlace(const std::string& path, std::string_view text) {
  const int descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (descriptor < 0) return FileWriteResult::OpenFailed;
  const bool isWritten = WriteAll(descriptor, text);
  return close(descriptor) == 0 && isWritten ? FileWriteResult::Written : FileWriteResult::WriteFailed;
}

/// Makes the new name itself survive a power failure. Not every file system can; the file is complete either way.
void FlushDirectory(const std::filesystem::path& directory) {
  const int descriptor = open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

} // namespace

FileWriteResult AtomicFile::Write(const std::string& path, std::string_view text) {
  const std::filesystem::path target = FollowLinks(path);
  if (!target.has_filename()) return FileWriteResult::OpenFailed;
  struct stat old {};
  const bool exists = stat(target.c_str(), &old) == 0;
  if (exists && S_ISDIR(old.st_mode)) return FileWriteResult::OpenFailed;
  if (exists && !S_ISREG(old.st_mode)) return WriteInPlace(target.string(), text);
  // Renaming asks nothing of the file that goes, so a write-protected one has to be refused here.
  if (exists && access(target.c_str(), W_OK) != 0) return FileWriteResult::OpenFailed;

  const std::filesystem::path directory = target.has_parent_path() ? target.parent_path() : ".";
  std::string temporary;
  const int descriptor = CreateTemporary(directory, temporary);
  if (descriptor < 0) return FileWriteResult::OpenFailed;

  bool isWritten = WriteAll(descriptor, text);
  if (exists) {
    // A change of owner clears special mode bits, so the mode comes last. Only a privileged process may give files
    // away; for others the new file is simply theirs.
    if (old.st_uid != geteuid() || old.st_gid != getegid())
      if (fchown(descriptor, old.st_uid, old.st_gid) != 0) errno = 0;
    isWritten = isWritten && fchmod(descriptor, old.st_mode & 07777) == 0;
  }
  isWritten = isWritten && fsync(descriptor) == 0;
  isWritten = close(descriptor) == 0 && isWritten;
  isWritten = isWritten && std::rename(temporary.c_str(), target.c_str()) == 0;
  if (!isWritten) {
    unlink(temporary.c_str());
    return FileWriteResult::WriteFailed;
  }
  FlushDirectory(directory);
  return FileWriteResult::Written;
}

} // namespace Tesselor
