// Documents come into the window and go out of it.
#include "WindowStage.h"

#include <gtest/gtest.h>

namespace Tesselor {
namespace {

using TestSupport::TemporaryDirectory;
using TestSupport::WindowStage;

const std::string samples = TESSELOR_DATA_DIR "/samples/";

TEST(DocumentLifetime, LeavesNoObjectBehindWhenTheNextDocumentComes) {
  WindowStage window;
  const auto load = [&](const char* sample) {
    window.Open(samples + sample);
    EXPECT_GT(window.View().ContentNodes().size(), 30u);
    window.View().ClearDocument();
    window.Settle();
    return Toolkit::Object::LiveCount();
  };
  // The first loads fill what is made once, such as compiled documents.
  load("quest_chain.json");
  const size_t after = load("quest.json");
  load("quest_chain.json");
  EXPECT_EQ(load("quest.json"), after);
  EXPECT_TRUE(window.View().GetGraph().Connections().GetConnections().empty());
  EXPECT_EQ(window.View().GetGraph().FindNodeById("5790f82e-c1d3-4cff-aa3a-f4d46b0a18e8"), nullptr);
}

TEST(DocumentLifetime, ExportsASampleAsItStands) {
  for (const char* sample : {"quest", "dialogue", "character", "sound_bank"}) {
    const WindowStage window(sample);
    EXPECT_EQ(window.Exported(), TemporaryDirectory::Read(samples + sample + ".json")) << sample;
  }
}

TEST(DocumentLifetime, SavesWhatIsTypedAndOpensItAgain) {
  const TemporaryDirectory directory;
  WindowStage window("quest");
  ContentNode& node = window.Node("The nest");
  window.LookAt(node);
  window.DoubleClick(TestSupport::Named(node, "TitleTextBlock"));
  window.Type("A text of its own");
  const std::string changed = window.Exported();
  EXPECT_NE(changed.find("A text of its own"), std::string::npos);
  window.dialogs.path = directory / "other.first.name";
  window.Chord({Toolkit::Key::LeftCtrl, Toolkit::Key::LeftShift, Toolkit::Key::S});
  EXPECT_EQ(window.dialogs.filter, "json");
  EXPECT_EQ(window.View().GetTitle(), "other");
  EXPECT_EQ(TemporaryDirectory::Read(directory / "other.first.json"), changed);
  window.Open(samples + "dialogue.json");
  EXPECT_EQ(window.View().GetTitle(), "dialogue");
  window.Open(directory / "other.first.json");
  EXPECT_EQ(window.Exported(), changed);
  EXPECT_EQ(window.boxes.Texts(), std::vector<std::string>());
}

TEST(DocumentLifetime, NamesAFileInTheFormOfItsWorkspace) {
  const TemporaryDirectory directory;
  directory.Write("v1.2/other", "");
  WindowStage window("quest");
  const std::string text = window.Exported();
  const auto saveAs = [&window] { window.Chord({Toolkit::Key::LeftCtrl, Toolkit::Key::LeftShift, Toolkit::Key::S}); };
  const struct {
    const char *chosen, *written, *title;
  } cases[] = {{"x.txt", "x.json", "x"},
               {"plain", "plain.json", "plain"},
               {"a.b.json", "a.b.json", "a"},
               {"v1.2/name", "v1.2/name.json", "name"}};
  for (const auto& c : cases) {
    window.dialogs.path = directory / c.chosen;
    saveAs();
    EXPECT_EQ(TemporaryDirectory::Read(directory / c.written), text) << c.chosen;
    EXPECT_EQ(window.View().FilePath(), directory / c.written);
    EXPECT_EQ(window.View().GetTitle(), c.title);
  }
  // The dialog has asked about the name that was chosen only.
  const std::string taken = directory.Write("taken.json", "old"), before = window.View().FilePath();
  window.dialogs.path = directory / "taken.txt";
  for (const std::optional<size_t> refusal : {std::optional<size_t>(), std::optional<size_t>(1)}) {
    window.boxes.choice = refusal;
    window.View().SaveAs();
    EXPECT_EQ(TemporaryDirectory::Read(taken), "old");
    EXPECT_EQ(window.View().FilePath(), before);
  }
  window.boxes.choice = 0;
  window.View().SaveAs();
  EXPECT_EQ(window.boxes.Texts(),
            std::vector<std::string>(3, "Attention!: \"taken.json\" is there already. Do you want to replace it?"));
  EXPECT_EQ(TemporaryDirectory::Read(taken), text);
  EXPECT_EQ(window.View().FilePath(), taken);
  // Nothing is asked about the document's own file, nor twice about one that the dialog has asked about.
  for (const char* agreed : {"taken.txt", "a.b.json"}) {
    window.dialogs.path = directory / agreed;
    EXPECT_TRUE(window.View().SaveAs()) << agreed;
  }
  EXPECT_EQ(window.boxes.boxes.size(), 3u);
  // A save follows also when the dialog was cancelled: it goes to the file as it was.
  window.dialogs.path.reset();
  directory.Write("a.b.json", "old");
  saveAs();
  EXPECT_EQ(TemporaryDirectory::Read(directory / "a.b.json"), text);
}

TEST(DocumentLifetime, LeavesAnEmptyDocumentWhereALoadFails) {
  const TemporaryDirectory directory;
  const struct {
    const char *name, *text, *box;
    size_t boxes = 1;
  } cases[] = {
      {"broken", "{", "Error Parsing File: Invalid JSON in file:\n"},
      {"lost", R"({"$WorkspaceID": "Lost"})", "Error Loading File: Failed to load workspace for: Lost", 2},
      {"family", R"({"$WorkspaceID": "Doc"})",
       "Error Importing: Cannot import node tree: Missing variant field 'Kind' in file."},
  };
  TestSupport::TestWorkspace workspace({R"({"id": "Doc", "title": "Doc", "color": "red"})"});
  workspace.Write("Workspaces/Test/_Workspace.json",
                  R"({"WorkspaceName": "Test", "FileFormat": "json",
                      "Roots": {"Plain": {"RootNodeType": "Doc", "MenuName": "Plain"},
                                "Doc": {"RootNodeType": "Family", "MenuName": "Doc"}},
                      "Variants": {"Family": {"VariantFieldName": "Kind", "Variants": {"a": "Doc"}}}})");
  // A workspace that is there at the start, and gone by the time of its first document.
  const std::string lost =
      workspace.Write("Workspaces/Zone/_Workspace.json",
                      R"({"WorkspaceName": "Zone", "Roots": {"Lost": {"RootNodeType": "Doc", "MenuName": "Lost"}}})");
  WindowStage window(
      {.document = directory.Write("first.json", R"({"$WorkspaceID": "Plain"})"), .directory = workspace.Path()});
  std::filesystem::remove(lost);
  const Graph& graph = window.View().GetGraph();
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    window.Open(directory.Write("good.json", R"({"$WorkspaceID": "Plain"})"));
    EXPECT_EQ(graph.ContentNodes().size(), 1u);
    window.boxes.boxes.clear();
    window.Open(directory.Write(c.name, c.text));
    ASSERT_EQ(window.boxes.boxes.size(), c.boxes);
    EXPECT_TRUE(window.boxes.Texts().back().starts_with(c.box)) << window.boxes.Texts().back();
    EXPECT_TRUE(graph.ContentNodes().empty());
    EXPECT_EQ(window.View().FilePath(), "");
    EXPECT_EQ(window.View().GetTitle(), "");
  }
  // A new document of a family has no root, since its type depends on a value.
  window.View().CreateDefaultRoot();
  EXPECT_TRUE(graph.ContentNodes().empty());
  // A choice of root that fails leaves no document that a save could write over the file.
  const std::string good = directory.Write("good.json", R"({"$WorkspaceID": "Plain"})");
  window.Open(good);
  EXPECT_FALSE(window.View().ChangeRootType("Lost"));
  EXPECT_EQ(window.View().FilePath(), "");
  window.dialogs.path = directory / "none.json";
  EXPECT_FALSE(window.View().Save());
  EXPECT_EQ(window.boxes.Texts().back(), "Export Error: Cannot export: No root node defined.");
  EXPECT_TRUE(graph.ContentNodes().empty());
  EXPECT_EQ(TemporaryDirectory::Read(good), R"({"$WorkspaceID": "Plain"})");
}

TEST(DocumentLifetime, IsNoneWithoutAWorkspace) {
  const TemporaryDirectory directory;
  directory.Write("Workspaces/Empty/note.txt", "");
  WindowStage window({.directory = directory.Path(),
                      .complaints = {"Error Loading Workspaces: No valid workspaces were found in:\nWorkspaces/"}});
  window.dialogs.path = directory / "a.json";
  for (const auto& [key, box] :
       {std::pair(Toolkit::Key::O, "Cannot Open File: No workspace selected. Please select a workspace first."),
        {Toolkit::Key::S, "Cannot Save: No workspace selected. Cannot save file."}}) {
    window.Chord({Toolkit::Key::LeftCtrl, key});
    ASSERT_FALSE(window.boxes.boxes.empty());
    EXPECT_EQ(window.boxes.Texts().back(), box);
  }
  EXPECT_FALSE(window.dialogs.filter) << "no file was asked for";
}

} // namespace
} // namespace Tesselor
