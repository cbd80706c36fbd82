#include "workspace/AssetFileIndex.h"

#include "support/TemporaryDirectory.h"
#include "workspace/DirectoryWalk.h"

#include <gtest/gtest.h>
#include <thread>

namespace {

using Tesselor::AssetFileIndex;
using TestSupport::TemporaryDirectory;

TEST(AssetFileIndex, FindsTheNearestEnclosingRoot) {
  const struct {
    const char* path;
    const char* root;
  } cases[] = {
      {"/a/OrvaleAssets/Quests/q.json", "/a/OrvaleAssets"},
      {"/a/OrvaleAssets/q.json", "/a/OrvaleAssets"},
      {"/a/OrvaleAssets/b/OrvaleAssets/q.json", "/a/OrvaleAssets/b/OrvaleAssets"},
      {"/a/OrvaleAssets", ""},
      {"/a/orvaleassets/q.json", ""},
      {"/a/OrvaleAssets2/q.json", ""},
      {"OrvaleAssets/Quests/q.json", "OrvaleAssets"},
      {"Quests/q.json", ""},
      {"q.json", ""},
      {"/", ""},
      {"", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(Tesselor::FindAssetRoot(c.path), c.root) << c.path;
}

/// "<key>=<path below the root>" of each entry after a scan.
std::vector<std::string> Scan(const std::string& path, const std::string& root) {
  AssetFileIndex& index = AssetFileIndex::Instance();
  index.BuildAsync(path);
  while (index.isBuilding) std::this_thread::yield();
  std::vector<std::string> lines;
  for (const auto& [key, value] : index.entries)
    lines.push_back(key + "=" + (value.starts_with(root) ? value.substr(root.size()) : value));
  return lines;
}

TEST(AssetFileIndex, ListsTheFilesOfTheTreeInTheOrderOfTheirNames) {
  TemporaryDirectory directory;
  const std::string root = directory / "OrvaleAssets";
  for (const char* name : {"Quests/Foo.JSON", "Quests/a.json.bak", "Quests/.json", "Quests/notes.txt",
                           "b/Deep/Same.json", "a/same.json", "Foo.Bar/hidden.json", "top.json"})
    directory.Write("OrvaleAssets/" + std::string(name), "{}");
  auto found = Scan(root + "/Quests/Foo.JSON", root);
  EXPECT_EQ(found, (std::vector<std::string>{"=/Quests/.json", "foo=/Quests/Foo.JSON", "a.json=/Quests/a.json.bak",
                                             "same=/a/same.json", "top=/top.json"}));
  EXPECT_EQ(Scan(root + "/Quests", root), found);
  // The search starts around the file's own directory, which is the root itself here.
  EXPECT_TRUE(Scan(root + "/top.json", root).empty());
  EXPECT_TRUE(Scan(directory / "elsewhere.json", root).empty());
}

TEST(DirectoryWalk, TakesFilesAndDirectoriesInOneSortedOrderAndEachDirectoryOnce) {
  TemporaryDirectory directory;
  for (const char* name : {"b.json", "a/z.json", "a/b/c.json", "B.json", "c/d.json"}) directory.Write(name, "");
  std::filesystem::create_directory_symlink("..", directory / "a/loop");
  // Every level leads to the next by three ways.
  directory.Write("many/in/in/e.json", "");
  for (const char* way : {"many/by", "many/of", "many/in/by", "many/in/of"})
    std::filesystem::create_directory_symlink("in", directory / way);
  std::filesystem::create_symlink("nowhere", directory / "broken");
  std::vector<std::string> visited;
  std::vector<std::string> errors;
  Tesselor::WalkFiles(
      directory.Path(), [&](const auto& entry) { visited.push_back(entry.path.lexically_relative(directory.Path())); },
      {}, [&](const std::string& message) { errors.push_back(message); });
  EXPECT_EQ(visited, (std::vector<std::string>{"B.json", "a/b/c.json", "a/z.json", "b.json", "broken", "c/d.json",
                                               "many/by/by/e.json"}));
  EXPECT_TRUE(errors.empty());

  const std::string missing = directory / "missing";
  EXPECT_TRUE(Tesselor::ListDirectory(missing, [&](const std::string& message) { errors.push_back(message); }).empty());
  EXPECT_EQ(errors, std::vector<std::string>{"Failed to read directory: " + missing + " - No such file or directory"});
}

} // namespace
