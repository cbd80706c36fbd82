// How the titles and texts of nodes are edited where they stand, and when the mouse moves the node instead.
#include "GestureTest.h"
#include "editor/NodePanel.h"
#include "editor/NodesMenu.h"
#include "nodes/ReferenceNode.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/TextBlock.h"

#include <functional>

namespace Tesselor {
namespace {

using TestSupport::WindowStage;
using Toolkit::Key;
using Toolkit::Point;
using Toolkit::Rect;
using Toolkit::TextBox;

class TitleEdit : public TestSupport::GestureTest {
protected:
  TextBox& BoxOf(BaseNode& node) {
    if (auto* content = Toolkit::DynamicCast<ContentNode>(&node)) return TitleOf(*content);
    const bool isGroup = Toolkit::DynamicCast<GroupNode>(&node) != nullptr;
    return TestSupport::Named<TextBox>(node, isGroup ? "GroupTitle" : "CommentTitle");
  }
  bool IsEdited(BaseNode& node) { return BoxOf(node).IsFocused() && BoxOf(node).IsVisible(); }
  /// Where a node's title shows, with the node in sight.
  Point TitleAt(BaseNode& node) {
    if (auto* frame = Toolkit::DynamicCast<FrameNode>(&node)) return HeaderOf(*frame, 0.6f);
    window.LookAt(node);
    return WindowStage::MiddleOf(BoxOf(node));
  }
  /// A node of each kind.
  std::vector<BaseNode*> Nodes() {
    BaseNode* reference = nullptr;
    for (const auto& node : graph.ContentNodes())
      if (Toolkit::DynamicCast<ReferenceNode>(node.Get())) reference = node.Get();
    return {&window.Node("The nest"), reference, &Group(), &Comment()};
  }
};

TEST_F(TitleEdit, ATitleIsPartOfItsNodeUntilItIsEdited) {
  for (BaseNode* node : Nodes()) {
    SCOPED_TRACE(std::string(node->Title()));
    const Point title = TitleAt(*node);
    const Rect start = node->Bounds();
    const float zoom = window.Canvas().GetZoom();
    window.Click(title);
    EXPECT_EQ(Selected(), std::vector<const BaseNode*>{node});
    EXPECT_EQ(Cursor(), "SizeAll");
    window.Press(title);
    window.Press(Key::F2);
    EXPECT_FALSE(IsEdited(*node)) << "not while the mouse is at work";
    window.Release(title);
    // Only the second of two clicks of the left button begins an edit.
    window.Press(title, Toolkit::MouseButton::Left, 3);
    window.Release(title);
    window.Press(title, Toolkit::MouseButton::Right, 2);
    window.Release(title, Toolkit::MouseButton::Right);
    EXPECT_FALSE(IsEdited(*node));
    window.Drag(title, title + Point{30, 20});
    EXPECT_NEAR(node->Bounds().x, start.x + 30 / zoom, 0.3);
    EXPECT_NEAR(node->Bounds().y, start.y + 20 / zoom, 0.3);
    EXPECT_EQ(window.History().Size(), 1u);
    window.Undo();
    window.History().Clear();
  }
}

TEST_F(TitleEdit, TheBigTitleOfAGroupIsAHandleToo) {
  window.LookAt(BorderOf(Group()), 0.3f);
  auto& bigTitle = *TestSupport::All<Toolkit::Border>(Group()).front();
  ASSERT_TRUE(bigTitle.IsVisible());
  const Rect start = Group().Bounds();
  window.Drag(bigTitle, WindowStage::MiddleOf(bigTitle) + Point{30, 20});
  EXPECT_NEAR(Group().Bounds().x, start.x + 30 / window.Canvas().GetZoom(), 0.3);
  EXPECT_TRUE(Group().IsSelected());
  EXPECT_EQ(Cursor(), "SizeAll");
  window.DoubleClick(bigTitle);
  EXPECT_TRUE(IsEdited(Group()));
}

TEST_F(TitleEdit, ADoubleClickOrF2EditsItAsOneStep) {
  const std::string before = window.Exported();
  auto* panel = window.View().FindName<NodePanel>("NodePanel");
  for (BaseNode* node : Nodes()) {
    for (const bool byKey : {false, true}) {
      SCOPED_TRACE(std::string(node->Title()) + (byKey ? " by F2" : ""));
      const Point title = TitleAt(*node);
      const std::string former(node->Title());
      window.Click(title);
      if (byKey)
        window.Press(Key::F2);
      else
        window.DoubleClick(title);
      ASSERT_TRUE(IsEdited(*node));
      EXPECT_EQ(BoxOf(*node).SelectionLength(), former.size()) << "all is selected";
      EXPECT_EQ(panel->GetFieldsStack()->ChildCount(), 0u) << "the node is not opened";
      window.Type("Another");
      EXPECT_EQ(node->Title(), "Another");
      window.Press(Key::Return);
      EXPECT_FALSE(IsEdited(*node));
      EXPECT_EQ(window.Input().Focused(), window.Canvas().GetPanel());
      EXPECT_EQ(window.History().Size(), 1u);
      EXPECT_NE(window.Exported(), before);
      window.Undo();
      EXPECT_EQ(node->Title(), former);
      EXPECT_EQ(window.Exported(), before);
      window.History().Clear();
    }
  }
  // F2 asks for one node.
  window.Chord({Key::LeftCtrl, Key::A});
  window.Press(Key::F2);
  for (BaseNode* node : Nodes()) EXPECT_FALSE(IsEdited(*node));
}

TEST_F(TitleEdit, EndsAsItsTableSays) {
  struct Case {
    const char* what;
    std::function<void()> end;
    bool keeps;
  };
  const Case cases[] = {
      {"Return", [&] { window.Press(Key::Return); }, true},
      {"Escape", [&] { window.Press(Key::Escape); }, false},
      {"a click on the canvas", [&] { window.Click(window.EmptySpot()); }, true},
      {"a click on another node", [&] { window.Click(BodyOf(window.Node("Spawn"))); }, true},
      {"a click on a pin", [&] { window.Click(InputOf(window.Node("Spawn"))); }, true},
      {"a click on a connection", [&] { window.Click(CurveTo(window.Node("Spawn"))); }, true},
      {"Tab", [&] { window.Press(Key::Tab); }, true},
  };
  for (BaseNode* node : Nodes()) {
    for (const Case& c : cases) {
      SCOPED_TRACE(std::string(node->Title()) + ", " + c.what);
      const std::string former(node->Title());
      window.DoubleClick(TitleAt(*node));
      ASSERT_TRUE(IsEdited(*node));
      window.Type("typed");
      window.LookAt(window.Node("Spawn"), 0.6f);
      ASSERT_TRUE(IsEdited(*node));
      c.end();
      EXPECT_FALSE(IsEdited(*node));
      EXPECT_EQ(node->Title(), c.keeps ? "typed" : former);
      EXPECT_EQ(window.History().Size(), c.keeps ? 1u : 0u);
      if (c.keeps) window.Undo();
      window.History().Clear();
      EXPECT_EQ(node->Title(), former);
    }
  }
}

TEST_F(TitleEdit, TheMouseInItIsTheBoxs) {
  for (BaseNode* node : Nodes()) {
    SCOPED_TRACE(std::string(node->Title()));
    const Point title = TitleAt(*node);
    const Rect bounds = node->Bounds();
    window.DoubleClick(title);
    window.Type("one two three");
    TextBox& box = BoxOf(*node);
    const Rect area = WindowStage::BoxOf(box);
    const Point first{area.x + 8, area.y + area.height / 2}, last = first + Point{25, 0};
    EXPECT_EQ(Cursor(), "IBeam");
    window.Click(first);
    EXPECT_TRUE(IsEdited(*node)) << "a click places the caret";
    EXPECT_EQ(box.SelectionLength(), 0u);
    EXPECT_LT(box.CaretIndex(), 3u);
    window.Drag(first, last);
    EXPECT_GT(box.SelectionLength(), 1u) << "a drag selects";
    window.DoubleClick(first);
    EXPECT_EQ(box.SelectionLength(), 3u) << "a double click selects a word";
    window.RightClick(first);
    EXPECT_TRUE(window.Shows("Select All")) << "the right button opens the box's menu";
    window.Press(Key::Escape);
    EXPECT_TRUE(IsEdited(*node));
    EXPECT_EQ(node->Bounds(), bounds);
    window.Press(Key::Escape);
    EXPECT_FALSE(IsEdited(*node));
  }
  EXPECT_EQ(window.History().Size(), 0u);
}

TEST_F(TitleEdit, EscapeEndsNothingButTheEdit) {
  ContentNode& node = NodeInSight();
  window.RightClick(InputOf(node));
  window.Click({InputOf(node).x + 20, InputOf(node).y + 15});
  NodePinControl& pin = *node.FindPinControl(*node.FirstInput());
  ASSERT_TRUE(pin.IsPendingConnection());
  window.DoubleClick(TitleOf(node));
  window.Press(Key::Escape);
  EXPECT_TRUE(pin.IsPendingConnection());
  window.Press(Key::Escape);
  EXPECT_FALSE(pin.IsPendingConnection());
}

TEST_F(TitleEdit, OfAContentNodeIsReachedByTab) {
  ContentNode& node = NodeInSight();
  const std::string former(node.Title());
  window.Click(TestSupport::Named(node, "CommentToggleButton"));
  for (int i = 0; i < 12 && !TitleOf(node).IsFocused(); ++i) window.Press(Key::Tab);
  ASSERT_TRUE(TitleOf(node).IsFocused());
  window.Type("typed");
  window.Press(Key::Escape);
  EXPECT_EQ(node.Title(), former);
  EXPECT_EQ(window.History().Size(), 0u);
}

TEST_F(TitleEdit, TheTextOfACommentIsNoHandle) {
  window.LookAt(BorderOf(Comment()));
  auto& text = TestSupport::Named<TextBox>(Comment(), "CommentTextBox");
  const Rect bounds = Comment().Bounds(), area = WindowStage::BoxOf(text);
  window.Drag({area.x + 5, area.y + 8}, {area.x + 90, area.y + 8});
  EXPECT_GT(text.SelectionLength(), 3u);
  EXPECT_TRUE(text.IsFocused());
  EXPECT_EQ(Comment().Bounds(), bounds);
  EXPECT_TRUE(Selected().empty());
  // The gap beside it is the comment's.
  window.Drag({area.x - 2, area.y + 40}, {area.x + 8, area.y + 50});
  EXPECT_EQ(Comment().Bounds(), Rect(bounds.x + 10, bounds.y + 10, bounds.width, bounds.height));
  window.Undo();
  window.Click(text);
  window.Click({WindowStage::BoxOf(BorderOf(Comment())).x + 3, area.y + 40});
  EXPECT_FALSE(text.IsFocused()) << "a press on the edge gives the keys to the graph";
  window.Click(window.EmptySpot());
  window.Click(text);
  window.Click(HeaderOf(Comment(), 1));
  EXPECT_FALSE(text.IsFocused());
  EXPECT_EQ(Selected(), std::vector<const BaseNode*>{&Comment()});
}

TEST_F(TitleEdit, OfANewGroupOutlastsTheReturnThatMadeIt) {
  window.LookAt(Group(), 0.3f);
  window.RightClick(window.EmptySpot());
  for (int i = 0; i < 200 && !window.Canvas().GetNodesMenu()->FindName("CreateGroup"); ++i) window.Press(Key::Tab);
  window.Focus(window.Canvas().GetNodesMenu()->FindName("CreateGroup"));
  const size_t groups = graph.GroupNodes().size();
  window.Press(Key::Return);
  ASSERT_EQ(graph.GroupNodes().size(), groups + 1);
  GroupNode& made = *graph.GroupNodes().back();
  EXPECT_TRUE(IsEdited(made));
  window.Type("Act four");
  window.Press(Key::Return);
  EXPECT_FALSE(IsEdited(made));
  EXPECT_EQ(made.Title(), "Act four");
}

TEST_F(TitleEdit, APressOnANodeGivesTheKeysToTheGraph) {
  const std::pair<const char*, std::function<void(ContentNode&)>> presses[] = {
      {"the body", [&](ContentNode& node) { window.Click(BodyOf(node)); }},
      {"the title", [&](ContentNode& node) { window.Click(TitleOf(node)); }},
      {"a label",
       [&](ContentNode& node) {
         window.Click(TestSupport::First<Toolkit::TextBlock>(*node.contentFields.begin()->second));
       }},
  };
  for (const auto& [what, press] : presses) {
    SCOPED_TRACE(what);
    ContentNode& node = NodeInSight();
    ContentNode& typed = window.Node("Spawn");
    window.LookAt(node, 0.6f);
    const size_t nodes = graph.ContentNodes().size();
    window.Click(window.FieldPart<TextBox>(typed, typed.contentFields.begin()->first));
    ASSERT_TRUE(Toolkit::DynamicCast<TextBox>(window.Input().Focused()));
    press(node);
    window.Press(Key::Delete);
    EXPECT_EQ(graph.ContentNodes().size(), nodes - 1);
    window.Undo();
  }
  // A press on a connection does as well.
  ContentNode& node = NodeInSight("Spawn", 0.6f);
  const size_t connections = graph.Connections().GetConnections().size();
  window.Click(window.FieldPart<TextBox>(node, node.contentFields.begin()->first));
  window.Click(CurveTo(node));
  window.Press(Key::Delete);
  EXPECT_EQ(graph.Connections().GetConnections().size(), connections - 1);
}

} // namespace
} // namespace Tesselor
