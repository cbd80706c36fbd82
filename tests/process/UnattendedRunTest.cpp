#include "TemporaryDirectory.h"
#include "process/ProgramRun.h"

#include <cJSON.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tesselor {
namespace {

namespace fs = std::filesystem;
using TestSupport::ProgramRun;

/// A directory with the sample workspaces, as a build server has it.
class UnattendedRun : public testing::Test {
protected:
  void SetUp() override {
    fs::create_directory_symlink(fs::path(TESSELOR_DATA_DIR) / "Workspaces", Here() / "Workspaces");
  }
  fs::path Here() const { return directory.Path(); }
  std::string Read(const char* name) const { return directory.Read(directory / name); }
  ProgramRun RoundTripSample(const char* name, const std::string& output) {
    return RoundTrip(TESSELOR_DATA_DIR "/samples/" + std::string(name) + ".json", output);
  }
  ProgramRun RoundTrip(const std::string& asset, const std::string& output, const std::vector<std::string>& more = {},
                       const ProgramRun::Surroundings& surroundings = {}) {
    std::vector<std::string> arguments = {"--load-asset=" + asset, "--save-to=" + output, "--exit-after-save"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return ProgramRun(Here(), arguments, surroundings);
  }
  TestSupport::TemporaryDirectory directory;
};

TEST_F(UnattendedRun, WritesEverySampleSoThatTheSecondPassEqualsTheFirst) {
  int samples = 0;
  for (const fs::directory_entry& entry : fs::directory_iterator(fs::path(TESSELOR_DATA_DIR) / "samples")) {
    if (entry.path().extension() != ".json" || entry.path().stem() == "plain") continue;
    SCOPED_TRACE(entry.path().string());
    ++samples;
    const ProgramRun first = RoundTrip(entry.path().string(), "first.json");
    EXPECT_EQ(first.exitCode, 0) << first.standardError << first.log.substr(0, 2000);
    EXPECT_FALSE(first.Logged("[NOESIS/")) << first.log.substr(first.log.find("[NOESIS/"), 500);
    EXPECT_TRUE(first.Logged("Successfully imported node tree"));
    EXPECT_TRUE(first.Logged("Successfully exported to: first.json"));
    EXPECT_TRUE(first.log.ends_with("Application ended\n"));
    const ProgramRun second = RoundTrip("first.json", "second.json");
    EXPECT_EQ(second.exitCode, 0);
    EXPECT_FALSE(Read("first.json").empty());
    EXPECT_EQ(Read("first.json"), Read("second.json"));
    EXPECT_EQ(Read("first.json"), directory.Read(entry.path())) << "the samples are in the form the editor writes";
  }
  EXPECT_GE(samples, 4);
}

TEST_F(UnattendedRun, ChangesNothingButFreshIdentitiesWhereAFileHasNone) {
  // Arguments, parameters and scalars of maps have no identity in the file, so each load gives them a new one.
  const std::regex fresh("\"(Property|Parameter|Variable|Snapshot)-[0-9a-f-]{36}\"");
  for (const char* name : {"arguments.json", "snapshots.json"}) {
    SCOPED_TRACE(name);
    const ProgramRun first = RoundTrip(std::string(TESSELOR_SOURCE_DIR "/tests/process/assets/") + name, "first.json");
    EXPECT_EQ(first.exitCode, 0);
    EXPECT_FALSE(first.Logged("Unknown field")) << first.log.substr(0, 2000);
    EXPECT_EQ(RoundTrip("first.json", "second.json").exitCode, 0);
    const std::string before = Read("first.json"), after = Read("second.json");
    EXPECT_NE(before, after) << "the asset holds such values";
    EXPECT_EQ(std::regex_replace(before, fresh, "$1"), std::regex_replace(after, fresh, "$1"));
  }
}

TEST_F(UnattendedRun, TakesARootForAFileThatNamesNone) {
  const std::string plain = (fs::path(TESSELOR_DATA_DIR) / "samples/plain.json").string();
  const ProgramRun refused = RoundTrip(plain, "out.json");
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_TRUE(refused.Logged("No workspace ID found in file, showing workspace selection modal"));
  EXPECT_FALSE(refused.standardError.empty());
  EXPECT_FALSE(fs::exists(Here() / "out.json"));
  const ProgramRun forced(Here(), {"--workspace=Nowhere", "--workspace=Quest", "--load-asset=" + plain,
                                   "--save-to=out.json", "--exit-after-save"});
  EXPECT_EQ(forced.exitCode, 0) << forced.log.substr(0, 2000);
  EXPECT_TRUE(forced.Logged("Using CLI workspace override: Quest"));
  EXPECT_NE(Read("out.json").find("\"$WorkspaceID\":\t\"Quest\""), std::string::npos);
  EXPECT_EQ(RoundTrip("out.json", "second.json").exitCode, 0);
  EXPECT_EQ(Read("second.json"), Read("out.json")) << "values that the first pass added come back as they are";
}

TEST_F(UnattendedRun, TellsEveryFailureByItsExitCodeAndLeavesTheOutputAlone) {
  directory.Write("truncated.json", "{\"a\": [1, 2");
  directory.Write("empty.json", "");
  directory.Write("binary.json", std::string("\x7f\x45\x4c\x46\x00\x01\xff", 7));
  directory.Write("deep.json", std::string(5000, '[') + std::string(5000, ']'));
  directory.Write("array.json", " [1]");
  directory.Write("two.json", "{\"a\": 1}\n{\"b\": 2}");
  directory.Write("unknown.json", "{\"$WorkspaceID\": \"No such root\"}");
  fs::create_directory(Here() / "folder.json");
  ASSERT_EQ(mkfifo((Here() / "pipe.json").c_str(), 0600), 0);
  fs::create_symlink("/dev/null", Here() / "device.json");
  fs::create_symlink("loop.json", Here() / "loop.json");
  const std::pair<const char*, const char*> cases[] = {
      {"missing.json", "File not found:\nmissing.json"},
      {"truncated.json", "Invalid JSON in file:\ntruncated.json\n\nError: line 1, column 12, where the text ends"},
      {"two.json", "Invalid JSON in file:\ntwo.json\n\nError: line 2, column 1: {\"b\": 2}"},
      {"empty.json", "Invalid JSON in file:\nempty.json"},
      {"binary.json", "Invalid JSON in file:\nbinary.json"},
      {"deep.json", "Invalid JSON in file:\ndeep.json\n\nError: line 1, column 1001"},
      {"folder.json", "Failed to open file:\nfolder.json"},
      {"pipe.json", "Failed to open file:\npipe.json"},
      {"device.json", "Failed to open file:\ndevice.json"},
      {"loop.json", "File not found:\nloop.json"},
      {"array.json", "Error: The top level is no object at line 1, column 2: [1]"},
      {"unknown.json", "Unknown workspace ID 'No such root' in file"},
  };
  for (const auto& [asset, logged] : cases) {
    SCOPED_TRACE(asset);
    directory.Write("out.json", "old content");
    const bool isKnown = std::string_view(asset) != "unknown.json";
    const ProgramRun run = RoundTrip(
        asset, "out.json", isKnown ? std::vector<std::string>{"--workspace=Quest"} : std::vector<std::string>());
    EXPECT_FALSE(run.hung);
    EXPECT_EQ(run.exitCode, 1) << run.log.substr(0, 2000);
    EXPECT_TRUE(run.Logged(logged)) << run.log.substr(0, 2000);
    EXPECT_EQ(run.log.find("/src/"), std::string::npos) << "where the program was built";
    std::string told = logged;
    std::replace(told.begin(), told.end(), '\n', ' ');
    EXPECT_EQ(run.standardError.find(told) != std::string::npos, isKnown) << run.standardError;
    EXPECT_EQ(Read("out.json"), "old content");
  }
}

TEST_F(UnattendedRun, TellsWhatASaveLosesByItsExitCodeAndItsLines) {
  std::string many = "{\"$WorkspaceID\": \"Quest\"";
  for (int i = 0; i < 103; ++i) many += ", \"unknown" + std::to_string(i) + "\": " + std::to_string(i);
  directory.Write("many.json", many + "}");
  directory.Write("one.json", "{\"$WorkspaceID\": \"Quest\", \"unknown\": [1, 2]}");
  const std::string one = "$.unknown: was [1, 2] becomes nothing\n";
  const std::string refused = "Nothing is written, since a save changes 1 of the file's values.\n";
  const struct {
    std::vector<std::string> options;
    int exitCode;
    bool isWritten;
  } cases[] = {
      {{}, 2, true}, {{"--allow-loss"}, 0, true}, {{"--strict"}, 2, false}, {{"--strict", "--allow-loss"}, 2, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.options.empty() ? "" : c.options.front());
    directory.Write("out.json", "old content");
    const ProgramRun run = RoundTrip("one.json", "out.json", c.options);
    EXPECT_EQ(run.exitCode, c.exitCode);
    EXPECT_EQ(Read("out.json") != "old content", c.isWritten);
    EXPECT_TRUE(run.standardError.starts_with(one + (c.isWritten ? "" : refused))) << run.standardError;
    EXPECT_TRUE(run.Logged(one));
  }
  const ProgramRun run = RoundTrip("many.json", "out.json");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_NE(run.standardError.find("$.unknown99: was 99 becomes nothing\n... and 3 more\n"), std::string::npos);
  EXPECT_EQ(run.standardError.find("$.unknown100"), std::string::npos);
  EXPECT_EQ(RoundTrip("out.json", "again.json").exitCode, 0);
}

TEST_F(UnattendedRun, TellsTheSizeToComeOfAFileThatASaveMultiplies) {
  fs::remove(Here() / "Workspaces");
  directory.Write("Workspaces/Test/_Workspace.json",
                  R"({"WorkspaceName": "Test", "Roots": {"Doc": {"RootNodeType": "Doc", "MenuName": "Doc"}}})");
  directory.Write("Workspaces/Test/Doc.json", R"({"id": "Doc", "title": "Doc", "color": "blue",
      "inputs": [{"id": "in", "Type": "T", "color": "red", "Multiple": true}],
      "outputs": [{"id": "items", "Type": "T", "color": "red", "Multiple": true}],
      "Schema": {"Items": {"node": "Doc", "pin": "items"}}})");
  // Each of two nodes has the next pair below it, which only the first one's object holds in full.
  std::string pair = "[]";
  for (int i = 9; i-- > 0;) {
    const auto node = [&](char side, const std::string& items) {
      return R"({"$NodeId": "Doc-)" + std::string(1, side) + std::to_string(i) + R"(", "Items": )" + items + "}";
    };
    const std::string next = std::to_string(i + 1);
    const std::string again =
        i == 8 ? "[]" : R"([{"$NodeId": "Doc-l)" + next + R"("}, {"$NodeId": "Doc-r)" + next + R"("}])";
    pair = "[" + node('l', pair) + ", " + node('r', again) + "]";
  }
  directory.Write("pairs.json", R"({"$WorkspaceID": "Doc", "$NodeId": "Doc-root", "Items": )" + pair + "}");
  for (const bool isStrict : {true, false}) {
    const ProgramRun run = RoundTrip("pairs.json", "out.json", {isStrict ? "--strict" : "--logs-dir=."});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_NE(run.standardError.find("$: was 19 nodes becomes 1023\n"), std::string::npos) << run.standardError;
    EXPECT_EQ(fs::exists(Here() / "out.json"), !isStrict);
  }
  EXPECT_GT(fs::file_size(Here() / "out.json"), 1023u * 30);
}

TEST_F(UnattendedRun, FailsWhenTheOutputCannotBeWritten) {
  const ProgramRun run = RoundTripSample("quest", "no/such/directory/out.json");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_TRUE(run.Logged("ExportNodeTree: Failed to open file for writing: no/such/directory/out.json"));
  EXPECT_TRUE(run.Logged("Failed to save file:\nno/such/directory/out.json\n\nThe file may be in use"));
}

void Limit(__rlimit_resource_t resource, rlim_t bytes) {
  const rlimit limit{bytes, bytes};
  setrlimit(resource, &limit);
}

TEST_F(UnattendedRun, TellsWhenDiskOrMemoryRunsOutAndLosesNothing) {
  std::string big = "{\"$WorkspaceID\": \"Quest\", \"Tags\": [";
  for (int i = 0; i < 100000; ++i) big += "\"\", ";
  directory.Write("big.json", big + "\"\"]}");
  directory.Write("out.json", "old content");

  // A pipe, which has no size, takes what the log and the errors' own file would not.
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const ProgramRun quota = RoundTrip(TESSELOR_DATA_DIR "/samples/quest.json", "out.json", {}, [&ends] {
    dup2(ends[1], STDERR_FILENO);
    Limit(RLIMIT_FSIZE, 1000);
  });
  close(ends[1]);
  std::string told;
  char bytes[4096];
  for (ssize_t count = 0; (count = read(ends[0], bytes, sizeof bytes)) > 0;)
    told.append(bytes, static_cast<size_t>(count));
  close(ends[0]);
  EXPECT_EQ(quota.exitCode, 1);
  for (const char* line :
       {"The log can't be written: File too large\n", "ExportNodeTree: Write operation failed for: out.json\n"})
    EXPECT_NE(told.find(line), std::string::npos) << told;
  EXPECT_EQ(Read("out.json"), "old content");

#ifndef __SANITIZE_ADDRESS__
  // The address sanitizer's own tables would not fit.
  const ProgramRun memory = RoundTrip("big.json", "out.json", {}, [] { Limit(RLIMIT_AS, 400 << 20); });
  EXPECT_EQ(memory.exitCode, 1);
  EXPECT_NE(memory.standardError.find("Out of memory: the editor ends"), std::string::npos) << memory.standardError;
  EXPECT_TRUE(memory.Logged("Out of memory: the editor ends"));
  EXPECT_EQ(Read("out.json"), "old content");

  // A text that fits, and a tree that doesn't.
  std::string wide = "{\"$WorkspaceID\": \"Quest\", \"Tags\": [0";
  for (int i = 0; i < 6000000; ++i) wide += ",0";
  directory.Write("wide.json", wide + "]}");
  const ProgramRun tree = RoundTrip("wide.json", "out.json", {}, [] { Limit(RLIMIT_AS, 400 << 20); });
  EXPECT_EQ(tree.exitCode, 1);
  EXPECT_TRUE(tree.Logged("Not enough memory to open file:\nwide.json")) << tree.log;
  EXPECT_EQ(Read("out.json"), "old content");
#endif

  // Without standard error the log is opened under its number, and what is said there must not get in.
  directory.Write("lossy.json", "{\"$WorkspaceID\": \"Quest\", \"unknown\": 1}");
  const ProgramRun closed = RoundTrip("lossy.json", "out.json", {}, [] { close(STDERR_FILENO); });
  EXPECT_EQ(closed.exitCode, 2);
  EXPECT_TRUE(closed.Logged("::$.unknown: was 1 becomes nothing"));
  EXPECT_FALSE(closed.Logged("\n$.unknown: was 1 becomes nothing"));
  EXPECT_EQ(RoundTrip("out.json", "again.json").exitCode, 0);
}

TEST_F(UnattendedRun, EndsWithoutWorkToDoAndSaysWhy) {
  const ProgramRun idle(Here(), {});
  EXPECT_EQ(idle.exitCode, 1);
  EXPECT_NE(idle.standardError.find("Nothing is left to do"), std::string::npos);
  EXPECT_TRUE(idle.Logged("Starting node editor application"));
  // The data beside the program is found next, so an empty directory is put in the workspaces' place.
  fs::remove(Here() / "Workspaces");
  fs::create_directory(Here() / "Workspaces");
  const ProgramRun bare(Here(), {});
  EXPECT_EQ(bare.exitCode, 1);
  EXPECT_TRUE(bare.Logged("No valid workspaces were found in:\nWorkspaces/"));
  EXPECT_TRUE(bare.Logged("Failed to load any workspaces - editor may have limited functionality"));
}

TEST_F(UnattendedRun, PutsTheLogWhereItIsTold) {
  fs::create_directory(Here() / "logs");
  const ProgramRun run(Here(), {"--logs-dir=logs"});
  EXPECT_TRUE(run.log.empty());
  EXPECT_TRUE(fs::exists(Here() / "logs/NodeEditorLogs"));
  const ProgramRun lost(Here(), {"--logs-dir=nowhere"});
  EXPECT_NE(lost.standardError.find("Log Directory couldn't be created\n"), std::string::npos);
  EXPECT_NE(lost.standardError.find("Log file is not initialized\n"), std::string::npos);
}

TEST_F(UnattendedRun, LoadsAndSavesNestingOf900Levels) {
  // Every level below the root is one unknown object, which a generic node keeps as it is.
  std::string inner = "{\"depth\": 1}";
  for (int i = 0; i < 895; ++i) inner = "{\"n\": " + inner + "}";
  directory.Write("deep.json", "{\"$WorkspaceID\": \"Quest\", \"unknownPart\": " + inner + "}");
  const ProgramRun run = RoundTrip("deep.json", "out.json");
  EXPECT_EQ(run.exitCode, 0) << run.log.substr(0, 500);
  EXPECT_NE(Read("out.json").find("\"depth\":"), std::string::npos);
}

} // namespace
} // namespace Tesselor
