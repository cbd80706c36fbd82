// A file that names no known root waits until the user has chosen a workspace for it.
#include "WindowStage.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/ComboBox.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace Tesselor {
namespace {

const std::string dialogue = TESSELOR_DATA_DIR "/samples/dialogue.json";

class WorkspaceChoice : public testing::Test {
protected:
  WorkspaceChoice() {
    std::string text = TestSupport::TemporaryDirectory::Read(dialogue);
    const std::string named = "\"$WorkspaceID\":\t\"Dialogue\"";
    text.replace(text.rfind(named), named.size(), "\"$WorkspaceID\":\t\"Nobody\"");
    path = directory.Write("unknown.json", text);
    window.Open(path);
  }

  bool IsAsked() const {
    return window.View().Get<Toolkit::Visibility>(MainView::LoadExternalAssetModalVisibilityProperty) ==
           Toolkit::Visibility::Visible;
  }
  void Choose(const std::string& root) {
    auto& box = TestSupport::Named<Toolkit::ComboBox>(window.View(), "WorkspaceComboBox");
    for (size_t i = 0; i < box.ItemCount(); ++i)
      if (static_cast<WorkspaceItemData*>(box.ItemAt(i))->GetValue() == root)
        box.SetSelectedIndex(static_cast<int32_t>(i));
    Press("Load Workspace");
  }
  void Press(const std::string& content) {
    auto* button = TestSupport::Find<Toolkit::Button>(window.View(), [&](const Toolkit::Button& candidate) {
      return candidate.GetContent().AsStringView() == content && candidate.IsVisible();
    });
    ASSERT_TRUE(button);
    window.Click(*button);
  }

  TestSupport::TemporaryDirectory directory;
  TestSupport::WindowStage window;
  std::string path;
};

TEST_F(WorkspaceChoice, LoadsTheFileAsItWasOpened) {
  EXPECT_TRUE(window.log.Contains("Unknown workspace ID 'Nobody' in file, showing workspace selection modal"));
  ASSERT_TRUE(IsAsked());
  EXPECT_EQ(window.Exported(), "");
  Press("Load Workspace");
  EXPECT_EQ(window.boxes.Texts(),
            std::vector<std::string>{"No Workspace Selected: Please select a workspace from the dropdown."});
  std::filesystem::remove(path);
  ASSERT_NE(window.View().CurrentRoot()->MenuName, "Dialogue");
  Choose("Dialogue");
  EXPECT_FALSE(IsAsked());
  EXPECT_EQ(window.Exported(), TestSupport::TemporaryDirectory::Read(dialogue));
  EXPECT_EQ(window.View().FilePath(), path);
}

TEST_F(WorkspaceChoice, IsForgottenWhenItIsCancelled) {
  Press("Cancel");
  EXPECT_FALSE(IsAsked());
  EXPECT_EQ(window.Exported(), "");
  EXPECT_EQ(window.View().FilePath(), "");
}

TEST_F(WorkspaceChoice, ConcernsTheFileThatWasOpenedLast) {
  const std::string quest = TESSELOR_DATA_DIR "/samples/quest.json";
  window.Open(quest);
  Choose("Quest");
  EXPECT_EQ(window.View().FilePath(), quest);
  EXPECT_EQ(window.Exported(), TestSupport::TemporaryDirectory::Read(quest));
}

} // namespace
} // namespace Tesselor
