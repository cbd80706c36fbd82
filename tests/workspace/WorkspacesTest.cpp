#include "workspace/Workspaces.h"

#include "Expected.h"
#include "TemporaryDirectory.h"
#include "platform/ExecutableDirectory.h"
#include "workspace/WorkspaceDump.h"

#include <gtest/gtest.h>

namespace {

using Tesselor::Workspaces;
namespace fs = std::filesystem;

/// The path of a file and its text; a path that ends in a slash is a directory.
using Files = std::vector<std::pair<std::string, std::string>>;

std::string Configuration(const std::string& name, const std::string& menuName, const std::string& further = {}) {
  return R"({"WorkspaceName": ")" + name + R"(", "Roots": {"r": {"RootNodeType": "Root", "MenuName": ")" + menuName +
         "\"}}" + (further.empty() ? "" : ", " + further) + "}";
}

/// A current directory with files in it, and what is said about them.
class Discovery : public testing::Test {
protected:
  void Write(const Files& files) {
    for (const auto& [path, text] : files)
      if (path.ends_with('/'))
        fs::create_directories(path);
      else
        directory.Write(path, text);
  }
  std::string TakeMessages() {
    std::string messages = TestSupport::TakeMessages(log, boxes);
    const std::string here = fs::current_path().string();
    for (size_t at; (at = messages.find(here)) != std::string::npos;) messages.replace(at, here.size(), "<here>");
    return messages;
  }

  TestSupport::TemporaryDirectory directory;
  TestSupport::CurrentDirectoryScope current{directory.Path()};
  TestSupport::CapturedLog log;
  TestSupport::CapturedBoxes boxes;
};

TEST_F(Discovery, TellsWhatItFinds) {
  const auto bad = [](const char* text) { return Files{{"Workspaces/Bad/_Workspace.json", text}}; };
  const struct {
    const char* name;
    Files files;
  } cases[] = {
      {"nothing", {}},
      {"a directory without a configuration", {{"Workspaces/NoConfiguration/", ""}}},
      {"an empty configuration", bad("")},
      {"no JSON", bad("{nope}")},
      {"an array", bad("[]")},
      {"a name that is no text", bad(R"({"WorkspaceName": 3})")},
      {"no roots", bad(R"({"WorkspaceName": "W"})")},
      {"roots in an array", bad(R"({"WorkspaceName": "W", "Roots": []})")},
      {"empty roots", bad(R"({"WorkspaceName": "W", "Roots": {}})")},
      {"a broken root", bad(R"({"WorkspaceName": "W", "Roots": {"r": {"RootNodeType": "Root", "MenuName": 1}}})")},
      {"a configuration that is a directory", {{"Workspaces/Bad/_Workspace.json/", ""}}},
      {"several in the order of their names",
       {{"Workspaces/b/_Workspace.json",
         Configuration("Second", "Two", R"("fileformat": "quest,json", "EXPORTDEFAULTS": true)")},
        {"Workspaces/a/_Workspace.json",
         R"({"WorkspaceName": "First", "FileFormat": 3,
    "ExportDefaults": "true", "Roots": {"x": {"MenuName": "One"}, "y": {"RootNodeType": "R", "MenuName": "One"},
                                        "z": {"RootNodeType": "S", "MenuName": "Three"}}})"},
        {"Workspaces/file", ""}}},
      // Generated ones replace roots, and "Generated" is never one itself.
      {"generated",
       {{"Workspaces/Own/_Workspace.json", Configuration("Own", "Shared")},
        {"Workspaces/generated/_Workspace.json", Configuration("Lower", "Lower")},
        {"Workspaces/Generated/_Workspace.json", Configuration("Never", "Never")},
        {"Workspaces/Generated/Made/_Workspace.json", Configuration("Made", "Shared")},
        {"Workspaces/Generated/Generated/_Workspace.json", Configuration("Never", "Never")}}},
  };
  std::string dump;
  for (const auto& c : cases) {
    fs::remove_all("Workspaces");
    Write(c.files);
    Workspaces workspaces;
    const bool found = workspaces.ImportWorkspaces("Workspaces/");
    dump += c.name + std::string(found ? ": found\n" : ": not found\n") + TakeMessages();
    for (const std::string& name : workspaces.GetRootNames()) {
      const auto root = workspaces.FindRoot(name);
      const Tesselor::Workspace& workspace = *root->workspace;
      dump += "  root " + name + " of type " + root->RootNodeType + " in " + workspace.WorkspaceName + ", " +
              workspace.directory + ", " + workspace.FileFormat + (workspace.ExportDefaults ? ", defaults" : "") +
              (workspace.nodeDictionary ? ", loaded" : "") + "\n";
    }
  }
  TestSupport::ExpectText("Discovery", dump);
}

TEST_F(Discovery, PrefersTheCurrentDirectoryToTheInstalledWorkspaces) {
  EXPECT_EQ(Tesselor::FindWorkspacesDirectory(), "Workspaces/");
  Write({{"bin/", ""}});
  Tesselor::ExecutableDirectory::Set(directory / "bin");
  EXPECT_EQ(Tesselor::FindWorkspacesDirectory(), "Workspaces/");
  Write({{"Data/Workspaces/", ""}, {"Workspaces", "a plain file"}});
  EXPECT_EQ(Tesselor::FindWorkspacesDirectory(), (directory / "bin") + "/../Data/Workspaces");
  fs::remove("Workspaces");
  Write({{"Workspaces/", ""}});
  EXPECT_EQ(Tesselor::FindWorkspacesDirectory(), "Workspaces/");
  Tesselor::ExecutableDirectory::Set({});
}

TEST_F(Discovery, LoadsSchemasOnceAndTellsTheBrokenOnes) {
  const std::string schema = R"({"color": "red", "id": "Same", "title": )", at = "Workspaces/w/";
  Write({{at + "_Workspace.json",
          Configuration("W", "Root", R"("NodeCategories": {"Actions": ["Move", 3, "Jump"], "Empty": {},
    "Flow": {"x": "If"}}, "Variants": {"NoField": {"Variants": {}}, "NoTable": {"VariantFieldName": "Type"},
    "Family": {"VariantFieldName": "Type", "Variants": {"a": "A", "": "Default", "n": 3}}},
    "AssetTypeComponents": {"Npc": "NpcParts", "Npc": "Later", "Bad": null})")},
         {at + "b.json", schema + "\"of b\"}"},
         {at + "a/deep/first.json", schema + "\"of a\"}"},
         {at + "a/_Workspace.json", "{not read}"},
         {at + "loud.JSON", "{not read}"},
         {at + "notes.json", R"({"just": "notes"})"},
         {at + "z/broken.json", "{\"id\": oops}"},
         {at + "z/cut.json", "{\"id\":"}});
  Workspaces workspaces;
  ASSERT_TRUE(workspaces.ImportWorkspaces("Workspaces/"));
  TakeMessages();
  Tesselor::Workspace& workspace = *workspaces.FindRoot("Root")->workspace;
  EXPECT_TRUE(workspace.LoadNodeDictionary());
  const Tesselor::NodeDictionary& dictionary = *workspace.nodeDictionary;
  std::string dump = TakeMessages();
  for (const std::string& id : dictionary.nodeIds) dump += "  node " + id + "\n";
  dump += TestSupport::Dump("Same", *dictionary.FindBlueprint("Same"));
  for (const auto& [name, ids] : dictionary.categories) {
    dump += "  category " + name;
    for (const std::string& id : ids) dump += " " + id;
    dump += "\n";
  }
  for (const auto& [name, family] : dictionary.variants) {
    dump += "  family " + name + " by " + family->VariantFieldName;
    for (const auto& [value, id] : family->Variants) dump += ", " + value + " -> " + id;
    dump += "\n";
  }
  for (const auto& [type, id] : workspace.AssetTypeComponents) dump += "  asset type " + type + " -> " + id + "\n";
  TestSupport::ExpectText("LoadedWorkspace", dump);

  EXPECT_TRUE(workspace.LoadNodeDictionary());
  EXPECT_EQ(workspace.nodeDictionary.get(), &dictionary);
  EXPECT_EQ(TakeMessages(), "");
}

TEST_F(Discovery, KnowsWhetherItLacksSchemas) {
  const auto schema = [](const std::string& id, const std::string& child) {
    return R"({"color": "red", "title": "T", "id": ")" + id + R"(", "Schema": {"K": {"node": ")" + child +
           R"(", "pin": "p"}}})";
  };
  const std::string at = "Workspaces/w/", root = schema("Root", "Family"), leaf = schema("Leaf", "Root");
  const auto configuration = [](const char* ofFamily, const char* parts) {
    return Configuration("W", "Root",
                         R"("Variants": {"Family": {"VariantFieldName": "Type", "Variants": {"a": ")" +
                             std::string(ofFamily) + R"("}}}, "AssetTypeComponents": {"A": ")" + parts + "\"}");
  };
  const std::string intact = configuration("Leaf", "Leaf");
  const struct {
    const char* what;
    bool lacks;
    std::string configuration, root, leaf, more;
  } cases[] = {
      {"nothing", false, intact, root, leaf, schema("More", "Leaf")},
      {"a file that is no JSON", true, intact, root, leaf, "{"},
      {"a list", true, intact, root, leaf, "[]"},
      {"a colour", true, intact, root, leaf, R"({"id": "More", "title": "T"})"},
      {"an id", true, intact, root, leaf, R"({"color": "red", "title": "T"})"},
      {"a title", true, intact, root, leaf, R"({"color": "red", "id": "More"})"},
      {"an id of its own", true, intact, root, leaf, leaf},
      {"an id of its own, for a reference", true, intact, root, leaf,
       R"({"color": "red", "title": "T", "id": "Leaf", "isreference": true})"},
      {"the root's type", true, intact, schema("Rot", "Leaf"), schema("Leaf", "Rot"), schema("More", "Leaf")},
      {"a type behind a pin", true, intact, root, leaf, schema("More", "Laef")},
      {"a type of a family", true, configuration("Laef", "Leaf"), root, leaf, schema("More", "Leaf")},
      {"a type of components", true, configuration("Leaf", "Laef"), root, leaf, schema("More", "Leaf")},
  };
  for (const auto& c : cases) {
    Write({{at + "_Workspace.json", c.configuration},
           {at + "a.json", c.root},
           {at + "b.json", c.leaf},
           {at + "c.json", c.more}});
    Workspaces workspaces;
    ASSERT_TRUE(workspaces.ImportWorkspaces("Workspaces/")) << c.what;
    Tesselor::Workspace& workspace = *workspaces.FindRoot("Root")->workspace;
    ASSERT_TRUE(workspace.LoadNodeDictionary());
    EXPECT_EQ(workspace.nodeDictionary->lacksSchemas, c.lacks) << c.what;
  }
}

TEST_F(Discovery, TellsAConfigurationThatIsGoneAndTriesAgainLater) {
  const std::string config = "Workspaces/w/_Workspace.json";
  Write({{config, Configuration("W", "Root")}});
  Workspaces workspaces;
  ASSERT_TRUE(workspaces.ImportWorkspaces("Workspaces/"));
  TakeMessages();
  Tesselor::Workspace& workspace = *workspaces.FindRoot("Root")->workspace;
  std::string dump;
  for (const Files& files : {Files{}, {{config + "/", ""}}, {{config, "{oops}"}}, {{config, "{}"}}}) {
    fs::remove(config);
    Write(files);
    const bool loads = workspace.LoadNodeDictionary();
    EXPECT_EQ(loads, workspace.nodeDictionary != nullptr);
    dump += (loads ? "loaded\n" : "not loaded\n") + TakeMessages();
  }
  TestSupport::ExpectText("ReloadedWorkspace", dump);
}

} // namespace
