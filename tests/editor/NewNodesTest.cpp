// What comes from the nodes menu onto the canvas, by keys alone once the menu is open.
#include "WindowStage.h"
#include "editor/NodesMenu.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePinControl.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/ScrollViewer.h"
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

TEST_F(NewNodesByKeys, TheMenuShrinksItsListToStayInASmallWindow) {
  // An edge that is rounded to a pixel may reach one into the margin.
  const auto expectInside = [this](const char* when) {
    const Toolkit::Rect view = TestSupport::Stage::BoxOf(window.Canvas());
    for (const char* part : {"SearchTextBox", "NodesMenuViewer", "CreateComment"}) {
      const Toolkit::Rect box = TestSupport::Stage::BoxOf(TestSupport::Named<Toolkit::UIElement>(Menu(), part));
      EXPECT_GE(box.x, view.x + 10) << part << when;
      EXPECT_GE(box.y, view.y + 10) << part << when;
      EXPECT_LE(box.Right(), view.Right() - 9) << part << when;
      EXPECT_LE(box.Bottom(), view.Bottom() - 9) << part << when;
      EXPECT_GT(box.height, 20) << part << when;
    }
  };
  window.Resize({400, 300});
  for (const float zoom : {1.0f, 0.4f}) {
    window.LookAt(*window.View().RootNode(), zoom);
    const Toolkit::Rect view = TestSupport::Stage::BoxOf(window.Canvas());
    window.RightClick(Toolkit::Point{view.x + 15, view.Bottom() - 15});
    ASSERT_TRUE(Menu().IsOpen());
    for (int i = 0; i < 20; ++i) window.Press(Key::Down);
    expectInside(", with all categories open");
    const auto& viewer = TestSupport::Named<Toolkit::ScrollViewer>(Menu(), "NodesMenuViewer");
    EXPECT_GT(viewer.ScrollOffset().y, 0) << "the marked entry is in sight";
    window.Press(Key::Escape);
  }
  // A window that changes under the open menu.
  window.Resize({1280, 800});
  const Toolkit::Rect view = TestSupport::Stage::BoxOf(window.Canvas());
  window.RightClick(Toolkit::Point{view.Right() - 15, view.Bottom() - 15});
  EXPECT_EQ(TestSupport::Stage::BoxOf(Menu()).width, 600);
  window.Resize({800, 600});
  expectInside(", once the window is smaller");
  window.Resize({350, 280});
  expectInside(", once the window is small");
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
