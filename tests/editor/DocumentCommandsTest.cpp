// The commands of the menu bar and the keys, in the whole window.
#include "WindowStage.h"
#include "toolkit/controls/MenuItem.h"
#include "toolkit/controls/Slider.h"
#include "toolkit/controls/TextBox.h"

#include <gtest/gtest.h>

#include <map>

namespace Tesselor {
namespace {

using TestSupport::WindowStage;
using Toolkit::Key;
using Toolkit::Point;
using Toolkit::Rect;
using Toolkit::Visibility;

class DocumentCommands : public testing::Test {
protected:
  DocumentCommands() : window("quest"), graph(window.View().GetGraph()) {}

  void Choose(const char* header) {
    for (Toolkit::MenuItem* item : TestSupport::All<Toolkit::MenuItem>(window.Root()))
      if (item->GetHeader().AsStringView() == header) {
        window.Click(*item);
        return;
      }
    FAIL() << "no menu item " << header;
  }
  std::map<const BaseNode*, Point> Places() const {
    std::map<const BaseNode*, Point> places;
    for (const auto& node : graph.ContentNodes()) places[node.Get()] = {node->Bounds().x, node->Bounds().y};
    for (const auto& node : graph.GroupNodes()) places[node.Get()] = {node->Bounds().x, node->Bounds().y};
    for (const auto& node : graph.CommentNodes()) places[node.Get()] = {node->Bounds().x, node->Bounds().y};
    return places;
  }

  WindowStage window;
  Graph& graph;
};

TEST_F(DocumentCommands, LayTheTreeOutAsOneStep) {
  const std::string before = window.Exported();
  const auto start = Places();
  const Rect root = graph.ContentNodes()[0]->Bounds();
  Choose("Auto Position Nodes");
  EXPECT_EQ(window.boxes.Texts(), std::vector<std::string>{"Attention!: This action will change all Node's position"});
  const auto places = Places();
  EXPECT_NE(places, start);
  EXPECT_EQ(places.at(graph.ContentNodes()[0].Get()), (Point{root.x, root.y}));
  for (const auto& connection : graph.Connections().ConnectionsOf(*graph.ContentNodes()[0]))
    EXPECT_NEAR(connection->GetInputNode()->Bounds().x, root.Right() + 300, 0.2);
  for (const auto& group : graph.GroupNodes()) EXPECT_EQ(places.at(group.Get()), start.at(group.Get()));
  EXPECT_EQ(window.History().Size(), 1u);
  window.Undo();
  EXPECT_EQ(window.Exported(), before);
  EXPECT_EQ(Places(), start);
}

TEST_F(DocumentCommands, MirrorLeftEdgesAtTheMiddleOfThePanel) {
  const auto start = Places();
  Choose("Mirror Nodes Position");
  const auto places = Places();
  for (const auto& [node, place] : start) {
    const bool isComment = Toolkit::DynamicCast<CommentNode>(node) != nullptr;
    EXPECT_NEAR(places.at(node).x, isComment ? place.x : 1500000 - place.x, 0.2);
    EXPECT_EQ(places.at(node).y, place.y);
  }
  Choose("Mirror Nodes Position");
  for (const auto& [node, place] : Places()) EXPECT_NEAR(place.x, start.at(node).x, 0.2);
  window.Undo();
  window.Undo();
  EXPECT_EQ(Places(), start);
}

TEST_F(DocumentCommands, HideAndShowTheFieldsOfAllNodes) {
  const ContentNode& node = window.Node("The nest");
  const float height = node.ActualHeight();
  Choose("Toggle Compact Mode");
  EXPECT_LT(node.ActualHeight(), height);
  for (const auto& each : graph.ContentNodes())
    for (const auto& [id, field] : each->contentFields) EXPECT_EQ(field->GetVisibility(), Visibility::Collapsed) << id;
  EXPECT_EQ(window.History().Size(), 0u);
  Choose("Toggle Compact Mode");
  for (const auto& each : graph.ContentNodes()) EXPECT_TRUE(each->IsShownInFull());
}

TEST_F(DocumentCommands, MakeTheOneSelectedNodeTheRoot) {
  const std::string before = window.Exported();
  ContentNode& root = *graph.Root();
  ContentNode& node = window.Node("The nest");
  Choose("Set Selected Node As Root");
  EXPECT_EQ(graph.Root(), &root) << "nothing is selected";
  graph.Selected().Add(node);
  graph.Selected().Add(root);
  Choose("Set Selected Node As Root");
  EXPECT_EQ(graph.Root(), &root) << "two are selected";
  graph.Selected().Remove(root);
  Choose("Set Selected Node As Root");
  EXPECT_EQ(graph.Root(), &node);
  EXPECT_EQ(node.Title().substr(0, 7), "[ROOT] ");
  EXPECT_NE(root.Title().substr(0, 7), "[ROOT] ");
  window.Undo();
  EXPECT_EQ(graph.Root(), &root);
  EXPECT_EQ(node.Title(), "The nest");
  EXPECT_EQ(window.Exported(), before);
}

TEST_F(DocumentCommands, OfAKeyRunOncePerPressWhateverElseIsHeld) {
  const auto hotkeys = [this] {
    return window.View().Get<Visibility>(MainView::HotkeysModalVisibilityProperty) == Visibility::Visible;
  };
  window.Input().KeyDown(Key::H);
  window.Input().KeyDown(Key::H, true);
  window.KeyUp(Key::H);
  EXPECT_TRUE(hotkeys());
  window.Press(Key::H);
  EXPECT_FALSE(hotkeys());
  // Undo goes on while the keys are held, and nothing else does.
  ContentNode& node = window.Node("The nest");
  window.LookAt(node);
  for (int i = 0; i < 3; ++i) {
    const Rect box = WindowStage::BoxOf(node);
    window.Drag({box.x + box.width / 2, box.Bottom() - 5}, {box.x + box.width / 2 + 9, box.Bottom() + 5});
  }
  ASSERT_EQ(window.History().Size(), 3u);
  window.KeyDown(Key::LeftCtrl);
  window.Input().KeyDown(Key::Z);
  window.Input().KeyDown(Key::Z, true);
  EXPECT_EQ(window.History().UndoneCount(), 2u);
  window.Input().KeyDown(Key::F);
  EXPECT_EQ(window.History().UndoneCount(), 2u) << "another key while Z is held is no further undo";
  window.KeyUp(Key::F);
  window.KeyUp(Key::Z);
  window.KeyUp(Key::LeftCtrl);
}

TEST_F(DocumentCommands, OfTheHistoryTakeWhatIsBeingEditedForAStepOfItsOwn) {
  ContentNode& root = *graph.Root();
  window.LookAt(root);
  const std::string before = window.Exported();
  Toolkit::Slider* slider = TestSupport::All<Toolkit::Slider>(root).at(0);
  window.Focus(slider);
  window.Press(Key::Right);
  const std::string moved = window.Exported();
  ASSERT_NE(moved, before);
  EXPECT_EQ(window.History().Size(), 0u) << "the slider still has the focus";
  window.Undo();
  EXPECT_EQ(window.Exported(), before);
  EXPECT_TRUE(slider->IsFocused());
  window.Redo();
  EXPECT_EQ(window.Exported(), moved);
  window.Focus(nullptr);
  EXPECT_EQ(window.History().Size(), 1u);
}

TEST_F(DocumentCommands, LeaveThePlaceWhereTabGoesOn) {
  const auto tabFromTheTitle = [&](bool saves) {
    window.Focus(&graph.Panel());
    graph.Root()->BeginTitleEdit();
    window.Press(Key::Return);
    if (saves) window.Chord({Key::LeftCtrl, Key::S});
    window.Press(Key::Tab);
    return window.Input().Focused();
  };
  const Toolkit::UIElement* behind = tabFromTheTitle(false);
  ASSERT_TRUE(behind);
  EXPECT_EQ(tabFromTheTitle(true), behind);
}

TEST_F(DocumentCommands, ReachNoBoxThatIsNotSeenAnyMore) {
  GroupNode& group = *graph.GroupNodes()[0];
  window.LookAt(group);
  group.BeginTitleEdit();
  window.Type("Town");
  window.Press(Key::Return);
  window.Press(Key::H);
  window.Type("h");
  EXPECT_EQ(group.Title(), "Town");
}

} // namespace
} // namespace Tesselor
