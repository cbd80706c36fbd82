// What other programs do to the file, what saves replace, and what a save asks first.
#include "editor/KeptFileTest.h"
#include "editor/NoticeBar.h"
#include "editor/VersionsPanel.h"
#include "platform/FileWatch.h"
#include "toolkit/application/MessageBox.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/MenuItem.h"
#include "toolkit/controls/TextBlock.h"

#include <chrono>
#include <fstream>
#include <gtest/gtest.h>
#include <thread>

namespace Tesselor {
namespace {

namespace fs = std::filesystem;
using TestSupport::TemporaryDirectory;
using TestSupport::WindowStage;
using Toolkit::Key;

class GuardedFile : public TestSupport::KeptFileTest {
protected:
  GuardedFile() : path(view.FilePath()), original(TemporaryDirectory::Read(path)) {}

  void Save() { window.Chord({Key::LeftCtrl, Key::S}); }
  /// As another program does it: in place, or by another file that takes the name.
  void Change(const std::string& text, bool inPlace = true) {
    const std::string written = inPlace ? path : path + ".new";
    std::ofstream(written) << text;
    if (!inPlace) fs::rename(written, path);
    // A clock that is coarser than two writes must not hide the second one.
    fs::last_write_time(path, fs::last_write_time(path) + std::chrono::seconds(1));
  }
  std::string OnDisk() const { return TemporaryDirectory::Read(path); }
  /// The system tells of a file on a thread of its own, soon.
  bool IsTold(const std::string& text) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (std::chrono::steady_clock::now() < end) {
      for (const std::string& told : window.NoticesShown())
        if (told == text) return true;
      std::this_thread::yield();
    }
    return false;
  }
  template <class T> T& Captioned(Toolkit::UIElement& below, std::string_view caption) {
    window.Settle();
    T* found = TestSupport::Find<T>(below, [&](const T& element) {
      if constexpr (std::is_same_v<T, Toolkit::MenuItem>)
        return element.GetHeader().AsStringView() == caption;
      else
        return element.GetContent().AsStringView() == caption && element.IsVisible();
    });
    if (!found) throw std::runtime_error("there is no " + std::string(caption));
    return *found;
  }

  const std::string path, original;
  const std::string changed = "\"quest.json\" was changed by another program.";
  const Texts question{"Attention!: \"quest.json\" was changed by another program since it was opened here."};
};

TEST_F(GuardedFile, AsksBeforeASaveGoesOverWhatAnotherProgramWrote) {
  const std::string other = original + "\n";
  for (const bool inPlace : {true, false}) {
    SCOPED_TRACE(inPlace);
    window.boxes.boxes.clear();
    Nudge();
    Change(other, inPlace);
    for (const std::optional<size_t> refusal : {std::optional<size_t>(), std::optional<size_t>(3)}) {
      window.boxes.boxes.clear();
      window.boxes.choice = refusal;
      Save();
      EXPECT_EQ(window.boxes.Texts(), question);
      EXPECT_EQ(window.boxes.boxes.at(0).choices, (Texts{"Overwrite", "Save as", "Reload", "Cancel"}));
      EXPECT_EQ(window.boxes.boxes.at(0).defaultChoice, 3u);
      EXPECT_TRUE(OnDisk() == other);
      EXPECT_FALSE(view.IsSaved());
    }
    window.boxes.choice = 0;
    Save();
    EXPECT_TRUE(OnDisk() == window.Exported());
    window.boxes.boxes.clear();
    Nudge();
    Save();
    EXPECT_EQ(window.boxes.Texts(), Texts()) << "what is overwritten is known";
  }
  // Another name, and then that one is watched.
  const std::string elsewhere = path.substr(0, path.rfind('/')) + "/elsewhere.json";
  Change(other);
  window.boxes.choice = 1;
  window.dialogs.path = elsewhere;
  Save();
  EXPECT_TRUE(OnDisk() == other);
  EXPECT_EQ(view.FilePath(), elsewhere);
  EXPECT_TRUE(view.IsSaved());
  // A file that is gone is written anew without a question.
  window.boxes.boxes.clear();
  fs::remove(elsewhere);
  Save();
  EXPECT_EQ(window.boxes.Texts(), Texts());
  EXPECT_TRUE(fs::exists(elsewhere));
}

TEST_F(GuardedFile, KnowsWhatWasReadBeforeTheFileWasGuarded) {
  Change(original + "\n");
  view.KeepWork(state.Path());
  Nudge();
  Save();
  EXPECT_EQ(window.boxes.Texts(), question);
}

TEST_F(GuardedFile, AsksOnceHoweverManySavesWaitForTheAnswer) {
  std::vector<Toolkit::MessageBox::Request> waiting;
  auto former = Toolkit::MessageBox::SetPresenter(
      [&](Toolkit::MessageBox::Request request) { waiting.push_back(std::move(request)); });
  for (const std::optional<size_t> answer : {std::optional<size_t>(), std::optional<size_t>(0)}) {
    SCOPED_TRACE(answer.has_value());
    waiting.clear();
    Nudge();
    Change(original + "\n");
    Save();
    Save();
    ASSERT_EQ(waiting.size(), 1u);
    waiting[0].chosen(answer);
    EXPECT_EQ(waiting.size(), 1u);
    EXPECT_EQ(view.IsSaved(), answer.has_value());
  }
  EXPECT_TRUE(OnDisk() == window.Exported());
  Toolkit::MessageBox::SetPresenter(std::move(former));
}

TEST_F(GuardedFile, ClosesTheWindowOnceAllQuestionsAreAnswered) {
  Nudge();
  Change(original + "\n");
  // Both boxes are answered by their first button: Save, Overwrite.
  window.boxes.choice = 0;
  view.RequestClose();
  EXPECT_TRUE(view.IsClosed());
  EXPECT_TRUE(OnDisk() == window.Exported());
}

TEST_F(GuardedFile, TellsAtOnceAndReloads) {
  Nudge();
  const std::string edited = window.Exported();
  std::string other = original;
  other.replace(other.find("river_lamp"), 10, "other_lamp");
  Change(other, false);
  ASSERT_TRUE(IsTold(changed));
  window.Click(Captioned<Toolkit::Button>(view.Notices(), "Reload"));
  EXPECT_TRUE(window.Exported() == other);
  EXPECT_TRUE(view.IsSaved());
  EXPECT_EQ(window.NoticesShown(), Texts{"The unsaved changes of \"quest.json\" were kept."});
  window.Click(Captioned<Toolkit::Button>(view.Notices(), "Restore"));
  EXPECT_TRUE(window.Exported() == edited);
  // What was restored came from a file that isn't there any more.
  window.boxes.boxes.clear();
  Save();
  EXPECT_EQ(window.boxes.Texts(), question);
  // A file that can't be read changes nothing.
  window.boxes.choice = 2;
  Change("{");
  Save();
  EXPECT_TRUE(window.Exported() == edited);
  EXPECT_EQ(view.FilePath(), path);
  EXPECT_EQ(TestSupport::Named<Toolkit::TextBlock>(view, "DocumentName").GetText(), "quest.json \u2022");
  window.boxes.boxes.clear();
  window.boxes.choice = std::nullopt;
  Save();
  EXPECT_EQ(window.boxes.Texts(), question) << "it is still another program's";
  fs::remove(path);
  EXPECT_TRUE(IsTold("\"quest.json\" was removed by another program."));
}

TEST_F(GuardedFile, TellsOfEachChangeOnceAndNotOfOneThatIsTakenBack) {
  Change(original + "\n");
  ASSERT_TRUE(IsTold(changed));
  window.Click(Captioned<Toolkit::Button>(view.Notices(), "Dismiss"));
  // Another program that opens the file to write and leaves it as it is, until a watch of the test's own has heard of
  // it twice.
  int heard = 0;
  const FileWatch watch(path, [&heard] { ++heard; });
  for (int i = 1; i <= 2; ++i) {
    std::ofstream(path, std::ios::app).close();
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (heard < i && std::chrono::steady_clock::now() < end) window.Settle();
  }
  EXPECT_EQ(heard, 2);
  EXPECT_EQ(window.NoticesShown(), Texts());
  window.boxes.choice = 0;
  Save();
  fs::rename(path, path + ".away");
  ASSERT_TRUE(IsTold("\"quest.json\" was removed by another program."));
  fs::rename(path + ".away", path);
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!window.NoticesShown().empty() && std::chrono::steady_clock::now() < end) std::this_thread::yield();
  EXPECT_EQ(window.NoticesShown(), Texts());
}

TEST_F(GuardedFile, ComesBackAsItWasBeforeASave) {
  for (int i = 0; i < 2; ++i) {
    Nudge();
    Save();
  }
  const std::string saved = OnDisk();
  const auto list = [&] {
    window.Click(Captioned<Toolkit::MenuItem>(view, "File"));
    window.Click(Captioned<Toolkit::MenuItem>(view, "Earlier versions…"));
    auto& panel = TestSupport::Named<VersionsPanel>(view, "VersionsPanel");
    window.Settle();
    EXPECT_TRUE(panel.IsVisible());
    std::vector<Toolkit::Button*> buttons = TestSupport::All<Toolkit::Button>(panel);
    std::erase_if(buttons, [](const Toolkit::Button* button) { return button->GetContent().AsStringView() != "Open"; });
    return buttons;
  };
  ASSERT_EQ(list().size(), 2u);
  EXPECT_TRUE(window.Shows(std::to_string(original.size() / 1024) + "." +
                           std::to_string(original.size() * 10 / 1024 % 10) + " KB") ||
              window.Shows(std::to_string(original.size() / 1024) + "." +
                           std::to_string(original.size() * 10 / 1024 % 10 + 1) + " KB"));
  window.Press(Key::Escape);
  EXPECT_FALSE(TestSupport::Named<VersionsPanel>(view, "VersionsPanel").IsVisible());
  window.Click(*list().back());
  EXPECT_FALSE(TestSupport::Named<VersionsPanel>(view, "VersionsPanel").IsVisible());
  EXPECT_TRUE(window.Exported() == original);
  EXPECT_FALSE(view.IsSaved());
  EXPECT_EQ(view.FilePath(), path);
  EXPECT_TRUE(OnDisk() == saved);
  ASSERT_EQ(window.NoticesShown().size(), 1u);
  EXPECT_NE(window.NoticesShown()[0].find("A save writes it over the present file."), std::string::npos);
  Save();
  EXPECT_TRUE(OnDisk() == original);
  EXPECT_EQ(list().size(), 3u) << "what the save went over is kept too";
  setenv("TESSELOR_HISTORY", "0", 1);
  view.KeepWork(state.Path());
  unsetenv("TESSELOR_HISTORY");
  window.Press(Key::Escape);
  EXPECT_FALSE(TestSupport::Named<Toolkit::MenuItem>(view, "EarlierVersionsItem").IsEnabled());
}

TEST_F(GuardedFile, IsNotWrittenWithARootThatTheNextLoadWouldNotTakeUnlessTheUserSaysSo) {
  view.GetGraph().Selected().Add(window.Node("The nest"));
  window.Click(Captioned<Toolkit::MenuItem>(view, "Set Selected Node As Root"));
  for (const std::optional<size_t> refusal : {std::optional<size_t>(), std::optional<size_t>(0)}) {
    window.boxes.boxes.clear();
    window.boxes.choice = refusal;
    Save();
    ASSERT_EQ(window.boxes.boxes.size(), 1u);
    EXPECT_NE(window.boxes.boxes[0].text.find("begins with \"Quest\""), std::string::npos);
    EXPECT_TRUE(OnDisk() == original);
  }
  window.boxes.choice = 1;
  Save();
  EXPECT_FALSE(OnDisk() == original);
  // A root of the right type asks nothing, and one that was deleted is none.
  window.boxes.boxes.clear();
  window.Undo();
  Save();
  EXPECT_EQ(window.boxes.Texts(), Texts());
  window.Redo();
  window.Press(Key::Delete);
  Save();
  EXPECT_EQ(window.boxes.Texts(), Texts{"Export Error: Cannot export: No root node defined."});
  window.boxes.boxes.clear();
  EXPECT_TRUE(view.ChangeRootType("Dialogue"));
  view.CreateDefaultRoot();
  window.dialogs.path = state / "new.json";
  window.Chord({Key::LeftCtrl, Key::LeftShift, Key::S});
  EXPECT_EQ(window.boxes.Texts(), Texts());
  EXPECT_TRUE(fs::exists(state / "new.json"));
}

} // namespace
} // namespace Tesselor
