#include "workspace/Workspaces.h"

#include "platform/ExecutableDirectory.h"
#include "support/CapturedBoxes.h"
#include "support/CapturedLog.h"
#include "support/TemporaryDirectory.h"
#include "workspace/Workspace.h"

#include <gtest/gtest.h>

namespace {

using Tesselor::Workspaces;
using TestSupport::CapturedBoxes;
using TestSupport::CapturedLog;
using TestSupport::TemporaryDirectory;
namespace fs = std::filesystem;

std::string Configuration(const std::string& name, const std::string& menuName, const std::string& further = {}) {
  return R"({"WorkspaceName": ")" + name + R"(", "Roots": {"r": {"RootNodeType": "Root", "MenuName": ")" + menuName +
         "\"}}" + (further.empty() ? "" : ", " + further) + "}";
}

/// A current directory with "Workspaces/" in it, and what discovery and loading say.
class Discovery : public testing::Test {
protected:
  TemporaryDirectory directory;
  TestSupport::CurrentDirectoryScope current{directory.Path()};
  CapturedLog log;
  CapturedBoxes boxes;
  Workspaces workspaces;

  std::string Absolute(const std::string& path) const { return fs::absolute(path).string(); }
};

TEST_F(Discovery, TellsAMissingDirectory) {
  EXPECT_FALSE(workspaces.ImportWorkspaces("Workspaces/"));
  EXPECT_EQ(log.lines, std::vector<std::string>{"Workspaces directory not found: Workspaces/"});
  ASSERT_EQ(boxes.boxes.size(), 1u);
  EXPECT_EQ(boxes.boxes[0].caption, "Error Loading Workspaces");
  EXPECT_EQ(boxes.boxes[0].text,
            "Workspaces directory not found:\nWorkspaces/\n\nPlease ensure the Workspaces folder exists.");
  EXPECT_EQ(boxes.boxes[0].image, Toolkit::MessageBoxImage::Error);
}

TEST_F(Discovery, TellsAnEmptyDirectoryWithoutASectionOnFailures) {
  fs::create_directories("Workspaces/NoConfiguration");
  EXPECT_FALSE(workspaces.ImportWorkspaces("Workspaces/"));
  EXPECT_EQ(log.lines,
            (std::vector<std::string>{"Iterating over " + Absolute("Workspaces/"),
                                      "Found workspace directory Workspaces/NoConfiguration",
                                      "Skipping workspace directory without _Workspace.json: NoConfiguration"}));
  EXPECT_EQ(boxes.Texts(),
            std::vector<std::string>{"Error Loading Workspaces: No valid workspaces were found in:\nWorkspaces/"});
}

TEST_F(Discovery, CollectsEveryKindOfFailure) {
  const struct {
    std::string text;
    const char* line;
    const char* reason;
  } cases[] = {
      {"", "Invalid JSON in workspace file: <config> - unknown error", "invalid JSON"},
      {"{nope}", "Invalid JSON in workspace file: <config> - ope}", "invalid JSON"},
      {"[]", "Missing or invalid 'WorkspaceName' in: <config>", "missing WorkspaceName"},
      {R"({"WorkspaceName": 3})", "Missing or invalid 'WorkspaceName' in: <config>", "missing WorkspaceName"},
      {R"({"WorkspaceName": "W"})", "Missing or invalid 'Roots' in: <config>", "missing Roots"},
      {R"({"WorkspaceName": "W", "Roots": []})", "Missing or invalid 'Roots' in: <config>", "missing Roots"},
      {R"({"WorkspaceName": "W", "Roots": {}})", "Found workspace W", "no valid roots"},
      {R"({"WorkspaceName": "W", "Roots": {"r": {"RootNodeType": "Root", "MenuName": 1}}})",
       "Invalid root entry in workspace: <config> - missing RootNodeType or MenuName", "no valid roots"},
  };
  for (const auto& c : cases) {
    const std::string config = directory.Write("Workspaces/Bad/_Workspace.json", c.text);
    log.lines.clear();
    boxes.boxes.clear();
    EXPECT_FALSE(workspaces.ImportWorkspaces("Workspaces/")) << c.text;
    std::string line = c.line;
    if (const size_t at = line.find("<config>"); at != std::string::npos)
      line.replace(at, 8, "Workspaces/Bad/_Workspace.json");
    EXPECT_TRUE(log.Contains(line)) << line;
    const std::string lines = std::string("  - Bad (") + c.reason + ")\n";
    EXPECT_EQ(log.lines.back(), "Failed to load workspaces:\n" + lines);
    EXPECT_EQ(boxes.Texts().back(), "Error Loading Workspaces: No valid workspaces were found in:\nWorkspaces/\n\n"
                                    "Failed workspaces:\n" +
                                        lines);
  }
  fs::remove("Workspaces/Bad/_Workspace.json");
  fs::create_directories("Workspaces/Bad/_Workspace.json");
  EXPECT_FALSE(workspaces.ImportWorkspaces("Workspaces/"));
  EXPECT_TRUE(log.Contains("Failed to open workspace file: Workspaces/Bad/_Workspace.json"));
  EXPECT_EQ(log.lines.back(), "Failed to load workspaces:\n  - Bad (file unreadable)\n");
}

TEST_F(Discovery, ReadsTheHeadOfEachConfigurationInTheOrderOfNames) {
  directory.Write("Workspaces/b/_Workspace.json",
                  Configuration("Second", "Two", R"("fileformat": "quest,json", "EXPORTDEFAULTS": true)"));
  directory.Write("Workspaces/a/_Workspace.json", R"({"WorkspaceName": "First", "FileFormat": 3,
    "ExportDefaults": "true", "Roots": {"x": {"MenuName": "One"}, "y": {"RootNodeType": "R", "MenuName": "One"},
                                        "z": {"RootNodeType": "S", "MenuName": "Three"}}})");
  directory.Write("Workspaces/file", "");
  EXPECT_TRUE(workspaces.ImportWorkspaces("Workspaces/"));
  EXPECT_EQ(log.lines,
            (std::vector<std::string>{
                "Iterating over " + Absolute("Workspaces/"), "Found workspace directory Workspaces/a",
                "Found workspace First",
                "Invalid root entry in workspace: Workspaces/a/_Workspace.json - missing RootNodeType or MenuName",
                "New root found One", "New root found Three", "Successfully loaded workspace: First",
                "Found workspace directory Workspaces/b", "Found workspace Second", "New root found Two",
                "Successfully loaded workspace: Second"}));
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_EQ(workspaces.GetRootNames(), (std::vector<std::string>{"One", "Three", "Two"}));
  const auto one = workspaces.FindRoot("One");
  ASSERT_TRUE(one);
  EXPECT_EQ(one->RootNodeType, "R");
  EXPECT_EQ(one->workspace->FileFormat, "json");
  EXPECT_FALSE(one->workspace->ExportDefaults);
  EXPECT_EQ(one->workspace->directory, "Workspaces/a");
  EXPECT_FALSE(one->workspace->nodeDictionary);
  const auto two = workspaces.FindRoot("Two");
  EXPECT_EQ(two->workspace->FileFormat, "quest,json");
  EXPECT_TRUE(two->workspace->ExportDefaults);
  EXPECT_EQ(workspaces.FindRoot("one"), nullptr);
}

TEST_F(Discovery, LetsGeneratedWorkspacesReplaceRootsAndNeverTakesGeneratedForOne) {
  directory.Write("Workspaces/Own/_Workspace.json", Configuration("Own", "Shared"));
  directory.Write("Workspaces/generated/_Workspace.json", Configuration("Lower", "Lower"));
  directory.Write("Workspaces/Generated/_Workspace.json", Configuration("Never", "Never"));
  directory.Write("Workspaces/Generated/Made/_Workspace.json", Configuration("Made", "Shared"));
  directory.Write("Workspaces/Generated/Generated/_Workspace.json", Configuration("Never", "Never"));
  EXPECT_TRUE(workspaces.ImportWorkspaces("Workspaces/"));
  EXPECT_EQ(workspaces.GetRootNames(), (std::vector<std::string>{"Shared", "Lower"}));
  EXPECT_EQ(workspaces.FindRoot("Shared")->workspace->WorkspaceName, "Made");
  EXPECT_TRUE(log.Contains("Loading workspaces from Generated subdirectory: Workspaces//Generated"));
  EXPECT_TRUE(log.Contains("Found workspace directory Workspaces//Generated/Generated"));
}

TEST_F(Discovery, PrefersTheCurrentDirectoryToTheInstalledWorkspaces) {
  EXPECT_EQ(Tesselor::FindWorkspacesDirectory(), "Workspaces/");
  fs::create_directories("bin");
  Tesselor::ExecutableDirectory::Set(directory / "bin");
  EXPECT_EQ(Tesselor::FindWorkspacesDirectory(), "Workspaces/");
  fs::create_directories("Data/Workspaces");
  directory.Write("Workspaces", "a plain file");
  EXPECT_EQ(Tesselor::FindWorkspacesDirectory(), (directory / "bin") + "/../Data/Workspaces");
  fs::remove("Workspaces");
  fs::create_directories("Workspaces");
  EXPECT_EQ(Tesselor::FindWorkspacesDirectory(), "Workspaces/");
  Tesselor::ExecutableDirectory::Set({});
}

TEST_F(Discovery, LoadsSchemasOnceAndTellsTheBrokenOnes) {
  const std::string schema = R"({"color": "red", "id": "Same", "title": )";
  directory.Write("Workspaces/w/_Workspace.json",
                  Configuration("W", "Root", R"("NodeCategories": {"Actions": ["Move", 3, "Jump"], "Empty": {},
    "Flow": {"x": "If"}}, "Variants": {"NoField": {"Variants": {}}, "NoTable": {"VariantFieldName": "Type"},
    "Family": {"VariantFieldName": "Type", "Variants": {"a": "A", "": "Default", "n": 3}}},
    "AssetTypeComponents": {"Npc": "NpcParts", "Npc": "Later", "Bad": null})"));
  directory.Write("Workspaces/w/b.json", schema + "\"of b\"}");
  directory.Write("Workspaces/w/a/deep/first.json", schema + "\"of a\"}");
  directory.Write("Workspaces/w/a/_Workspace.json", "{not read}");
  directory.Write("Workspaces/w/loud.JSON", "{not read}");
  directory.Write("Workspaces/w/notes.json", R"({"just": "notes"})");
  directory.Write("Workspaces/w/z/broken.json", "{\"id\": oops}");
  directory.Write("Workspaces/w/z/cut.json", "{\"id\":");
  ASSERT_TRUE(workspaces.ImportWorkspaces("Workspaces/"));
  log.lines.clear();

  Tesselor::Workspace& workspace = *workspaces.FindRoot("Root")->workspace;
  EXPECT_TRUE(workspace.LoadNodeDictionary());
  const std::string failures = "  - broken.json (invalid JSON)\n  - cut.json (invalid JSON)\n";
  EXPECT_EQ(log.lines,
            (std::vector<std::string>{"Warning: Invalid variant entry in workspace (missing VariantFieldName): NoField",
                                      "Warning: Invalid variant entry in workspace (missing Variants object): NoTable",
                                      "Invalid JSON in schema file: Workspaces/w/z/broken.json - oops}",
                                      "Invalid JSON in schema file: Workspaces/w/z/cut.json - unknown",
                                      "Failed to load 2 schema file(s):\n" + failures,
                                      "Loaded 3 node schema(s) for workspace: W"}));
  ASSERT_EQ(boxes.boxes.size(), 1u);
  EXPECT_EQ(boxes.boxes[0].caption, "Warning: Schema Load Errors");
  EXPECT_EQ(boxes.boxes[0].text,
            "Some node schemas failed to load:\n\n" + failures + "\nThe editor will continue with available nodes.");
  EXPECT_EQ(boxes.boxes[0].image, Toolkit::MessageBoxImage::Warning);

  const Tesselor::NodeDictionary& dictionary = *workspace.nodeDictionary;
  EXPECT_EQ(dictionary.FindBlueprint("Same")->title, "of a");
  EXPECT_EQ(dictionary.nodeIds.size(), 4u);
  EXPECT_EQ(*dictionary.categories.Find("Actions"), (std::vector<std::string>{"Move", "Jump"}));
  EXPECT_EQ(*dictionary.categories.Find("Flow"), std::vector<std::string>{"If"});
  EXPECT_EQ(dictionary.categories.size(), 3u);
  EXPECT_EQ(dictionary.FindVariant("NoField"), nullptr);
  ASSERT_TRUE(dictionary.FindVariant("Family"));
  EXPECT_EQ(dictionary.FindVariant("Family")->VariantFieldName, "Type");
  EXPECT_EQ(*dictionary.FindVariant("Family")->Variants.Find(""), "Default");
  EXPECT_EQ(dictionary.FindVariant("Family")->Variants.size(), 2u);
  EXPECT_EQ(*workspace.AssetTypeComponents.Find("Npc"), "NpcParts");
  EXPECT_EQ(workspace.AssetTypeComponents.size(), 1u);

  log.lines.clear();
  EXPECT_TRUE(workspace.LoadNodeDictionary());
  EXPECT_EQ(workspace.nodeDictionary.get(), &dictionary);
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(Discovery, TellsAConfigurationThatIsGoneAndTriesAgainLater) {
  const std::string config = "Workspaces/w/_Workspace.json";
  directory.Write(config, Configuration("W", "Root"));
  ASSERT_TRUE(workspaces.ImportWorkspaces("Workspaces/"));
  Tesselor::Workspace& workspace = *workspaces.FindRoot("Root")->workspace;

  const auto fails = [&](const std::string& line, const std::string& box) {
    EXPECT_FALSE(workspace.LoadNodeDictionary());
    EXPECT_FALSE(workspace.nodeDictionary);
    EXPECT_EQ(log.lines.back(), line);
    EXPECT_EQ(boxes.Texts().back(), "Error Loading Schema: " + box);
    EXPECT_EQ(boxes.boxes.back().image, Toolkit::MessageBoxImage::Error);
  };
  fs::remove(config);
  fails("Workspace configuration file not found: " + config, "Workspace configuration file not found:\n" + config);
  fs::create_directories(config);
  fails("Failed to open workspace configuration file: " + config,
        "Failed to open workspace configuration file:\n" + config);
  fs::remove(config);
  directory.Write(config, "{oops}");
  fails("Invalid JSON in workspace configuration: " + config + " - ops}",
        "Invalid JSON in workspace configuration:\n" + config + "\n\nError: ops}");
  directory.Write(config, "{}");
  EXPECT_TRUE(workspace.LoadNodeDictionary());
  EXPECT_TRUE(log.Contains("Warning: 'NodeCategories' section missing or invalid in: " + config));
  EXPECT_EQ(log.lines.back(), "Loaded 0 node schema(s) for workspace: W");
  EXPECT_EQ(boxes.boxes.size(), 3u);
}

} // namespace
