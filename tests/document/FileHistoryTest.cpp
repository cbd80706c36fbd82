#include "document/FileHistory.h"

#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

namespace Tesselor {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using TestSupport::TemporaryDirectory;

class FileHistories : public testing::Test {
protected:
  /// Keeps a content at a time, in hours from the beginning.
  void Keep(const std::string& text, double hours, const char* name = "work/asset.json") {
    const auto time = start + std::chrono::duration_cast<std::chrono::milliseconds>(hours * 1h);
    EXPECT_TRUE(history.Keep(directory.Write(name, text), time));
  }
  /// The contents of a file's versions, newest first.
  std::vector<std::string> Kept(const char* name = "work/asset.json") const {
    std::vector<std::string> texts;
    for (const auto& version : history.VersionsOf(directory / name))
      texts.push_back(TemporaryDirectory::Read(version.file));
    return texts;
  }
  using Texts = std::vector<std::string>;

  const std::chrono::system_clock::time_point start{1700000000s};
  TemporaryDirectory directory;
  FileHistory history{directory.Path() / "state/history", 1000};
};

TEST_F(FileHistories, KeepEachContentOnceUnderItsNewestTime) {
  EXPECT_TRUE(history.Keep(directory / "work/none.json")) << "a new file replaces nothing";
  for (const char* text : {"a", "b", "c"}) Keep(text, static_cast<double>(*text - 'a'));
  Keep("a", 5);
  Keep("a", 6);
  EXPECT_EQ(Kept(), (Texts{"a", "c", "b"}));
  const auto versions = history.VersionsOf(directory / "work/asset.json");
  EXPECT_EQ(versions[0].time, start + 6h);
  EXPECT_EQ(versions[0].size, 1u);
  // Other files have versions of their own, and a link has those of its file.
  Keep("z", 7, "other/asset.json");
  fs::create_symlink("asset.json", directory / "work/link.json");
  EXPECT_EQ(Kept("other/asset.json"), Texts{"z"});
  EXPECT_EQ(Kept("work/link.json").size(), 3u);
  EXPECT_EQ(Kept("work/none.json"), Texts());
  EXPECT_EQ(static_cast<unsigned>(fs::status(directory.Path() / "state/history").permissions()), 0700u);
}

TEST_F(FileHistories, ForgetWhatIsOldAndNotOfTheNewest) {
  constexpr double Day = 24;
  for (int i = 0; i < 25; ++i) Keep("old " + std::to_string(i), i);
  EXPECT_EQ(Kept().size(), 25u) << "many of one month stay";
  Keep("new", 40 * Day);
  EXPECT_EQ(Kept().size(), FileHistory::newestKept);
  EXPECT_EQ(Kept().back(), "old 6");
}

TEST_F(FileHistories, ForgetTheOldestOfAllFilesBeyondTheirBytes) {
  Keep(std::string(400, 'a'), 1, "one.json");
  Keep(std::string(400, 'b'), 2, "two.json");
  Keep(std::string(200, 'c'), 3, "two.json");
  EXPECT_EQ(Kept("one.json").size(), 1u);
  Keep("d", 4, "three.json");
  EXPECT_EQ(Kept("one.json").size(), 0u);
  EXPECT_EQ(Kept("two.json").size(), 2u);
  EXPECT_EQ(Kept("three.json").size(), 1u);
}

TEST(FileHistory, IsSwitchedOffByTheEnvironment) {
  const std::pair<const char*, bool> cases[] = {{"0", false}, {"1", true}, {"", true}};
  for (const auto& [value, isWanted] : cases) {
    setenv("TESSELOR_HISTORY", value, 1);
    EXPECT_EQ(FileHistory::IsWanted(), isWanted) << value;
  }
  unsetenv("TESSELOR_HISTORY");
  EXPECT_TRUE(FileHistory::IsWanted());
}

} // namespace
} // namespace Tesselor
