// Files that are found again by their path.
#include "platform/FileKey.h"
#include "platform/FileWatch.h"
#include "platform/SpareCopy.h"
#include "platform/StateDirectory.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Tesselor::FileKeyOf;
using Tesselor::SpareCopy;
using TestSupport::CurrentDirectoryScope;
using TestSupport::TemporaryDirectory;
namespace fs = std::filesystem;

TEST(FileKey, IsTheSameByEachWayToAFileAndAnotherForEachFile) {
  TemporaryDirectory directory;
  const std::string file = directory.Write("real/asset.json", "");
  fs::create_symlink("real", directory / "link");
  const std::string key = FileKeyOf(file);
  EXPECT_TRUE(key.starts_with("asset.json-")) << key;
  EXPECT_NE(FileKeyOf(directory.Write("other/asset.json", "")), key);
  EXPECT_EQ(FileKeyOf(directory / "link/asset.json"), key);
  const CurrentDirectoryScope current(directory / "real");
  EXPECT_EQ(FileKeyOf("asset.json"), key);
  EXPECT_EQ(FileKeyOf("../real/./asset.json"), key);
  // Somebody may take the directory away in which the program was started.
  fs::remove_all(directory / "real");
  EXPECT_NE(FileKeyOf("a.json"), FileKeyOf("b.json"));
  EXPECT_NO_THROW(Tesselor::FileWatch("a.json", [] {}));
}

TEST(StateDirectory, LiesInTheUsersHome) {
  const fs::path own = fs::path(getpwuid(geteuid())->pw_dir) / ".local/state/tesselor";
  const struct {
    const char *state, *home;
    fs::path found;
  } cases[] = {
      {"/state", "/home/a", "/state/tesselor"},
      {"state", "/home/a", "/home/a/.local/state/tesselor"},
      {nullptr, "/home/a", "/home/a/.local/state/tesselor"},
      {nullptr, nullptr, own},
      {nullptr, "", ""},
  };
  const auto set = [](const char* name, const char* value) { value ? setenv(name, value, 1) : unsetenv(name); };
  for (const auto& c : cases)
    EXPECT_EXIT(
        {
          set("XDG_STATE_HOME", c.state);
          set("HOME", c.home);
          std::_Exit(Tesselor::FindStateDirectory() == c.found ? 0 : 1);
        },
        testing::ExitedWithCode(0), "")
        << c.found;
}

TEST(SpareCopy, IsNoneThatAnotherUserHasMade) {
  TemporaryDirectory temporary;
  const std::string path = temporary / "asset.json";
  const pid_t child = fork();
  if (child == 0) {
    unsetenv("XDG_STATE_HOME");
    setenv("HOME", "", 1);
    setenv("TMPDIR", temporary.Path().c_str(), 1);
    _exit(SpareCopy().Write(path, "before") ? 0 : 1);
  }
  waitpid(child, nullptr, 0);
  setenv("TMPDIR", temporary.Path().c_str(), 1);
  const std::vector<fs::path> copies = SpareCopy::LeftOf(path);
  ASSERT_EQ(copies.size(), 1u);
  EXPECT_EQ(TemporaryDirectory::Read(copies.front()), "before");
  // Only a privileged user can give it away.
  const bool isGiven = chown(copies.front().c_str(), geteuid() + 1, getegid()) == 0;
  EXPECT_TRUE(!isGiven || SpareCopy::LeftOf(path).empty());
  unsetenv("TMPDIR");
}

} // namespace
