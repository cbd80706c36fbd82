#include "platform/LogFile.h"

#include "support/TemporaryDirectory.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

// The log is one per process and ends with it, so each case runs in a process of its own.

namespace {

using Tesselor::LogFile;
using TestSupport::CurrentDirectoryScope;
using TestSupport::TemporaryDirectory;
namespace fs = std::filesystem;

std::vector<fs::path> LogsIn(const fs::path& directory) {
  std::vector<fs::path> logs;
  if (fs::exists(directory))
    for (const auto& entry : fs::directory_iterator(directory)) logs.push_back(entry.path());
  return logs;
}

/// Whether a text has a shape in which "#" stands for a digit.
bool HasShape(const std::string& text, const std::string& shape) {
  return text.size() == shape.size() && std::equal(text.begin(), text.end(), shape.begin(), [](char c, char wanted) {
           return wanted == '#' ? c >= '0' && c <= '9' : c == wanted;
         });
}

void InAProcessOfItsOwn(const std::function<void()>& action, const char* errors = "^$") {
  EXPECT_EXIT(
      {
        action();
        std::exit(0);
      },
      testing::ExitedWithCode(0), errors);
}

TEST(LogFile, WritesTimedLinesIntoADirectoryOfItsOwnAndAnUntimedLastOne) {
  TemporaryDirectory directory;
  fs::create_directories(directory / "second");
  InAProcessOfItsOwn([&] {
    LogFile::Open(directory.Path().string());
    LogFile::Write("Starting node editor application");
    // The first file stays.
    LogFile::Open(directory / "second");
    LogFile::Write("two\nlines");
  });
  const auto logs = LogsIn(directory.Path() / "NodeEditorLogs");
  ASSERT_EQ(logs.size(), 1u);
  EXPECT_TRUE(HasShape(logs[0].filename().string(), "####-##-##-##-##-##.log")) << logs[0];
  const std::string text = TemporaryDirectory::Read(logs[0]);
  EXPECT_TRUE(HasShape(text, "##-##-##::Starting node editor application\n##-##-##::two\nlines\nApplication ended\n"))
      << text;
  EXPECT_TRUE(LogsIn(directory / "second/NodeEditorLogs").empty());
}

TEST(LogFile, LiesUnderTheCurrentDirectoryWhenNoneIsGiven) {
  TemporaryDirectory directory;
  CurrentDirectoryScope current(directory.Path());
  InAProcessOfItsOwn([] { LogFile::Open(""); });
  EXPECT_EQ(LogsIn(directory.Path() / "NodeEditorLogs").size(), 1u);
}

TEST(LogFile, TellsItsOwnFailuresOnTheErrorStreamAndGoesOn) {
  TemporaryDirectory directory;
  InAProcessOfItsOwn(
      [&] {
        LogFile::Write("too early");
        LogFile::Open(directory / "missing/parent");
        LogFile::Write("dropped");
      },
      "^Log file is not initialized\nLog Directory couldn't be created\nLog file is not initialized\n$");
  EXPECT_FALSE(fs::exists(directory / "missing"));
  directory.Write("NodeEditorLogs", "a file in the directory's place");
  InAProcessOfItsOwn([&] { LogFile::Open(directory.Path().string()); }, "^Log file not opened!\n$");
}

TEST(LogFile, PrunesOldFilesOfAnyNameUnderTheCurrentDirectoryOnly) {
  TemporaryDirectory directory;
  CurrentDirectoryScope current(directory.Path());
  const struct {
    const char* name;
    std::chrono::minutes age;
    bool stays;
  } cases[] = {
      {"NodeEditorLogs/week.log", std::chrono::hours(168), false},
      {"NodeEditorLogs/notes.txt", std::chrono::hours(900), false},
      {"NodeEditorLogs/almost.log", std::chrono::hours(168) - std::chrono::minutes(1), true},
      {"NodeEditorLogs/deeper/old.log", std::chrono::hours(900), true},
      {"other/NodeEditorLogs/old.log", std::chrono::hours(900), true},
  };
  const auto now = fs::file_time_type::clock::now();
  for (const auto& c : cases) fs::last_write_time(directory.Write(c.name, "x"), now - c.age);
  fs::last_write_time("NodeEditorLogs/deeper", now - std::chrono::hours(900));

  LogFile::Prune();

  for (const auto& c : cases) EXPECT_EQ(fs::exists(c.name), c.stays) << c.name;
}

} // namespace
