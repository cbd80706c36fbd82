// What a save leaves when any one system call on its way fails, or the process ends there.
#include "platform/AtomicFile.h"
#include "support/TemporaryDirectory.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

enum class Fault {
  Fail,
  DiskFull,
  Interrupt,
  ShortWrite,
  Kill,
  /// From that call on no write reaches the disk.
  Dead
};

/// Armed in a child process only.
struct Plan {
  bool isArmed = false;
  Fault fault = Fault::Fail;
  /// The call at which it happens, from 1.
  int position = 0;
  int calls = 0;
  bool hasHappened = false;
} plan;

constexpr int KilledCode = 99, NotReached = 32, UnlinkFailed = 64;

/// True if this call is the one that fails; sets `errno`.
bool FailsHere(bool isWrite = false) {
  if (!plan.isArmed || ++plan.calls < plan.position) return false;
  if (plan.calls > plan.position && !(plan.fault == Fault::Dead && isWrite)) return false;
  plan.hasHappened = true;
  if (plan.fault == Fault::Kill) _exit(KilledCode);
  errno = plan.fault == Fault::DiskFull ? ENOSPC : plan.fault == Fault::Interrupt ? EINTR : EIO;
  return plan.fault != Fault::ShortWrite;
}
bool unlinkFailed = false;
/// As on file systems that can't set room apart.
bool isRoomUnknown = false;

} // namespace

// The linker leads the calls of the program here.
extern "C" {
int __real_open(const char* path, int flags, ...);
int __wrap_open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  return FailsHere() ? -1 : __real_open(path, flags, mode);
}
ssize_t __real_write(int descriptor, const void* bytes, size_t size);
ssize_t __wrap_write(int descriptor, const void* bytes, size_t size) {
  if (FailsHere(true)) return -1;
  const bool isCut = plan.isArmed && plan.fault == Fault::ShortWrite && plan.calls == plan.position && size > 1;
  return __real_write(descriptor, bytes, isCut ? size / 2 : size);
}
int __real_unlink(const char* path);
int __wrap_unlink(const char* path) {
  if (!FailsHere()) return __real_unlink(path);
  unlinkFailed = true;
  return -1;
}
int __real_close(int descriptor);
int __wrap_close(int descriptor) {
  // A descriptor is gone even if its last flush failed.
  const bool fails = FailsHere();
  const int error = errno;
  const int result = __real_close(descriptor);
  if (fails) errno = error;
  return fails ? -1 : result;
}
#define WRAP(name, parameters, ...)                                                                                    \
  int __real_##name parameters;                                                                                        \
  int __wrap_##name parameters { return FailsHere() ? -1 : __real_##name(__VA_ARGS__); }
WRAP(fsync, (int descriptor), descriptor)
WRAP(fchmod, (int descriptor, mode_t mode), descriptor, mode)
WRAP(fchown, (int descriptor, uid_t user, gid_t group), descriptor, user, group)
WRAP(ftruncate, (int descriptor, off_t size), descriptor, size)
WRAP(rename, (const char* from, const char* to), from, to)
WRAP(mkdir, (const char* path, mode_t mode), path, mode)
int __real_fallocate(int descriptor, int mode, off_t offset, off_t size);
int __wrap_fallocate(int descriptor, int mode, off_t offset, off_t size) {
  if (isRoomUnknown) errno = EOPNOTSUPP;
  return isRoomUnknown || FailsHere() ? -1 : __real_fallocate(descriptor, mode, offset, size);
}
}

namespace Tesselor {
namespace {

namespace fs = std::filesystem;
using TestSupport::TemporaryDirectory;

/// A file to be saved, in circumstances of its own.
struct Scenario {
  const char* name;
  /// Makes `asset.json`, or nothing.
  std::function<void(const TemporaryDirectory&)> prepare;
  bool isInPlace;
};

const std::string oldText(3000, 'o');

const Scenario scenarios[] = {
    {"a new file", [](const TemporaryDirectory&) {}, false},
    {"a file", [](const TemporaryDirectory& d) { d.Write("asset.json", oldText); }, false},
    {"a file behind a link",
     [](const TemporaryDirectory& d) {
       d.Write("real/asset.json", oldText);
       fs::create_symlink("real/asset.json", d / "asset.json");
     },
     false},
    {"a file of two names",
     [](const TemporaryDirectory& d) {
       d.Write("asset.json", oldText);
       fs::create_hard_link(d / "asset.json", d / "twin.json");
     },
     true},
};

/// The regular files below a directory that hold exactly a text, and those that hold anything else.
std::pair<int, int> Count(const fs::path& directory, const std::string& text) {
  std::pair<int, int> count{0, 0};
  for (const auto& entry : fs::recursive_directory_iterator(directory))
    if (entry.is_regular_file() && !entry.is_symlink())
      ++(TemporaryDirectory::Read(entry.path()) == text ? count.first : count.second);
  return count;
}

/// Saves with one fault. False once the position lies behind the last call.
bool SaveWithFault(const Scenario& scenario, const std::string& newText, Fault fault, int position) {
  TemporaryDirectory directory, state;
  scenario.prepare(directory);
  const std::string path = directory / "asset.json";
  const bool existed = fs::exists(path);
  const pid_t child = fork();
  if (child == 0) {
    setenv("XDG_STATE_HOME", state.Path().c_str(), 1);
    plan = {true, fault, position, 0, false};
    const FileWriteResult result = AtomicFile::Write(path, newText);
    plan.isArmed = false;
    _exit(static_cast<int>(result) + (plan.hasHappened ? 0 : NotReached) + (unlinkFailed ? UnlinkFailed : 0));
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status));
  const int code = WEXITSTATUS(status);
  const std::string text = fs::exists(path) ? TemporaryDirectory::Read(path) : std::string();
  const bool isOld = existed ? text == oldText : !fs::exists(path);
  if (code == KilledCode || fault == Fault::Dead) {
    if (scenario.isInPlace && !isOld && text != newText)
      EXPECT_EQ(Count(state.Path(), oldText).first, 1) << "the old bytes are nowhere";
    else
      EXPECT_TRUE(isOld || text == newText) << "the file is torn";
    return (code & NotReached) == 0 || code == KilledCode;
  }
  if ((code & 31) == static_cast<int>(FileWriteResult::Written))
    EXPECT_EQ(text, newText);
  else
    EXPECT_TRUE(isOld) << "a save that failed changed the file";
  if ((code & UnlinkFailed) == 0) {
    const int names = scenario.isInPlace ? 2 : fs::exists(path) ? 1 : 0;
    EXPECT_EQ(Count(directory.Path(), text), std::make_pair(names, 0)) << "something stays behind";
    EXPECT_EQ(Count(state.Path(), ""), std::make_pair(0, 0)) << "a spare stays behind";
  }
  return (code & NotReached) == 0;
}

TEST(SaveFaults, LeaveTheOldFileOrTheNewOneAtEachCall) {
  int saves = 0;
  for (const Scenario& scenario : scenarios)
    for (const size_t size : {size_t(10), size_t(200000)})
      for (const Fault fault :
           {Fault::Fail, Fault::DiskFull, Fault::Interrupt, Fault::ShortWrite, Fault::Kill, Fault::Dead}) {
        SCOPED_TRACE(std::string(scenario.name) + ", " + std::to_string(size) + " bytes, fault " +
                     std::to_string(static_cast<int>(fault)));
        int position = 1;
        while (SaveWithFault(scenario, std::string(size, 'n'), fault, position)) {
          ++position;
          ++saves;
          ASSERT_LT(position, 200);
        }
        EXPECT_GT(position, 4) << "the save makes calls";
      }
  RecordProperty("saves", saves);
  std::printf("%d saves with a fault\n", saves);
}

TEST(SaveFaults, DoNotComeFromAFileSystemThatKnowsNoRoom) {
  TemporaryDirectory directory, state;
  directory.Write("asset.json", oldText);
  fs::create_hard_link(directory / "asset.json", directory / "twin.json");
  const std::string newText = oldText + oldText;
  setenv("XDG_STATE_HOME", state.Path().c_str(), 1);
  isRoomUnknown = true;
  EXPECT_EQ(AtomicFile::Write(directory / "asset.json", newText), FileWriteResult::Written);
  isRoomUnknown = false;
  unsetenv("XDG_STATE_HOME");
  EXPECT_EQ(TemporaryDirectory::Read(directory / "twin.json"), newText);
}

} // namespace
} // namespace Tesselor
