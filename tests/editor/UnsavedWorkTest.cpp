// What counts as unsaved, and what the window asks before it is lost.
#include "WindowStage.h"
#include "toolkit/controls/MenuItem.h"
#include "toolkit/controls/Slider.h"
#include "toolkit/controls/TextBlock.h"

#include <gtest/gtest.h>

namespace Tesselor {
namespace {

using TestSupport::WindowStage;
using Toolkit::Key;

class UnsavedWork : public testing::Test {
protected:
  UnsavedWork() : window("quest"), view(window.View()) { window.Focus(&view.GetGraph().Panel()); }

  std::string ShownName() {
    window.Settle();
    return std::string(TestSupport::Named<Toolkit::TextBlock>(view, "DocumentName").GetText());
  }
  /// Moves the selected node as one step.
  void Nudge() {
    window.Focus(&view.GetGraph().Panel());
    view.GetGraph().Selected().Clear();
    view.GetGraph().Selected().Add(window.Node("The nest"));
    window.Press(Key::Right);
    view.GetGraph().Selected().Clear();
  }
  Toolkit::TextBox& Box() {
    return TestSupport::First<Toolkit::TextBox>(
        TestSupport::Named<Toolkit::UIElement>(window.Node("The nest"), "NodeContent"));
  }
  void ChooseClose() {
    for (const char* header : {"File", "Close"})
      window.Click(*TestSupport::Find<Toolkit::MenuItem>(
          view, [&](const Toolkit::MenuItem& item) { return item.GetHeader().AsStringView() == header; }));
  }
  using Texts = std::vector<std::string>;

  WindowStage window;
  MainView& view;
  const std::string plain = "quest.json", dotted = "quest.json \u2022";
};

TEST_F(UnsavedWork, IsADotBehindTheNameUntilASaveOrAnUndo) {
  EXPECT_EQ(ShownName(), plain);
  Nudge();
  EXPECT_EQ(ShownName(), dotted);
  window.Undo();
  EXPECT_EQ(ShownName(), plain);
  window.Redo();
  EXPECT_EQ(ShownName(), dotted);
  window.Chord({Key::LeftCtrl, Key::S});
  EXPECT_EQ(ShownName(), plain);
  // A further press goes on with the same step.
  Nudge();
  EXPECT_EQ(ShownName(), dotted);
  window.Chord({Key::LeftCtrl, Key::S});
  window.Undo();
  EXPECT_EQ(ShownName(), dotted) << "the file holds what was undone";
  // And so does one that resizes a frame.
  view.GetGraph().Selected().Clear();
  view.GetGraph().Selected().Add(*view.GroupNodes().front());
  for (int i = 0; i < 2; ++i) {
    window.Chord({Key::LeftCtrl, Key::LeftShift, Key::Right});
    EXPECT_EQ(ShownName(), dotted) << i;
    window.Chord({Key::LeftCtrl, Key::S});
    EXPECT_EQ(ShownName(), plain) << i;
  }
  window.Undo();
  // Another step in place of the undone one leads to another document, although there are as many steps.
  window.Undo();
  Nudge();
  EXPECT_EQ(ShownName(), dotted);
  window.dialogs.path = TESSELOR_DATA_DIR "/samples/dialogue.json";
  window.Chord({Key::LeftCtrl, Key::O});
  EXPECT_EQ(ShownName(), "dialogue.json");
}

TEST_F(UnsavedWork, CountsWhatIsBeingTypedButNoSearch) {
  window.LookAt(window.Node("The nest"));
  const std::string before(Box().GetText());
  window.TypeInto(Box(), "another");
  EXPECT_EQ(window.History().Size(), 0u);
  EXPECT_EQ(ShownName(), dotted);
  window.TypeInto(Box(), before);
  EXPECT_EQ(ShownName(), plain) << "what stands there again is no change";
  auto* slider = TestSupport::All<Toolkit::Slider>(*view.RootNode()).at(0);
  window.Focus(slider);
  window.Press(Key::Right);
  EXPECT_EQ(ShownName(), dotted);
  window.Press(Key::Left);
  EXPECT_EQ(ShownName(), plain);
  window.Chord({Key::LeftCtrl, Key::F});
  window.Type("nest");
  window.Wait(300);
  EXPECT_EQ(ShownName(), plain);
}

TEST_F(UnsavedWork, IsAskedForBeforeTheWindowCloses) {
  const std::function<void()> ways[] = {[&] { ChooseClose(); }, [&] { view.RequestClose(); }};
  for (const auto& close : ways) {
    SCOPED_TRACE(&close - ways);
    window.LookAt(window.Node("The nest"));
    window.TypeInto(Box(), &close == ways ? "once" : "twice");
    // Neither Escape nor Cancel closes it, and neither does a save that fails.
    for (const std::optional<size_t> refusal : {std::optional<size_t>(), std::optional<size_t>(2)}) {
      window.boxes.boxes.clear();
      window.boxes.choice = refusal;
      close();
      EXPECT_EQ(window.boxes.Texts(), Texts{"Attention!: \"quest.json\" has unsaved changes."});
      EXPECT_EQ(window.boxes.boxes.at(0).choices, (Texts{"Save", "Don't save", "Cancel"}));
      EXPECT_FALSE(view.IsClosed());
      EXPECT_FALSE(view.IsSaved());
    }
  }
  const std::string path = view.FilePath();
  std::filesystem::rename(path, path + ".away");
  std::filesystem::create_directory(path);
  window.boxes.choice = 0;
  view.RequestClose();
  EXPECT_FALSE(view.IsClosed()) << "the save failed";
  std::filesystem::remove(path);
  view.RequestClose();
  EXPECT_TRUE(view.IsClosed());
  EXPECT_NE(TestSupport::TemporaryDirectory::Read(path).find("twice"), std::string::npos);
}

TEST_F(UnsavedWork, GoesIfTheUserSaysSoAndASavedDocumentAsksNothing) {
  const std::string file = TestSupport::TemporaryDirectory::Read(view.FilePath());
  Nudge();
  window.boxes.choice = 1;
  view.RequestClose();
  EXPECT_TRUE(view.IsClosed());
  EXPECT_EQ(TestSupport::TemporaryDirectory::Read(view.FilePath()), file);
  for (const bool isChanged : {false, true}) {
    SCOPED_TRACE(isChanged);
    WindowStage other("quest");
    if (isChanged) {
      other.Focus(&other.View().GetGraph().Panel());
      other.View().GetGraph().Selected().Add(other.Node("The nest"));
      other.Press(Key::Right);
      other.Chord({Key::LeftCtrl, Key::S});
    }
    other.View().RequestClose();
    EXPECT_EQ(other.boxes.Texts(), Texts());
    EXPECT_TRUE(other.View().IsClosed());
  }
}

} // namespace
} // namespace Tesselor
