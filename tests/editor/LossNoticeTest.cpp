// What the window tells of a file that a save changes.
#include "WindowStage.h"
#include "editor/LossPanel.h"
#include "editor/NoticeBar.h"
#include "platform/JsonMemory.h"
#include "toolkit/application/MessageBox.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/ItemsControl.h"
#include "toolkit/controls/ScrollViewer.h"
#include "toolkit/controls/TextBlock.h"
#include "workspace/NodeDictionary.h"
#include "workspace/RootType.h"
#include "workspace/Workspace.h"

#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

namespace Tesselor {
namespace {

using TestSupport::WindowStage;
using Toolkit::Key;

class LossNotices : public testing::Test {
protected:
  LossNotices() {
    std::string stages;
    for (int i = 0; i < 100; ++i)
      stages += (i ? "," : "") + std::string(R"({"$NodeId": "Item-)") + std::to_string(i) + R"(", "Label": )" +
                std::to_string(i) + "}";
    many = Write("many.json", R"("Items": [)" + stages + "]");
    one = Write("one.json", R"("Items": [{"$NodeId": "Item-1", "Label": 7}])");
    none = Write("none.json", R"("Items": [{"$NodeId": "Item-1", "Label": "7"}])");
    window = std::make_unique<WindowStage>(TestSupport::WindowSetup{.directory = workspace.Path()});
  }
  std::string Write(const char* name, const std::string& members) {
    return workspace.Write(name, R"({"$WorkspaceID": "Doc", "$NodeId": "Doc-0", )" + members + "}");
  }
  /// The lines of the bar once the file is loaded.
  std::vector<std::string> Told(const std::string& path) {
    window->Open(path);
    EXPECT_EQ(window->View().Notices().Lines().Count(), 0u) << "told before the document was seen";
    window->Wait(100);
    std::vector<std::string> texts;
    const auto& lines = window->View().Notices().Lines();
    for (size_t i = 0; i < lines.Count(); ++i) texts.push_back(lines.Get(i)->GetText().ToString());
    return texts;
  }
  /// Of 600 nodes, the last of which has a value that a save changes.
  static std::string ItemsOfALargeFile() {
    std::string items;
    for (int i = 0; i < 600; ++i)
      items += (i ? "," : "") + std::string(R"({"$NodeId": "Item-n)") + std::to_string(i) + R"(", "Label": )" +
               (i == 599 ? "5" : "\"t\"") + "}";
    return R"("Items": [)" + items + "]";
  }
  void WaitForTheChild(int tries) {
    for (int i = 0; i < tries && window->View().Notices().Lines().Count() == 0; ++i) {
      usleep(10000);
      window->Settle();
    }
  }
  void Nudge() {
    window->Focus(&window->View().GetGraph().Panel());
    window->View().GetGraph().Selected().Add(*window->View().RootNode());
    window->Press(Key::Right);
  }
  Toolkit::Button& Button(const char* caption) {
    return *TestSupport::Find<Toolkit::Button>(window->View().Notices(), [&](const Toolkit::Button& button) {
      return button.GetContent().AsStringView() == caption;
    });
  }
  LossPanel& Panel() { return *TestSupport::All<LossPanel>(window->Root()).front(); }
  Toolkit::ItemsControl& List() { return TestSupport::Named<Toolkit::ItemsControl>(Panel(), "LineList"); }
  /// Of the lines that are made.
  size_t LineCount() { return List().ItemsHost()->ChildCount(); }
  /// The indices of the lines that are shown as selected.
  std::vector<size_t> Marked() {
    std::vector<size_t> marked;
    for (size_t i = 0; i < LineCount(); ++i)
      if (static_cast<const LossLine*>(List().ItemAt(i))->IsSelected()) marked.push_back(i);
    return marked;
  }
  std::string SelectedId() const {
    const auto& selected = window->View().GetGraph().Selected().GetNodes();
    const auto* node = selected.empty() ? nullptr : Toolkit::DynamicCast<ContentNode>(selected.front().Get());
    return node ? node->NodeId() : "";
  }
  using Texts = std::vector<std::string>;

  TestSupport::TestWorkspace workspace{{R"({"id": "Doc", "title": "Doc", "color": "blue",
      "outputs": [{"id": "items", "Type": "T", "color": "red", "Multiple": true}],
      "Schema": {"Items": {"node": "Item", "pin": "items"}}})",
                                        R"({"id": "Item", "title": "Item", "color": "blue",
      "inputs": [{"id": "in", "Type": "T", "color": "red", "Multiple": true}],
      "outputs": [{"id": "items", "Type": "T", "color": "red", "Multiple": true}], "content": [{"Id": "label", "Type": "SmallString"}],
      "Schema": {"Label": "label", "Items": {"node": "Item", "pin": "items"}}})"}};
  std::string many, one, none;
  std::unique_ptr<WindowStage> window;
};

TEST_F(LossNotices, TellHowManyValuesASaveChangesUntilTheyAreSavedOrLeft) {
  EXPECT_EQ(Told(none), Texts());
  EXPECT_EQ(Told(one), Texts{"Saving this file changes 1 value"});
  EXPECT_EQ(Told(many), Texts{"Saving this file changes 100 values"});
  window->Click(Button("Details"));
  EXPECT_TRUE(Panel().IsOpen());
  window->Chord({Key::LeftCtrl, Key::S});
  EXPECT_FALSE(Panel().IsOpen());
  EXPECT_EQ(window->View().Notices().Lines().Count(), 0u);
  EXPECT_EQ(Told(many), Texts()) << "the file is written as it is";
  window->Open(none);
  window->Focus(&window->View().GetGraph().Panel());
  window->View().GetGraph().Selected().Add(*window->View().GetGraph().FindNodeById("1"));
  window->Press(Key::Delete);
  window->Wait(100);
  EXPECT_EQ(window->View().Notices().Lines().Count(), 0u) << "what is deleted before is no loss";
}

TEST_F(LossNotices, ListTheValuesAndLeadToTheirNodesByClicksAndKeys) {
  Told(many);
  EXPECT_FALSE(Panel().IsOpen());
  window->Click(Button("Details"));
  EXPECT_EQ(LineCount(), 60u) << "lines are made as they are scrolled to";
  const auto texts = TestSupport::All<Toolkit::TextBlock>(Panel());
  const auto shows = [&](const char* text) {
    return std::any_of(texts.begin(), texts.end(), [&](const auto* block) { return block->GetText() == text; });
  };
  for (const char* text : {"Saving changes 100 values", "$.Items[1].Label", "1", "nothing"})
    EXPECT_TRUE(shows(text)) << text;

  for (int i = 0; i < 60 && LineCount() == 60; ++i) window->Wheel(Panel(), -1);
  EXPECT_EQ(LineCount(), 100u);
  window->Click(Button("Details"));
  EXPECT_EQ(LineCount(), 60u) << "opened anew";
  EXPECT_EQ(TestSupport::All<Toolkit::ScrollViewer>(Panel()).at(0)->ScrollOffset().y, 0);
  window->Press(Key::Down);
  window->Press(Key::Down);
  EXPECT_EQ(SelectedId(), "") << "a step alone shows no node";
  window->Press(Key::Return);
  EXPECT_EQ(SelectedId(), "1");
  const Toolkit::Point away =
      WindowStage::MiddleOf(*window->View().GetGraph().FindNodeById("1")) - WindowStage::MiddleOf(window->Canvas());
  EXPECT_LT(std::abs(away.x) + std::abs(away.y), 2);
  EXPECT_EQ(Marked(), std::vector<size_t>{1});
  window->Press(Key::Up);
  window->Press(Key::Up);
  EXPECT_EQ(Marked(), std::vector<size_t>{0});
  window->Press(Key::Return);
  EXPECT_EQ(SelectedId(), "0");
  for (int i = 0; i < 12; ++i) window->Press(Key::PageDown);
  window->Press(Key::Return);
  EXPECT_EQ(SelectedId(), "99");
  EXPECT_EQ(LineCount(), 100u);
  for (int i = 0; i < 12; ++i) window->Press(Key::PageUp);
  window->Click(*TestSupport::Find<Toolkit::TextBlock>(
      Panel(), [](const Toolkit::TextBlock& block) { return block.GetText() == "$.Items[2].Label"; }));
  EXPECT_EQ(SelectedId(), "2");
  window->Press(Key::Escape);
  EXPECT_FALSE(Panel().IsOpen());
  window->Click(Button("Details"));
  window->Press(Key::Return);
  EXPECT_EQ(SelectedId(), "0") << "a list that is opened anew begins at its top";
}

TEST_F(LossNotices, ComeFromAChildForALargeDocument) {
  const std::string items = ItemsOfALargeFile();
  const std::string large = Write("large.json", items);
  Told(large);
  Nudge();
  WaitForTheChild(1000);
  ASSERT_EQ(window->View().Notices().Lines().Count(), 1u);
  EXPECT_EQ(window->View().Notices().Lines().Get(0)->GetText(), "Saving this file changes 1 value");
  window->Click(Button("Details"));
  window->Press(Key::Return);
  EXPECT_EQ(SelectedId(), "n599");

  Write("large.json", items);
  Told(large);
  EXPECT_TRUE(window->View().Save());
  WaitForTheChild(20);
  EXPECT_EQ(window->View().Notices().Lines().Count(), 0u) << "the file is written as it is";
}

/// Ends each process but this one at its first allocation for JSON, as a system that is short of memory may, but not
/// before it is told.
class DeadlyMemory {
public:
  DeadlyMemory() : former(JsonMemory::SetAllocator({&Allocate, &std::free})) {
    own = getpid();
    EXPECT_EQ(pipe(gate), 0);
  }
  ~DeadlyMemory() {
    JsonMemory::SetAllocator(former);
    for (const int end : gate) close(end);
  }
  void Strike() { EXPECT_EQ(write(gate[1], "x", 1), 1); }

private:
  static void* Allocate(size_t size) {
    char byte;
    if (getpid() != own && read(gate[0], &byte, 1) == 1) raise(SIGKILL);
    return std::malloc(size);
  }
  static inline pid_t own = 0;
  static inline int gate[2];
  JsonMemory::Allocator former;
};

TEST_F(LossNotices, ComeWithoutAChildIfItDiesOrCanNotBe) {
  const std::string large = Write("large.json", ItemsOfALargeFile());
  const Texts told{"Saving this file changes 1 value"};
  const JsonMemory routed;
  for (const bool isEdited : {false, true}) {
    SCOPED_TRACE(isEdited);
    DeadlyMemory memory;
    EXPECT_EQ(Told(large), Texts());
    if (isEdited) Nudge();
    memory.Strike();
    WaitForTheChild(isEdited ? 20 : 1000);
    EXPECT_EQ(window->View().Notices().Lines().Count(), isEdited ? 0u : 1u) << "what was edited since is no loss";
    window->Undo();
  }
  // Without a descriptor for its answer.
  window->Open(large);
  rlimit former{};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &former), 0);
  const rlimit none{0, former.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
  window->Wait(100);
  EXPECT_EQ(setrlimit(RLIMIT_NOFILE, &former), 0);
  EXPECT_EQ(window->View().Notices().Lines().Count(), 1u);
}

TEST_F(LossNotices, AskBeforeASaveMultipliesTheDocument) {
  Told(none);
  MainView& view = window->View();
  Graph& graph = view.GetGraph();
  const auto add = [&] {
    const Toolkit::Ptr<ContentNode> node = view.CurrentRoot()->workspace->nodeDictionary->CreateNode("Item", true);
    graph.AddNode(*node, 0, 0, false);
    return node.Get();
  };
  const auto connect = [&](ContentNode& parent, ContentNode& child) {
    graph.Attach(*Toolkit::MakePtr<Connection>(*child.FindPin("in"), *parent.FindPin("items")));
  };
  ContentNode* above = view.RootNode();
  for (int i = 0; i < 7; ++i) {
    ContentNode &left = *add(), &right = *add(), &next = *add();
    for (ContentNode* side : {&left, &right}) {
      connect(*above, *side);
      connect(*side, next);
    }
    above = &next;
  }
  const std::string before = TestSupport::TemporaryDirectory::Read(none);
  window->boxes.choice = 1;
  EXPECT_FALSE(view.Save());
  EXPECT_EQ(
      window->boxes.Texts(),
      Texts{"Attention!: Nodes with several parents are written below each of them. The file will hold 510 nodes, "
            "and the document has 23. Do you want to save it?"});
  EXPECT_EQ(TestSupport::TemporaryDirectory::Read(none), before);
  window->boxes.choice = 0;
  EXPECT_FALSE(view.Save()) << "the answer saves";
  EXPECT_NE(TestSupport::TemporaryDirectory::Read(none), before);
  window->boxes.boxes.clear();
  EXPECT_TRUE(view.Save()) << "agreed to once";
  window->Open(none);
  EXPECT_TRUE(view.Save()) << "the file is that large already";
  EXPECT_TRUE(window->boxes.boxes.empty());
}

} // namespace
} // namespace Tesselor
