// What comes from the nodes menu onto the canvas, by keys alone once the menu is open.
#include "WindowStage.h"
#include "editor/NodesMenu.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePinControl.h"
#include "toolkit/controls/Canvas.h"
#include "workspace/NodeDictionary.h"
#include "workspace/RootType.h"
#include "workspace/Workspace.h"

#include <gtest/gtest.h>

namespace Tesselor {
namespace {

using Toolkit::Key;

class NewNodesByKeys : public testing::Test {
protected:
  NodesMenu& Menu() const { return *window.Canvas().GetNodesMenu(); }
  ContentNode& Newest() const { return *graph.ContentNodes().back(); }
  /// Lets go of a new connection from the root over the empty canvas.
  void Drop() {
    window.LookAt(*window.View().RootNode());
    window.Drag(window.Pin(*window.View().RootNode(), "Out"), window.EmptySpot());
  }
  size_t Curves() const { return TestSupport::All<ConnectionPath>(&graph.Panel()).size(); }
  size_t Nodes() const { return graph.ContentNodes().size(); }

  TestSupport::TestWorkspace workspace{{
      R"({"id": "Root", "title": "Root", "color": "red", "outputs": [{"id": "Out", "Type": "T", "color": "red"}]})",
      R"({"id": "Leaf", "title": "Leaf", "color": "red", "inputs": [{"id": "Other", "Type": "U", "color": "red", "fields": [{"Id": "Pin", "Type": "String"}]},
                                                    {"id": "In", "Type": "T", "color": "red"}],
          "content": [{"Id": "Head", "Type": "Label"}, {"Id": "Zone", "Type": "String"}, {"Id": "Area", "Type": "String"}]})",
      R"({"id": "Plain", "title": "Plain", "color": "red", "inputs": [{"id": "In", "Type": "T", "color": "red"}],
          "content": [{"Id": "On", "Type": "Checkbox"}]})",
      R"({"id": "Apart", "title": "Apart leaf", "color": "red"})",
  }};
  TestSupport::WindowSetup setup{.directory = workspace.Path()};
  TestSupport::WindowStage window{setup};
  Graph& graph = window.View().GetGraph();
};

TEST_F(NewNodesByKeys, EscapeInTheBoxClosesTheMenuAndDropsTheCurve) {
  Drop();
  ASSERT_TRUE(Menu().IsOpen());
  EXPECT_EQ(Curves(), 1u);
  window.Type("l");
  window.Press(Key::Escape);
  EXPECT_FALSE(Menu().IsOpen());
  EXPECT_EQ(Curves(), 0u);
  EXPECT_EQ(Menu().GetSearchText(), "");
  EXPECT_TRUE(Menu().GetFilter().IsDefault());
}

TEST_F(NewNodesByKeys, TheMenuStaysInTheViewWhenACategoryOpens) {
  const Toolkit::Rect view = TestSupport::Stage::BoxOf(window.Canvas());
  window.RightClick(Toolkit::Point{view.x + 20, view.Bottom() - 20});
  ASSERT_TRUE(Menu().IsOpen());
  const Toolkit::Rect closed = TestSupport::Stage::BoxOf(Menu());
  window.Press(Key::Down);
  window.Press(Key::Down);
  const Toolkit::Rect opened = TestSupport::Stage::BoxOf(Menu());
  ASSERT_GT(opened.height, closed.height);
  EXPECT_LE(opened.Bottom(), view.Bottom());
  EXPECT_EQ(opened.x, closed.x);
}

TEST_F(NewNodesByKeys, ReturnMakesTheNodeWithTheCaretInItsFirstField) {
  // The fields of one that came before were measured for this one as well.
  const Toolkit::Ptr<ContentNode> former =
      window.View().CurrentRoot()->workspace->nodeDictionary->CreateNode("Leaf", true);
  graph.AddNode(*former, 0, 0, false);
  window.Settle();
  graph.Remove(*former);
  Drop();
  window.Type("leaf");
  window.Press(Key::Return);
  ASSERT_EQ(Nodes(), 2u);
  EXPECT_EQ(Newest().TypeId(), "Leaf");
  EXPECT_TRUE(window.FieldPart<Toolkit::TextBox>(Newest(), "Zone").IsFocused());
  EXPECT_TRUE(Newest().FindPin("In")->IsConnectedTo(*window.View().RootNode()->FindPin("Out")));
  EXPECT_EQ(Curves(), 1u);
  // The caret in it keeps nobody from taking it back: first the connection, then the node.
  window.Undo();
  EXPECT_EQ(Nodes(), 2u);
  EXPECT_EQ(Curves(), 0u);
  window.Undo();
  EXPECT_EQ(Nodes(), 1u);
  window.Redo();
  window.Redo();
  EXPECT_EQ(Curves(), 1u);
}

TEST_F(NewNodesByKeys, ReturnAloneTakesATypeThatFitsThePin) {
  Drop();
  window.Press(Key::Return);
  EXPECT_EQ(Newest().TypeId(), "Leaf") << "the node that takes anything stands before it";
  window.RightClick(window.EmptySpot());
  window.Press(Key::Return);
  EXPECT_EQ(Newest().TypeId(), BuiltIn::Generic);
}

TEST_F(NewNodesByKeys, ANodeWithoutTextLeavesTheKeysToTheGraph) {
  Drop();
  window.Type("plain");
  window.Press(Key::Return);
  ASSERT_EQ(Nodes(), 2u);
  EXPECT_EQ(Newest().TypeId(), "Plain");
  EXPECT_TRUE(graph.Panel().IsFocused());
}

} // namespace
} // namespace Tesselor
