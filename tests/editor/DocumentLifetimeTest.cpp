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

} // namespace
} // namespace Tesselor
