// What the keyboard alone does on the canvas, in the whole window.
#include "WindowStage.h"
#include "editor/NodePanel.h"
#include "editor/NodesMenu.h"
#include "editor/StatusLine.h"
#include "nodes/NodePinControl.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/ContextMenu.h"
#include "toolkit/controls/Menu.h"
#include "toolkit/controls/MenuItem.h"
#include "workspace/NodeDictionary.h"
#include "workspace/RootType.h"
#include "workspace/Workspace.h"

#include <gtest/gtest.h>

#include <tuple>

namespace Tesselor {
namespace {

using Toolkit::Key;
using Toolkit::Point;
using Toolkit::Rect;

/// A root with two children below one pin and one below another, two of them with children; beside them a lone node, a
/// group and a comment.
class CanvasKeys : public testing::Test {
protected:
  CanvasKeys() {
    root = graph.Root();
    root->SetTitle("root");
    a = Make("Leaf", "a", {900, 0});
    b = Make("Leaf", "b", {900, 300});
    c = Make("Other", "c", {900, 600});
    lone = Make("Leaf", "lone", {0, 900});
    Join(*root, "Many", *a);
    Join(*root, "Many", *b);
    Join(*root, "One", *c);
    const Rect at = root->Bounds();
    group = &graph.AddGroupNode(at.x, at.y + 1500);
    comment = &graph.AddCommentNode(at.x, at.y + 2500);
    group->SetTitle("group");
    comment->SetTitle("comment");
    window.Settle();
  }

  ContentNode* Make(const char* type, const char* title, Point place) {
    const auto node = window.View().CurrentRoot()->workspace->nodeDictionary->CreateNode(type, true);
    graph.Add(*node, Point{root->Bounds().x, root->Bounds().y} + place);
    node->SetTitle(title);
    return node.Get();
  }
  void Join(ContentNode& parent, const char* pin, ContentNode& child) {
    graph.Attach(*Toolkit::MakePtr<Connection>(*parent.FindPin(pin), *child.FindPin("In")));
  }
  void Select(BaseNode& node) {
    graph.Selected().Clear();
    graph.Selected().Add(node);
  }
  std::string Selected() const {
    std::string names;
    for (const auto& node : graph.Selected().GetNodes())
      names += (names.empty() ? "" : " ") + std::string(node->Title());
    return names;
  }
  std::string Said() const { return std::string(TestSupport::First<StatusLine>(window.Root()).Text()); }
  std::vector<std::string> Entries() const {
    std::vector<std::string> texts;
    const auto menus = TestSupport::All<Toolkit::ContextMenu>(window.Root());
    for (size_t i = 0; !menus.empty() && i < menus[0]->ItemCount(); ++i)
      texts.emplace_back(static_cast<Toolkit::MenuItem*>(menus[0]->ItemAt(i))->GetHeader().AsStringView());
    return texts;
  }
  /// Goes to the entry by arrows and takes it.
  void Take(std::string_view text) {
    const std::vector<std::string> entries = Entries();
    const auto at = std::find(entries.begin(), entries.end(), text);
    ASSERT_NE(at, entries.end()) << text;
    const auto& menu = *TestSupport::All<Toolkit::ContextMenu>(window.Root())[0];
    for (auto i = entries.begin(); i != at; ++i)
      if (static_cast<Toolkit::MenuItem*>(menu.ItemAt(static_cast<size_t>(i - entries.begin())))->IsEnabled())
        window.Press(Key::Down);
    window.Press(Key::Return);
  }
  NodesMenu& Palette() const { return *window.Canvas().GetNodesMenu(); }

  TestSupport::TestWorkspace workspace{{
      R"({"id": "Root", "title": "Root", "color": "red", "content": [{"Id": "Label", "Type": "Label"}],
          "outputs": [{"id": "Many", "Type": "T", "Label": "Children", "Multiple": true, "color": "red"},
                      {"id": "One", "Type": "U", "color": "red"}]})",
      R"({"id": "Leaf", "title": "Leaf", "color": "red", "inputs": [{"id": "In", "Type": "T", "color": "red"}],
          "outputs": [{"id": "Out", "Type": "U", "color": "red"}, {"id": "Next", "Type": "T", "color": "red"}],
          "content": [{"Id": "Text", "Type": "String"}]})",
      R"({"id": "Other", "title": "Other", "color": "red", "inputs": [{"id": "In", "Type": "U", "color": "red"}]})",
  }};
  TestSupport::WindowSetup setup{.directory = workspace.Path()};
  TestSupport::WindowStage window{setup};
  Graph& graph = window.View().GetGraph();
  ContentNode *root, *a, *b, *c, *lone;
  GroupNode* group;
  CommentNode* comment;
};

TEST_F(CanvasKeys, WalkAlongTheConnectionsAndThroughWhatHasNoParent) {
  const Key alt = Key::LeftAlt;
  const std::pair<Key, const char*> steps[] = {
      {Key::Up, "root"},     {Key::Left, "root"},    {Key::Right, "a"},      {Key::Up, "a"},
      {Key::Down, "b"},      {Key::Down, "c"},       {Key::Down, "c"},       {Key::Right, "c"},
      {Key::Up, "b"},        {Key::Left, "root"},    {Key::Down, "lone"},    {Key::Down, "group"},
      {Key::Right, "group"}, {Key::Down, "comment"}, {Key::Down, "comment"}, {Key::Up, "group"},
  };
  for (const auto& [key, expected] : steps) {
    window.Chord({alt, key});
    EXPECT_EQ(Selected(), expected);
    window.Wait(400);
    const Rect box = TestSupport::Stage::BoxOf(*graph.Selected().GetNodes()[0]),
               view = TestSupport::Stage::BoxOf(window.Canvas());
    EXPECT_GE(box.y, view.y) << expected;
    EXPECT_LE(box.Bottom(), view.Bottom()) << expected;
  }
  Select(*a);
  window.Chord({alt, Key::LeftShift, Key::Down});
  window.Chord({alt, Key::LeftShift, Key::Down});
  EXPECT_EQ(Selected(), "a b c");
  EXPECT_EQ(Said(), "Selected 3 nodes, last c");
  window.Chord({alt, Key::LeftShift, Key::Up});
  EXPECT_EQ(Selected(), "a c b") << "the walk goes on from what was added last";
  EXPECT_EQ(window.History().Size(), 0u) << "nothing was nudged";
}

TEST_F(CanvasKeys, GlideGivesWayToWhatElseMovesTheView) {
  Select(*root);
  window.Canvas().ResetViewTo(root->Middle());
  window.Chord({Key::LeftAlt, Key::Down});
  window.Wait(48);
  const Point between = window.Canvas().GetTranslation();
  window.Canvas().SetTranslationClamped(between.x - 50, between.y);
  const Point moved = window.Canvas().GetTranslation();
  window.Wait(400);
  EXPECT_EQ(window.Canvas().GetTranslation(), moved);
}

TEST_F(CanvasKeys, MakeAConnectedChildAndGoOnWithIt) {
  Select(*root);
  window.Press(Key::Insert);
  EXPECT_EQ(Entries(), std::vector<std::string>{}) << "one output is free, so there is no choice";
  ASSERT_TRUE(Palette().IsOpen());
  window.Type("leaf");
  window.Press(Key::Return);
  ContentNode& made = *graph.ContentNodes().back();
  EXPECT_TRUE(made.FindPin("In")->IsConnectedTo(*root->FindPin("Many")));
  EXPECT_EQ(graph.Selected().GetNodes()[0].Get(), &made);
  EXPECT_GE(made.Bounds().x, root->Bounds().Right());
  EXPECT_GE(made.Bounds().y, c->Bounds().Bottom()) << "below the other children";
  window.Type("typed");
  window.Press(Key::Escape);
  EXPECT_TRUE(graph.Panel().IsFocused());
  EXPECT_EQ(graph.Selected().GetNodes()[0].Get(), &made);
  EXPECT_EQ(made.FindField("Text")->GetValueAsString(), "typed");
  // Of several outputs one is chosen.
  window.Press(Key::Insert);
  EXPECT_EQ(Entries(), (std::vector<std::string>{"New Child: Out", "New Child: Next"}));
  Take("New Child: Next");
  window.Type("leaf");
  window.Press(Key::Return);
  EXPECT_TRUE(graph.ContentNodes().back()->FindPin("In")->IsConnectedTo(*made.FindPin("Next")));
  // Without a node the menu opens in the middle, and what it makes hangs on nothing.
  window.Press(Key::Escape);
  graph.Selected().Clear();
  const Point middle = window.Canvas().MiddleOfView();
  window.Press(Key::Insert);
  window.Type("leaf");
  window.Press(Key::Return);
  EXPECT_TRUE(graph.ContentNodes().back()->FindPin("In")->connections.empty());
  EXPECT_NEAR(graph.ContentNodes().back()->Bounds().x, middle.x, 0.2);
}

TEST_F(CanvasKeys, ConnectAndCutAtThePinsOfTheSelectedNode) {
  const std::vector<Key> pins{Key::LeftCtrl, Key::P};
  Select(*a);
  window.Chord(pins);
  EXPECT_EQ(Entries(), (std::vector<std::string>{"Start Connection: output Out", "Start Connection: output Next",
                                                 "Start Connection: input In", "Cut 1 Connection: input In"}));
  Take("Start Connection: output Next");
  EXPECT_EQ(Said(), "Began a connection at Next of a. Ctrl+P at another node completes it");
  Select(*lone);
  window.Chord(pins);
  EXPECT_EQ(Entries(), (std::vector<std::string>{"Complete Connection: input In", "Cancel Connection"}));
  Take("Complete Connection: input In");
  EXPECT_EQ(Said(), "Connected a to lone");
  EXPECT_TRUE(a->FindPin("Next")->IsConnectedTo(*lone->FindPin("In")));
  window.Chord(pins);
  EXPECT_EQ(Entries(),
            (std::vector<std::string>{"No pin fits Next of a", "Cancel Connection", "Cut 1 Connection: input In"}))
      << "what is connected is not offered again";
  Take("Cut 1 Connection: input In");
  EXPECT_FALSE(a->FindPin("Next")->IsConnectedTo(*lone->FindPin("In")));
  window.Press(Key::Escape);
  window.Chord(pins);
  EXPECT_EQ(Entries().front(), "Start Connection: output Out") << "Escape cancels what was begun";
}

TEST_F(CanvasKeys, EditTheFirstFieldAndTheFieldsBesideTheCanvas) {
  auto& panel = TestSupport::Named<NodePanel>(window.View(), "NodePanel");
  Select(*a);
  window.Press(Key::Return);
  EXPECT_TRUE(window.FieldPart<Toolkit::TextBox>(*a, "Text").IsFocused());
  window.Chord({Key::LeftAlt, Key::Return});
  ASSERT_EQ(panel.Node(), a);
  EXPECT_TRUE(panel.IsAncestorOf(window.Input().Focused()));
  window.Press(Key::Escape);
  EXPECT_TRUE(graph.Panel().IsFocused());
  EXPECT_EQ(panel.Node(), a) << "it stays beside the canvas";
  window.Chord({Key::LeftAlt, Key::Return});
  window.Chord({Key::LeftAlt, Key::Return});
  EXPECT_EQ(panel.Node(), nullptr);
  Select(*comment);
  window.Focus(&window.FieldPart<Toolkit::TextBox>(*a, "Text"));
  window.Press(Key::Escape);
  EXPECT_EQ(Selected(), "a") << "the node whose field was left";
  Select(*comment);
  window.Press(Key::Return);
  window.Type("note");
  window.Press(Key::Escape);
  EXPECT_EQ(comment->CommentText(), "note");
  graph.Selected().Clear();
  window.Press(Key::Return);
  EXPECT_EQ(Said(), "Select one node to edit it");
}

TEST_F(CanvasKeys, FrameAndResize) {
  graph.Selected().Clear();
  graph.Selected().Add(*a);
  graph.Selected().Add(*b);
  window.Chord({Key::LeftCtrl, Key::G});
  GroupNode& made = *graph.GroupNodes().back();
  const Rect frame = made.Bounds();
  for (const ContentNode* node : {a, b}) {
    EXPECT_LT(frame.x, node->Bounds().x);
    EXPECT_LT(frame.y, node->Bounds().y);
    EXPECT_GT(frame.Right(), node->Bounds().Right());
    EXPECT_GT(frame.Bottom(), node->Bounds().Bottom());
  }
  window.Type("Both");
  window.Press(Key::Return);
  EXPECT_EQ(made.Title(), "Both");
  EXPECT_EQ(graph.Selected().AllNodes().size(), 3u) << "with what it holds";
  const size_t steps = window.History().Size();
  for (const Key key : {Key::Right, Key::Right, Key::Down, Key::Left})
    window.Chord({Key::LeftCtrl, Key::LeftShift, key});
  EXPECT_EQ(made.Bounds(), (Rect{frame.x, frame.y, frame.width + 10, frame.height + 10}));
  EXPECT_EQ(window.History().Size(), steps + 1) << "a run is one step";
  window.Undo();
  EXPECT_EQ(made.Bounds(), frame);
  window.Redo();
  EXPECT_EQ(made.Bounds().width, frame.width + 10);
  Select(*lone);
  window.Chord({Key::LeftCtrl, Key::K});
  window.Type("remember");
  EXPECT_EQ(graph.CommentNodes().back()->CommentText(), "remember");
  EXPECT_GE(graph.CommentNodes().back()->Bounds().y, lone->Bounds().Bottom());
}

TEST_F(CanvasKeys, ReachTheCommandsOfMenus) {
  const auto& canvas = window.Canvas();
  for (const std::vector<Key>& chord : {std::vector{Key::LeftShift, Key::F10}, {Key::Apps}}) {
    Select(*a);
    window.Chord(chord);
    EXPECT_FALSE(TestSupport::First<Toolkit::Menu>(window.Root()).IsFocused());
    Take("Duplicate");
    EXPECT_EQ(Said(), "Pasted a");
    window.Undo();
  }
  Select(*lone);
  window.Chord({Key::LeftCtrl, Key::R});
  EXPECT_EQ(graph.Root(), lone);
  const std::tuple<Key, const char*> asking[] = {{Key::L, "Moved 5 nodes"}, {Key::M, "Moved 6 nodes"}};
  for (const auto& [key, said] : asking) {
    window.Chord({Key::LeftCtrl, key});
    EXPECT_EQ(window.boxes.Texts().back(), "Attention!: This action will change all Node's position");
    EXPECT_EQ(Said().substr(0, 6), std::string(said).substr(0, 6));
  }
  window.Chord({Key::LeftCtrl, Key::E});
  EXPECT_FALSE(a->IsShownInFull());
  window.Chord({Key::LeftCtrl, Key::E});
  EXPECT_TRUE(a->IsShownInFull());
  window.Press(Key::F10);
  EXPECT_TRUE(TestSupport::First<Toolkit::Menu>(window.Root()).IsFocused());
  window.Press(Key::Escape);
  // The view.
  window.Chord({Key::LeftCtrl, Key::D1});
  const Point middle = canvas.MiddleOfView();
  window.Chord({Key::LeftCtrl, Key::Minus});
  EXPECT_NEAR(canvas.GetZoom(), 0.9f, 1e-4f);
  EXPECT_NEAR(canvas.MiddleOfView().x, middle.x, 1);
  window.Chord({Key::LeftCtrl, Key::Plus});
  EXPECT_NEAR(canvas.GetZoom(), 0.99f, 1e-4f);
  window.Chord({Key::LeftCtrl, Key::D0});
  const Rect view = TestSupport::Stage::BoxOf(canvas);
  for (const ContentNode* node : {root, a, b, c, lone}) {
    const Rect box = TestSupport::Stage::BoxOf(*node);
    EXPECT_TRUE(box.x > view.x && box.y > view.y && box.Right() < view.Right() && box.Bottom() < view.Bottom());
  }
  graph.Selected().Clear();
  window.Press(Key::Home);
  EXPECT_EQ(canvas.GetZoom(), 1);
  EXPECT_TRUE(graph.Root()->IsSelected());
}

TEST_F(CanvasKeys, MarkThePinAtWhichADraggedConnectionWouldEnd) {
  window.Chord({Key::LeftCtrl, Key::D0});
  const auto isMarked = [](const ContentNode& node, const char* pin) {
    return node.FindPinControl(*node.FindPin(pin))->Get<bool>(NodePinControl::IsPendingConnectionProperty);
  };
  window.Press(window.Pin(*a, "Next"));
  const std::tuple<ContentNode*, const char*, bool> targets[] = {
      {lone, "In", true}, {b, "In", false}, {c, "In", false}, {a, "Next", false}};
  for (const auto& [node, pin, fits] : targets) {
    window.MoveTo(window.Pin(*node, pin));
    EXPECT_EQ(isMarked(*node, pin), fits) << node->Title();
  }
  window.MoveTo(window.Pin(*lone, "In"));
  window.Press(Key::Escape);
  EXPECT_FALSE(isMarked(*lone, "In"));
  window.Release(window.Pin(*lone, "In"));
  window.Drag(window.Pin(*a, "Next"), window.Pin(*lone, "In"));
  EXPECT_FALSE(isMarked(*lone, "In"));
  EXPECT_TRUE(a->FindPin("Next")->IsConnectedTo(*lone->FindPin("In")));
}

} // namespace
} // namespace Tesselor
