#include "platform/AtomicFile.h"
#include "platform/JsonFile.h"
#include "support/TemporaryDirectory.h"

#include <chrono>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Tesselor::AtomicFile;
using Tesselor::FileWriteResult;
using TestSupport::TemporaryDirectory;
namespace fs = std::filesystem;

unsigned ModeOf(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

gid_t GroupOf(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 ? status.st_gid : static_cast<gid_t>(-1);
}

size_t CountEntries(const fs::path& directory) {
  return static_cast<size_t>(std::distance(fs::directory_iterator(directory), fs::directory_iterator()));
}

TEST(JsonFile, KeepsZeroCharactersInStrings) {
  const struct {
    std::string text;
    std::string printed;
  } cases[] = {
      {R"({"a\u0000b":"\u0000\u0000c"})", R"({"a\u0000b":"\u0000\u0000c"})"},
      {std::string("[\"a\0b\"]", 7), R"(["a\u0000b"])"},
      {R"(["\\u0000","\\\u0000","\"\u0000","\u00001"])", R"(["\\u0000","\\\u0000","\"\u0000","\u00001"])"},
      {std::string("[1,\0\"a\"]", 8), R"([1,"a"])"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(Tesselor::PrintJson(Tesselor::ParseJson(c.text).json.get(), Tesselor::JsonForm::Compact), c.printed)
        << c.text;
}

TEST(AtomicFile, KeepsTheModeOfAFileAndGivesANewOneTheProcesss) {
  TemporaryDirectory directory;
  const std::string path = directory.Write("asset.json", "a much longer old text"), fresh = directory / "new.json";
  ASSERT_EQ(chmod(path.c_str(), 0604), 0);
  const mode_t former = umask(027);
  EXPECT_EQ(AtomicFile::Write(path, "new"), FileWriteResult::Written);
  EXPECT_EQ(AtomicFile::Write(fresh, "{}"), FileWriteResult::Written);
  umask(former);
  EXPECT_EQ(TemporaryDirectory::Read(path), "new");
  EXPECT_EQ(ModeOf(path), 0604u);
  EXPECT_EQ(ModeOf(fresh), 0640u);
  // Nor does the file take the group of a directory that gives its own to new ones, where this user may set one up.
  if (chown(directory.Path().c_str(), geteuid(), getegid() + 1) == 0) {
    chmod(directory.Path().c_str(), 02755);
    EXPECT_EQ(AtomicFile::Write(path, "newer"), FileWriteResult::Written);
    EXPECT_EQ(GroupOf(path), getegid());
    EXPECT_EQ(AtomicFile::Write(path, "new"), FileWriteResult::Written);
  }
  EXPECT_EQ(CountEntries(directory.Path()), 2u);
}

TEST(AtomicFile, FollowsLinksAndLeavesThemInPlace) {
  TemporaryDirectory directory;
  directory.Write("real/asset.json", "old");
  fs::create_symlink("real/asset.json", directory / "link.json");
  fs::create_symlink("real/fresh.json", directory / "dangling.json");
  fs::create_symlink("loop.json", directory / "loop.json");
  EXPECT_EQ(AtomicFile::Write(directory / "loop.json", "new"), FileWriteResult::OpenFailed);
  EXPECT_TRUE(fs::is_symlink(directory / "loop.json"));
  EXPECT_EQ(AtomicFile::Write(directory / "link.json", "new"), FileWriteResult::Written);
  EXPECT_EQ(AtomicFile::Write(directory / "dangling.json", "made"), FileWriteResult::Written);
  EXPECT_TRUE(fs::is_symlink(directory / "link.json"));
  EXPECT_TRUE(fs::is_symlink(directory / "dangling.json"));
  EXPECT_EQ(TemporaryDirectory::Read(directory / "real/asset.json"), "new");
  EXPECT_EQ(TemporaryDirectory::Read(directory / "real/fresh.json"), "made");
}

TEST(AtomicFile, WritesInPlaceWhatNoOtherFileCanReplace) {
  TemporaryDirectory directory, state;
  setenv("XDG_STATE_HOME", state.Path().c_str(), 1);
  const std::string path = directory.Write("asset.json", "a much longer old text"), twin = directory / "twin.json";
  fs::create_hard_link(path, twin);
  EXPECT_EQ(AtomicFile::Write(path, "new"), FileWriteResult::Written);
  EXPECT_EQ(TemporaryDirectory::Read(twin), "new");
  // What only the file itself takes, for one who may not do all.
  const std::string closed = directory.Write("closed/asset.json", "old"),
                    locked = directory.Write("closed/b.json", "old");
  chmod(closed.c_str(), 0666);
  chmod(locked.c_str(), 0444);
  chmod((directory / "closed").c_str(), 0555);
  chmod(directory.Path().c_str(), 0755);
  const std::string foreign = directory.Write("open/asset.json", "old");
  chmod(foreign.c_str(), 0666);
  chmod((directory / "open").c_str(), 0777);
  EXPECT_EXIT(
      {
        if (geteuid() == 0 && seteuid(65534) != 0) std::_Exit(9);
        const bool isWritten = AtomicFile::Write(closed, "a longer new text") == FileWriteResult::Written &&
                               AtomicFile::Write(foreign, "new") == FileWriteResult::Written;
        const bool isRefused = AtomicFile::Write(locked, "new") == FileWriteResult::OpenFailed &&
                               AtomicFile::Write(directory / "closed/new.json", "new") == FileWriteResult::OpenFailed;
        std::_Exit((isWritten ? 0 : 1) + (isRefused ? 0 : 2));
      },
      testing::ExitedWithCode(0), "");
  EXPECT_EQ(TemporaryDirectory::Read(closed), "a longer new text");
  EXPECT_EQ(TemporaryDirectory::Read(locked), "old");
  struct stat status {};
  EXPECT_EQ(stat(foreign.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, geteuid()) << "the file changed hands";
  EXPECT_EQ(TemporaryDirectory::Read(foreign), "new");
  chmod((directory / "closed").c_str(), 0755);
  unsetenv("XDG_STATE_HOME");
}

TEST(AtomicFile, TakesAwayWhatDeadProcessesLeft) {
  TemporaryDirectory directory;
  const pid_t dead = fork();
  if (dead == 0) _exit(0);
  int status = 0;
  waitpid(dead, &status, 0);
  const auto leave = [&](const std::string& name, int minutes) {
    const std::string path = directory.Write(name, "half");
    fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::minutes(minutes));
    return path;
  };
  const std::string gone = leave(".tesselor-" + std::to_string(dead) + "-3.tmp", 60);
  const std::string kept[] = {leave(".tesselor-" + std::to_string(dead) + "-4.tmp", 1),
                              leave(".tesselor-" + std::to_string(getpid()) + "-99.tmp", 60),
                              leave(".tesselor-other.tmp", 60),
                              leave("tesselor-" + std::to_string(dead) + "-3.tmp", 60)};
  EXPECT_EQ(AtomicFile::Write(directory / "asset.json", "new"), FileWriteResult::Written);
  EXPECT_FALSE(fs::exists(gone));
  for (const std::string& path : kept) EXPECT_TRUE(fs::exists(path)) << path;
}

TEST(AtomicFile, TellsWhenNothingCanBeOpened) {
  TemporaryDirectory directory;
  fs::create_directories(directory / "folder");
  EXPECT_EQ(AtomicFile::Write(directory / "missing/asset.json", "x"), FileWriteResult::OpenFailed);
  EXPECT_EQ(AtomicFile::Write(directory / "folder", "x"), FileWriteResult::OpenFailed);
  EXPECT_EQ(AtomicFile::Write("", "x"), FileWriteResult::OpenFailed);
  ASSERT_EQ(mkfifo((directory / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(AtomicFile::Write(directory / "pipe", "x"), FileWriteResult::OpenFailed);
  EXPECT_EQ(CountEntries(directory / "folder"), 0u);
}

TEST(AtomicFile, WritesADeviceInPlace) {
  EXPECT_EQ(AtomicFile::Write("/dev/null", "text"), FileWriteResult::Written);
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(JsonFile, ReadsWholeFilesAndNothingElse) {
  TemporaryDirectory directory;
  const std::string bytes("a\0\r\nb", 5);
  EXPECT_EQ(Tesselor::ReadTextFile(directory.Write("bytes", bytes)), bytes);
  EXPECT_EQ(Tesselor::ReadTextFile(directory.Write("empty", "")), "");
  EXPECT_EQ(Tesselor::ReadTextFile(directory / "missing"), std::nullopt);
  ASSERT_EQ(mkfifo((directory / "pipe").c_str(), 0600), 0);
  for (const std::string& path : {directory.Path().string(), directory / "pipe", std::string("/dev/null")})
    EXPECT_EQ(Tesselor::ReadTextFile(path), std::nullopt) << path;
  // A file of the system's own, without a size.
  EXPECT_NE(Tesselor::ReadTextFile("/proc/self/status").value_or("").find("Pid:"), std::string::npos);
}

TEST(JsonFile, TellsWhereTheParserGaveUp) {
  const struct {
    std::string text;
    std::string detail;
  } cases[] = {
      {"", "line 1, column 1, where the text ends"},
      {"{\"a\": ", "line 1, column 7, where the text ends"},
      {"{\"\xc3\xa4\": nope}", "line 1, column 7: nope}"},
      {"[1,\n\t}\n]\n", "line 2, column 2: } ]"},
      {"[" + std::string(119, '?') + "\xc3\xa4 and so on]", "line 1, column 2: " + std::string(119, '?') + "..."},
      {"{}\n\n {\"b\": 1}", "line 3, column 2: {\"b\": 1}"},
      {std::string("{}\0x", 4), "line 1, column 4: x"},
  };
  for (const auto& c : cases) {
    const auto result = Tesselor::ParseJson(c.text, Tesselor::JsonTail::Refused);
    EXPECT_FALSE(result) << c.text;
    EXPECT_EQ(result.detail, c.detail);
  }
}

TEST(JsonFile, ParsesWhatAFileMayHoldAndRefusesBottomlessNesting) {
  EXPECT_TRUE(Tesselor::ParseJson("12"));
  EXPECT_TRUE(Tesselor::ParseJson("\xef\xbb\xbf{\"a\": 1}\r\n"));
  const auto nested = [](size_t depth) { return std::string(depth, '[') + std::string(depth, ']'); };
  EXPECT_TRUE(Tesselor::ParseJson(nested(900)));
  EXPECT_FALSE(Tesselor::ParseJson(nested(200000)));
}

} // namespace
