// What is kept of unsaved work, and how it comes back.
#include "editor/WorkKeeper.h"
#include "editor/KeptFileTest.h"
#include "editor/NoticeBar.h"
#include "editor/StatusLine.h"
#include "platform/SpareCopy.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/TextBlock.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Tesselor {
namespace {

namespace fs = std::filesystem;
using TestSupport::TemporaryDirectory;
using TestSupport::WindowStage;
using Toolkit::Key;

class KeptWork : public TestSupport::KeptFileTest {
protected:
  std::vector<fs::path> Copies() const {
    std::vector<fs::path> files;
    if (fs::exists(state.Path() / "rescue"))
      for (const auto& entry : fs::directory_iterator(state.Path() / "rescue")) files.push_back(entry.path());
    return files;
  }
  /// The text of the one copy that is there; empty if there is none.
  std::string Copied() const {
    const auto files = Copies();
    EXPECT_LE(files.size(), 1u);
    if (files.empty()) return {};
    const std::string text = TemporaryDirectory::Read(files.front());
    return text.substr(text.find('\n') + 1);
  }
  void LetACopyBeWritten() {
    window.Wait(1000);
    view.Keeper()->Finish();
  }
  /// What a process that has ended leaves.
  void Abandon(const RescuedDocument& document, const std::string& text) {
    const pid_t child = fork();
    if (child == 0) _exit(RescueStore(state.Path() / "rescue").Write(document, text) ? 0 : 1);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_EQ(status, 0);
  }
  /// As if a process had ended between the copy of a file that it writes in place and the last byte.
  void LeaveSpare(const std::string& path, const std::string& text) {
    setenv("XDG_STATE_HOME", state.Path().c_str(), 1);
    const pid_t child = fork();
    if (child == 0) _exit(SpareCopy().Write(path, text) ? 0 : 1);
    waitpid(child, nullptr, 0);
  }
  void Press(const char* caption) {
    window.Settle();
    auto* button = TestSupport::Find<Toolkit::Button>(view.Notices(), [&](const Toolkit::Button& candidate) {
      return candidate.GetContent().AsStringView() == caption;
    });
    ASSERT_TRUE(button) << caption;
    window.Click(*button);
  }
};

TEST_F(KeptWork, IsThereAFewMomentsAfterAnEditAndGoesWithASave) {
  const std::string file = TemporaryDirectory::Read(view.FilePath());
  LetACopyBeWritten();
  EXPECT_EQ(Copied(), "");
  Nudge();
  window.Wait(400);
  view.Keeper()->Finish();
  EXPECT_EQ(Copied(), "") << "what is edited in one go is written once";
  LetACopyBeWritten();
  EXPECT_TRUE(Copied() == window.Exported());
  EXPECT_FALSE(Copied() == file);
  const auto written = fs::last_write_time(Copies().at(0));
  LetACopyBeWritten();
  EXPECT_EQ(fs::last_write_time(Copies().at(0)), written) << "what is kept already is not written again";
  EXPECT_EQ(TemporaryDirectory::Read(view.FilePath()), file);
  // An edit while a copy is being written gets one of its own.
  Nudge();
  window.Wait(1000);
  Nudge();
  view.Keeper()->Finish();
  LetACopyBeWritten();
  EXPECT_TRUE(Copied() == window.Exported());
  // Its time runs from the first of such edits.
  view.Keeper()->StartCopy();
  Nudge();
  window.Wait(400);
  Nudge();
  view.Keeper()->Finish();
  window.Wait(200);
  view.Keeper()->Finish();
  EXPECT_TRUE(Copied() == window.Exported());
  window.Chord({Key::LeftCtrl, Key::S});
  EXPECT_EQ(Copied(), "");
  // A save while a copy is being written.
  Nudge();
  window.Wait(1000);
  window.Chord({Key::LeftCtrl, Key::S});
  view.Keeper()->Finish();
  EXPECT_EQ(Copied(), "");
  // A child that is ended while it writes leaves its temporary file.
  const pid_t ended = fork();
  if (ended == 0) _exit(0);
  waitpid(ended, nullptr, 0);
  Nudge();
  LetACopyBeWritten();
  state.Write("rescue/.tesselor-" + std::to_string(ended) + "-0.tmp", "half a copy");
  EXPECT_EQ(Copies().size(), 2u);
  window.Chord({Key::LeftCtrl, Key::S});
  EXPECT_TRUE(Copies().empty());
  // Back to what is saved by the history.
  window.Undo();
  LetACopyBeWritten();
  EXPECT_TRUE(Copied() == window.Exported());
  window.Redo();
  EXPECT_EQ(Copied(), "");
}

TEST_F(KeptWork, HoldsWhatIsTypedAndChangesNothingInTheDocument) {
  ContentNode& nest = window.Node("The nest");
  window.LookAt(nest);
  // A new node gets its identity in the file only by a save.
  window.RightClick(window.EmptySpot());
  window.Type("quest");
  window.Press(Key::Return);
  std::vector<std::string> identities;
  for (const auto& node : view.ContentNodes()) identities.push_back(node->Identity());
  LetACopyBeWritten();
  for (size_t i = 0; i < identities.size(); ++i) EXPECT_EQ(view.ContentNodes()[i]->Identity(), identities[i]);
  auto& box = TestSupport::First<Toolkit::TextBox>(TestSupport::Named<Toolkit::UIElement>(nest, "NodeContent"));
  window.LookAt(nest);
  window.TypeInto(box, "half a wor");
  LetACopyBeWritten();
  EXPECT_NE(Copied().find("half a wor"), std::string::npos);
  EXPECT_TRUE(box.IsFocused());
}

TEST_F(KeptWork, SurvivesADocumentWithoutARoot) {
  window.Focus(&view.GetGraph().Panel());
  view.GetGraph().Selected().Add(*view.RootNode());
  window.Press(Key::Delete);
  LetACopyBeWritten();
  EXPECT_NE(Copied().find("$FloatingNodes"), std::string::npos);
  EXPECT_NE(Copied().find("The nest"), std::string::npos);
  // And one without any node, which no save takes.
  window.Chord({Key::LeftCtrl, Key::A});
  window.Press(Key::Delete);
  ASSERT_TRUE(view.ContentNodes().empty());
  window.Open(TESSELOR_DATA_DIR "/samples/dialogue.json");
  EXPECT_EQ(window.boxes.Texts(), Texts());
  EXPECT_EQ(window.NoticesShown(), Texts{"The unsaved changes of \"quest.json\" were kept."});
}

TEST_F(KeptWork, GoesWithTheUsersWordOnly) {
  Nudge();
  LetACopyBeWritten();
  window.boxes.choice = 2;
  view.RequestClose();
  EXPECT_NE(Copied(), "");
  window.boxes.choice = 1;
  view.RequestClose();
  EXPECT_EQ(Copied(), "");
}

TEST_F(KeptWork, IsBroughtUpToDateBeforeTheProcessEnds) {
  Nudge();
  view.Keeper()->WriteNow();
  EXPECT_TRUE(Copied() == window.Exported());
  window.Chord({Key::LeftCtrl, Key::S});
  view.Keeper()->WriteNow();
  EXPECT_EQ(Copied(), "");
}

TEST_F(KeptWork, IsSetAsideForAnotherDocumentAndRestored) {
  const std::string dialogue = TESSELOR_DATA_DIR "/samples/dialogue.json";
  const std::string path = view.FilePath();
  const std::function<void()> ways[] = {
      [&] { window.Open(dialogue); },
      [&] { view.ChangeRootType("Dialogue"); },
      [&] { window.Open("/nowhere/at/all.json"); },
  };
  for (const auto& replace : ways) {
    SCOPED_TRACE(&replace - ways);
    Nudge();
    LetACopyBeWritten();
    const std::string changed = window.Exported();
    replace();
    EXPECT_FALSE(window.Exported() == changed);
    EXPECT_EQ(window.NoticesShown(), Texts{"The unsaved changes of \"quest.json\" were kept."});
    EXPECT_TRUE(Copied() == changed);
    Press("Restore");
    EXPECT_EQ(window.NoticesShown(), Texts());
    EXPECT_TRUE(window.Exported() == changed);
    EXPECT_EQ(view.FilePath(), path);
    EXPECT_FALSE(view.IsSaved());
    LetACopyBeWritten();
    EXPECT_TRUE(Copied() == changed) << "the copy that was restored goes when the next one is there";
  }
  window.Open(dialogue);
  Press("Delete");
  EXPECT_EQ(Copies().size(), 0u);
  EXPECT_TRUE(view.IsSaved());
}

TEST_F(KeptWork, TellsOnceThatItIsNotThereAndIsTriedAgain) {
  const std::string told =
      "Unsaved changes can't be kept in \"" + (state.Path() / "rescue").string() + "\" for now. Save often.";
  // Nothing can be written below a file.
  state.Write("rescue", "");
  Nudge();
  LetACopyBeWritten();
  EXPECT_EQ(window.NoticesShown(), Texts{told});
  Press("Dismiss");
  Nudge();
  LetACopyBeWritten();
  EXPECT_EQ(window.NoticesShown(), Texts());
  fs::remove(state.Path() / "rescue");
  view.Keeper()->WriteNow();
  EXPECT_TRUE(Copied() == window.Exported()) << "no edit came since the copy that failed";
  // It is true as long as there is no copy, and something to keep.
  for (const bool isSaved : {false, true}) {
    SCOPED_TRACE(isSaved);
    Nudge();
    LetACopyBeWritten();
    fs::remove_all(state.Path() / "rescue");
    state.Write("rescue", "");
    Nudge();
    LetACopyBeWritten();
    EXPECT_EQ(window.NoticesShown(), Texts{told});
    if (!isSaved) fs::remove(state.Path() / "rescue");
    Nudge();
    if (isSaved)
      window.Chord({Key::LeftCtrl, Key::S});
    else
      LetACopyBeWritten();
    EXPECT_EQ(window.NoticesShown(), Texts());
  }
}

TEST_F(KeptWork, NeedsNoKeeperAfterItsLastCopy) {
  window.Wait(60000);
  ASSERT_LT(Toolkit::Dispatcher::Current().TimeToNext(), 0);
  {
    WorkKeeper keeper({[] { return false; }, [] { return RescuedDocument(); },
                       [] {
                         usleep(100000);
                         return std::string("text");
                       },
                       [](const RescuedDocument&, const std::string&) { return false; }},
                      view.Notices(), state.Path() / "rescue");
    keeper.StartCopy();
    keeper.Follow();
  }
  EXPECT_EQ(Copied(), "text");
  EXPECT_LT(Toolkit::Dispatcher::Current().TimeToNext(), 0) << "a copy is due that nobody can write";
}

TEST_F(KeptWork, KeepsTheDocumentOpenWhereNothingCanBeKept) {
  const std::string path = view.FilePath();
  LeaveSpare(path, window.Exported());
  window.Open(path);
  Nudge();
  const std::string changed = window.Exported();
  // Nothing can be written below a file.
  fs::remove_all(state.Path() / "rescue");
  state.Write("rescue", "");
  const std::function<void()> ways[] = {
      [&] { window.Open(TESSELOR_DATA_DIR "/samples/dialogue.json"); },
      [&] { EXPECT_FALSE(view.ChangeRootType("Dialogue")); },
      [&] { window.Open(path); },
      [&] { view.LoadFileAndWorkspace(); },
      [&] { Press("Open"); },
  };
  for (const auto& replace : ways) {
    window.boxes.boxes.clear();
    replace();
    EXPECT_EQ(window.boxes.Texts(),
              Texts{"Error: The unsaved changes of \"quest.json\" cannot be kept, so the document "
                    "stays open. Save it first."});
    EXPECT_TRUE(window.Exported() == changed);
    EXPECT_EQ(view.FilePath(), path);
    EXPECT_FALSE(view.IsSaved());
    EXPECT_TRUE(window.Shows("Root Node: Quest"));
  }
  unsetenv("XDG_STATE_HOME");
  // Nothing waits for the user to try.
  Nudge();
  LetACopyBeWritten();
  const Texts told{"Unsaved changes can't be kept in \"" + (state.Path() / "rescue").string() +
                   "\" for now. Save often."};
  EXPECT_EQ(window.NoticesShown(), told);
  fs::remove(state.Path() / "rescue");
  Nudge();
  LetACopyBeWritten();
  EXPECT_EQ(window.NoticesShown(), Texts());
  // What a save replaces.
  fs::remove_all(state.Path() / "history");
  state.Write("history", "");
  window.Chord({Key::LeftCtrl, Key::S});
  EXPECT_TRUE(view.IsSaved());
  EXPECT_EQ(window.NoticesShown(), Texts{"What \"quest.json\" held before this save could not be kept."});
}

TEST_F(KeptWork, OfRunsThatEndedIsOffered) {
  const std::string text = window.Exported();
  Abandon({"/somewhere/lost.json", "Quest", ""}, text);
  Abandon({"", "Quest", ""}, text);
  Abandon({"/somewhere/broken.json", "Nobody", ""}, "{");
  view.KeepWork(state.Path());
  ASSERT_EQ(window.NoticesShown().size(), 3u);
  for (const std::string& told : window.NoticesShown())
    EXPECT_NE(told.find("had unsaved changes when the editor ended"), std::string::npos);
  for (int i = 0; i < 3; ++i) Press("Later");
  EXPECT_EQ(Copies().size(), 3u);
  view.KeepWork(state.Path());
  EXPECT_EQ(window.NoticesShown().size(), 3u) << "later means the next start";
  const auto restore = [&](const char* name) {
    const Texts told = window.NoticesShown();
    const auto line =
        std::find_if(told.begin(), told.end(), [&](const std::string& text) { return text.starts_with(name); });
    ASSERT_NE(line, told.end()) << name;
    const auto fits = [](const Toolkit::Button& button) { return button.GetContent().AsStringView() == "Restore"; };
    std::vector<Toolkit::Button*> buttons = TestSupport::All<Toolkit::Button>(view.Notices());
    std::erase_if(buttons, [&](const Toolkit::Button* button) { return !fits(*button); });
    window.Click(*buttons.at(static_cast<size_t>(line - told.begin())));
  };
  restore("\"broken.json\"");
  EXPECT_EQ(window.boxes.Texts(), Texts{"Error: The kept state of \"/somewhere/broken.json\" cannot be read."});
  EXPECT_EQ(window.NoticesShown().size(), 3u) << "it is there for another try";
  EXPECT_TRUE(view.IsSaved());
  restore("\"lost.json\"");
  EXPECT_TRUE(window.Exported() == text);
  EXPECT_EQ(view.FilePath(), "/somewhere/lost.json");
  EXPECT_FALSE(view.IsSaved());
  restore("\"Untitled\"");
  EXPECT_EQ(TestSupport::All<StatusLine>(&view).at(0)->Text(), "Restored the unsaved changes of \"Untitled\"");
  EXPECT_TRUE(window.Exported() == text);
  EXPECT_EQ(view.FilePath(), "");
  EXPECT_EQ(window.NoticesShown().front(), "The unsaved changes of \"lost.json\" were kept.");
}

TEST_F(KeptWork, OffersWhatAFileHeldWhereASaveWasCutOff) {
  const std::string text = window.Exported(), path = view.FilePath();
  LeaveSpare(path, text);
  // Of a process that is still at it.
  SpareCopy present;
  ASSERT_TRUE(present.Write(path, "{}"));
  std::ofstream(path) << text.substr(0, text.size() / 2);
  const Texts told{"A save of \"" + fs::path(path).filename().string() +
                   "\" was cut off. What the file held before is kept."};
  window.Open(path);
  EXPECT_EQ(window.boxes.boxes.size(), 1u) << "the file can't be read";
  EXPECT_EQ(window.NoticesShown(), told);
  EXPECT_EQ(view.FilePath(), "");
  Press("Later");
  window.Open(path);
  EXPECT_EQ(window.NoticesShown(), told);
  Press("Open");
  EXPECT_TRUE(window.Exported() == text);
  EXPECT_EQ(view.FilePath(), path);
  EXPECT_FALSE(view.IsSaved());
  window.Chord({Key::LeftCtrl, Key::S});
  EXPECT_TRUE(TemporaryDirectory::Read(path) == text) << "no question stands in the way";
  window.Open(path);
  EXPECT_EQ(window.NoticesShown(), told);
  Press("Delete");
  EXPECT_TRUE(SpareCopy::LeftOf(path).empty());
  // What a save changes of it is told as after any load.
  std::string withDigits = text;
  LeaveSpare(path, withDigits.insert(1, R"("Extra": {"n": 0.12345678901234567890123},)"));
  window.Open(path);
  Press("Open");
  window.Wait(100);
  EXPECT_EQ(window.NoticesShown(), Texts{"Saving this file changes 1 value"});
  present.Remove();
  unsetenv("XDG_STATE_HOME");
}

} // namespace
} // namespace Tesselor
