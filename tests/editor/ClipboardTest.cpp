// Copying, cutting, pasting and duplicating by keys, in the whole window.
#include "WindowStage.h"
#include "editor/NodeSearchPanel.h"
#include "nodes/ReferenceNode.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/Slider.h"
#include "toolkit/controls/TextBox.h"
#include "workspace/NodeDictionary.h"
#include "workspace/RootType.h"
#include "workspace/Workspace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace Tesselor {
namespace {

using TestSupport::WindowStage;
using Toolkit::DynamicCast;
using Toolkit::Key;
using Toolkit::Point;
using Toolkit::Ptr;
using Toolkit::Rect;

class ClipboardKeys : public testing::Test {
protected:
  ClipboardKeys() : window("quest"), graph(window.View().GetGraph()) {}

  void Copy() { window.Chord({Key::LeftCtrl, Key::C}); }
  void Cut() { window.Chord({Key::LeftCtrl, Key::X}); }
  void Paste() { window.Chord({Key::LeftCtrl, Key::V}); }
  void Duplicate() { window.Chord({Key::LeftCtrl, Key::D}); }
  void SelectAll() { window.Chord({Key::LeftCtrl, Key::A}); }
  void Select(const std::vector<BaseNode*>& nodes) {
    graph.Selected().Clear();
    for (BaseNode* node : nodes) graph.Selected().Add(*node);
  }
  Selection::Nodes Selected() const { return graph.Selected().GetNodes(); }
  size_t Count() const { return graph.ContentNodes().size() + graph.GroupNodes().size() + graph.CommentNodes().size(); }
  std::string Clipboard() const { return window.clipboard.text.value_or("none"); }
  /// The upper left corner of some nodes.
  static Point CornerOf(const Selection::Nodes& nodes) {
    Point corner{INFINITY, INFINITY};
    for (const auto& node : nodes)
      corner = {std::min(corner.x, node->Bounds().x), std::min(corner.y, node->Bounds().y)};
    return corner;
  }
  /// Where nodes of some titles stand beside the corner of all.
  static std::multimap<std::string, std::pair<float, float>> Layout(const Selection::Nodes& nodes) {
    const Point corner = CornerOf(nodes);
    std::multimap<std::string, std::pair<float, float>> layout;
    for (const auto& node : nodes) {
      std::string title(node->Title());
      if (title.starts_with("[ROOT] ")) title = title.substr(7);
      layout.emplace(title, std::pair(node->Bounds().x - corner.x, node->Bounds().y - corner.y));
    }
    return layout;
  }
  size_t ConnectionsAmong(const Selection::Nodes& nodes) const {
    size_t count = 0;
    for (const auto& connection : graph.Connections().GetConnections())
      for (const auto& node : nodes) count += connection->GetInputNode() == node.Get();
    return count;
  }
  /// Takes back the newest step and does it again; what it made is in the document again, and nothing else is.
  void ExpectOneStep(const std::string& before, size_t steps = 1) {
    const std::string after = window.Exported();
    EXPECT_NE(after, before);
    EXPECT_EQ(window.History().Size(), steps);
    for (int i = 0; i < 2; ++i) {
      window.Undo();
      EXPECT_EQ(window.Exported(), before);
      window.Redo();
      EXPECT_EQ(window.Exported(), after);
    }
  }

  WindowStage window;
  Graph& graph;
};

TEST_F(ClipboardKeys, CopyAndPasteTheWholeDocument) {
  const std::string before = window.Exported();
  SelectAll();
  const Selection::Nodes originals = Selected();
  ASSERT_EQ(originals.size(), Count());
  Copy();
  EXPECT_EQ(window.Exported(), before);
  Paste();
  const Selection::Nodes pasted = Selected();
  EXPECT_EQ(pasted.size(), originals.size());
  EXPECT_EQ(Layout(pasted), Layout(originals));
  EXPECT_EQ(ConnectionsAmong(pasted), ConnectionsAmong(originals));
  for (const auto& node : pasted) {
    EXPECT_TRUE(node->IsSelected());
    EXPECT_EQ(std::count(originals.begin(), originals.end(), node), 0);
    const auto* reference = DynamicCast<ReferenceNode>(node.Get());
    EXPECT_TRUE(!reference || reference->FileName() != "File");
  }
  for (const auto& node : originals) EXPECT_FALSE(node->IsSelected());
  ExpectOneStep(before);
  EXPECT_EQ(Count(), 2 * originals.size());
  EXPECT_EQ(Selected(), pasted) << "the undo and the redo in between have brought each selection back";
  // A second paste is a tree of its own.
  const std::string once = window.Exported();
  Paste();
  EXPECT_EQ(Layout(Selected()), Layout(originals));
  EXPECT_EQ(Count(), 3 * originals.size());
  ExpectOneStep(once, 2);
  window.Undo();
  window.Undo();
  EXPECT_EQ(window.Exported(), before);
}

TEST_F(ClipboardKeys, PasteWhereTheUserSeesIt) {
  ContentNode& node = window.Node("The nest");
  Select({&node, graph.CommentNodes()[0].Get()});
  Copy();
  const Rect view = WindowStage::BoxOf(window.Canvas());
  const Point middle{view.x + view.width / 2, view.y + view.height / 2};
  const Point inSight{view.x + 300, view.y + 200}, onMenuBar{300, 10};
  for (const float zoom : {1.0f, 0.3f}) {
    // Zoomed out, and far from what was copied.
    window.LookAt(*graph.Root(), zoom);
    const auto expectCornerAt = [&](Point place) {
      const size_t count = Count();
      Paste();
      EXPECT_EQ(Count(), count + 2);
      EXPECT_EQ(Selected().size(), 2u);
      const Point corner = window.ToWindow(CornerOf(Selected()));
      EXPECT_NEAR(corner.x, place.x, 0.1);
      EXPECT_NEAR(corner.y, place.y, 0.1);
    };
    expectCornerAt(middle);
    window.MoveTo(inSight);
    expectCornerAt(inSight);
    window.MoveTo(onMenuBar);
    expectCornerAt(middle);
    window.MoveTo(inSight);
    window.Chord({Key::LeftCtrl, Key::F});
    window.MoveTo(TestSupport::First<NodeSearchPanel>(window.Root()));
    window.Focus(nullptr);
    expectCornerAt(middle);
  }
  // A frame keeps the width of its border on screen.
  const auto* comment = DynamicCast<CommentNode>(Selected().back().Get());
  ASSERT_TRUE(comment);
  EXPECT_NEAR(comment->Get<float>(CommentNode::BorderThicknessProperty), 7.5f / window.Canvas().GetZoom(), 0.001);
}

TEST_F(ClipboardKeys, ReplaceTheClipboardByNothingIfNothingIsSelected) {
  window.clipboard.text = "former";
  Copy();
  EXPECT_EQ(Clipboard(), "");
  window.clipboard.text = "former";
  graph.Connections().Select(*graph.Connections().GetConnections().front());
  Copy();
  EXPECT_EQ(Clipboard(), "");
  const std::string before = window.Exported();
  window.clipboard.text = "former";
  Cut();
  Duplicate();
  EXPECT_EQ(Clipboard(), "former");
  EXPECT_EQ(window.Exported(), before);
  EXPECT_EQ(window.History().Size(), 0u);
}

TEST_F(ClipboardKeys, PasteNothingOfWhatIsNoNode) {
  ContentNode& node = window.Node("The nest");
  Select({&node});
  window.Chord({Key::LeftCtrl, Key::F});
  const std::string before = window.Exported();
  const auto panel = [this] { return TestSupport::All<NodeSearchPanel>(window.Root()).at(0)->IsOpen(); };
  ASSERT_TRUE(panel());
  window.Focus(nullptr);
  for (const char* text : {"word", "foo}{bar", "", "42"}) {
    SCOPED_TRACE(text);
    window.log.lines.clear();
    window.clipboard.text = text;
    Paste();
    const std::string logged = std::string(text) == "42" ? "a JSON object" : "valid JSON";
    const size_t lines = std::string(text).empty() ? 0 : std::string(text) == "foo}{bar" ? 2 : 1;
    EXPECT_EQ(window.log.lines, std::vector<std::string>(lines, "Pasted content is not " + logged + ", ignoring..."));
    EXPECT_EQ(Selected(), Selection::Nodes{Ptr<BaseNode>(&node)});
    EXPECT_TRUE(panel());
  }
  window.clipboard.text = "{}";
  Paste();
  EXPECT_EQ(window.Exported(), before);
  EXPECT_EQ(window.History().Size(), 0u);
}

TEST_F(ClipboardKeys, CutWhatWasCopied) {
  ContentNode& node = window.Node("Three flasks from Tobin");
  ContentNode& parent = *node.FirstInput()->connections.at(0)->owner;
  Select({&node, &parent});
  const std::string before = window.Exported();
  // The connection that is selected besides stays.
  Connection& other = *graph.Connections().ConnectionsOf(*graph.Root()).at(0);
  graph.Connections().Select(other);
  window.clipboard.isBusy = true;
  Cut();
  EXPECT_EQ(window.Exported(), before) << "nothing was copied";
  window.clipboard.isBusy = false;
  Cut();
  EXPECT_FALSE(graph.Contains(node));
  EXPECT_FALSE(graph.Contains(parent));
  EXPECT_TRUE(graph.Connections().Contains(other));
  EXPECT_TRUE(graph.Selected().IsEmpty());
  ExpectOneStep(before);
  Paste();
  ASSERT_EQ(Selected().size(), 2u);
  EXPECT_EQ(ConnectionsAmong(Selected()), 1u);
}

TEST_F(ClipboardKeys, CutAGroupWithWhatLiesInIt) {
  GroupNode& group = *graph.GroupNodes()[1];
  const std::string before = window.Exported();
  graph.Selected().Add(group);
  graph.Selected().AddContentsOf(group, graph);
  const Selection::Nodes all = graph.Selected().AllNodes();
  ASSERT_GT(all.size(), 3u);
  const auto layout = Layout(all);
  const size_t count = Count();
  Cut();
  EXPECT_EQ(Count(), count - all.size());
  ExpectOneStep(before);
  Paste();
  EXPECT_EQ(Layout(Selected()), layout);
  EXPECT_EQ(Count(), count);
}

TEST_F(ClipboardKeys, TellOfACopyThatIsNestedTooDeeply) {
  // Stages that lead to stages, each in a list of the one before.
  const NodeDictionary& dictionary = *window.View().CurrentRoot()->workspace->nodeDictionary;
  Select({});
  const ContentNode* last = nullptr;
  for (int i = 0; i < 600; ++i) {
    const Ptr<ContentNode> stage = dictionary.CreateNode("Stage", true);
    graph.Add(*stage, {750000, 750000});
    if (last) graph.Attach(*Toolkit::MakePtr<Connection>(*stage->FindPin("In"), *last->FindPin("Next")));
    graph.Selected().Add(*stage);
    last = stage.Get();
  }
  const size_t count = Count();
  window.clipboard.text = "former";
  const std::vector<std::string> told = {
      "Cannot Copy: The selected nodes can't be copied: too many of them hang below each other. A copy may be nested "
      "1000 levels deep, and a node in a list takes two of them. Please copy them in parts."};
  for (const Key key : {Key::C, Key::X, Key::D}) {
    window.boxes.boxes.clear();
    window.Chord({Key::LeftCtrl, key});
    EXPECT_EQ(window.boxes.Texts(), told);
    EXPECT_EQ(Clipboard(), "former");
    EXPECT_EQ(Count(), count);
  }
}

TEST_F(ClipboardKeys, TellOnceOfWhatCannotBePastedAsItIs) {
  std::string deep = "{}";
  for (size_t i = 0; i < JsonNestingLimit; ++i) deep = R"({"a":)" + deep + "}";
  const auto node = [](const std::string& type) { return R"({"$NodeId": ")" + type + "\"}"; };
  const auto unknown = [](const std::string& type) {
    return "Could not find node id: " + type + ". A generic node will be created";
  };
  const std::string deepTold = "Cannot Paste: Not all of the clipboard's text can be pasted: it nests more than 1000 "
                               "levels deep.";
  const struct {
    std::string text, box;
    std::vector<std::string> log;
    size_t nodes;
  } cases[] = {
      {node("Nix") + node("Generic") + node("Nix") + node("Nil"),
       "Attention!: Could not find node ids: Nix, Nil. Generic nodes will be created",
       {unknown("Nix"), unknown("Nix"), unknown("Nil")},
       4},
      {node("Nix") + node("Nix"), "Attention!: " + unknown("Nix"), {unknown("Nix"), unknown("Nix")}, 2},
      {deep + node("Generic") + deep,
       deepTold,
       {"Pasted content is nested too deeply, ignoring...", "Pasted content is nested too deeply, ignoring..."},
       1},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.text.substr(0, 60));
    const size_t before = Count();
    window.clipboard.text = each.text;
    window.boxes.boxes.clear();
    window.log.lines.clear();
    Paste();
    EXPECT_EQ(window.boxes.Texts(), std::vector<std::string>{each.box});
    EXPECT_EQ(window.log.lines, each.log);
    EXPECT_EQ(Count(), before + each.nodes);
  }
}

TEST_F(ClipboardKeys, DuplicateBesideTheOriginals) {
  window.clipboard.text = "former";
  ContentNode& node = window.Node("The nest");
  const std::string before = window.Exported();
  Select({&node, graph.CommentNodes()[0].Get(), graph.GroupNodes()[0].Get()});
  const Selection::Nodes originals = Selected();
  window.MoveTo(window.EmptySpot());
  for (size_t i = 1; i <= 2; ++i) {
    Duplicate();
    const Selection::Nodes copies = Selected();
    EXPECT_EQ(Layout(copies), Layout(originals));
    const float distance = static_cast<float>(i) * 20;
    EXPECT_EQ(CornerOf(copies), (CornerOf(originals) + Point{distance, distance}));
    EXPECT_EQ(window.History().Size(), i);
  }
  EXPECT_EQ(Clipboard(), "former");
  window.Undo();
  EXPECT_EQ(Layout(Selected()), Layout(originals));
  EXPECT_NE(Selected(), originals) << "the first copies, which were selected when they were duplicated";
  window.Undo();
  EXPECT_EQ(Selected(), originals);
  EXPECT_FALSE(graph.Selected().GroupContents().empty()) << "a drag takes them along";
  EXPECT_EQ(window.Exported(), before);
  // What the user has selected since stays, and so does what is gone.
  Duplicate();
  BaseNode& other = *graph.ContentNodes()[1];
  ASSERT_NE(&other, &node);
  Select({&other});
  window.Undo();
  window.Redo();
  EXPECT_EQ(Selected(), Selection::Nodes{Ptr<BaseNode>(&other)});
}

TEST_F(ClipboardKeys, LetADragMoveWhatWasPastedOnce) {
  GroupNode& group = *graph.GroupNodes()[1];
  window.LookAt(group, 0.2f);
  // A click on the group takes its contents along.
  const auto gripOf = [](const GroupNode& node) {
    const Rect box = WindowStage::BoxOf(node);
    return Point{box.x + 12, box.y + 12};
  };
  window.Click(gripOf(group));
  ASSERT_FALSE(graph.Selected().GroupContents().empty());
  Copy();
  window.MoveTo({300, 300});
  Paste();
  const Selection::Nodes pasted = Selected();
  ASSERT_GT(pasted.size(), 3u);
  const auto layout = Layout(pasted);
  const Point corner = CornerOf(pasted);
  GroupNode* copy = DynamicCast<GroupNode>(pasted.back().Get());
  ASSERT_TRUE(copy);
  const Point grip = gripOf(*copy);
  window.Drag(grip, {grip.x + 40, grip.y + 20});
  EXPECT_EQ(Layout(pasted), layout);
  EXPECT_NEAR(CornerOf(pasted).x, corner.x + 40 / window.Canvas().GetZoom(), 0.2);
  EXPECT_EQ(window.History().Size(), 2u);
}

TEST_F(ClipboardKeys, EndWhatIsUnderWay) {
  ContentNode& node = window.Node("The nest");
  Select({&node});
  Copy();
  for (const Key key : {Key::V, Key::D, Key::X}) {
    window.LookAt(node);
    Select({&node});
    const Rect start = node.Bounds();
    const Rect box = WindowStage::BoxOf(node);
    window.Press(Point{box.x + box.width / 2, box.Bottom() - 5});
    window.MoveTo({300, 300});
    EXPECT_NE(node.Bounds().x, start.x);
    window.Chord({Key::LeftCtrl, key});
    EXPECT_EQ(node.Bounds().x, start.x) << "the drag";
    window.Release(Point{300, 300});
    EXPECT_EQ(window.History().Size() - window.History().UndoneCount(), 1u);
    window.Undo();
  }
}

TEST_F(ClipboardKeys, GoToTheTextBoxThatHasTheFocus) {
  ContentNode& root = *graph.Root();
  window.LookAt(root);
  Select({&root});
  Copy();
  const std::string copied = Clipboard();
  const size_t count = Count();
  Toolkit::TextBox& box = window.FieldPart<Toolkit::TextBox>(root, "Title");
  window.Focus(&box);
  window.Type("typed");
  const std::string typed(box.GetText());
  Paste();
  EXPECT_EQ(Count(), count);
  EXPECT_NE(box.GetText(), typed);
  window.Chord({Key::LeftCtrl, Key::A});
  Copy();
  EXPECT_NE(Clipboard(), copied);
  Cut();
  EXPECT_EQ(box.GetText(), "");
  EXPECT_TRUE(graph.Contains(root));
}

TEST_F(ClipboardKeys, TakeAnEditUnderWayForAStepBefore) {
  ContentNode& root = *graph.Root();
  Select({&window.Node("The nest")});
  Copy();
  window.LookAt(root);
  Toolkit::Slider* slider = TestSupport::All<Toolkit::Slider>(root).at(0);
  window.Focus(slider);
  const std::string before = window.Exported();
  window.Press(Key::Right);
  const std::string moved = window.Exported();
  Paste();
  EXPECT_EQ(window.History().Size(), 2u);
  // Keys go to what was pasted.
  const Selection::Nodes pasted = Selected();
  window.Press(Key::Delete);
  EXPECT_FALSE(graph.Contains(*pasted.at(0)));
  window.Undo();
  window.Undo();
  EXPECT_EQ(window.Exported(), moved);
  window.Undo();
  EXPECT_EQ(window.Exported(), before);
}

} // namespace
} // namespace Tesselor
