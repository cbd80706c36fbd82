// The commands of the menu bar and the keys, in the whole window.
#include "WindowStage.h"
#include "editor/NodePanel.h"
#include "editor/NodeSearchPanel.h"
#include "editor/PanelBaseField.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/CheckBox.h"
#include "toolkit/controls/ItemsControl.h"
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
  /// How far an element's middle is from that of the canvas, in pixels.
  float DistanceFromTheMiddle(const Toolkit::UIElement& element) const {
    const Point away = WindowStage::MiddleOf(element) - WindowStage::MiddleOf(window.Canvas());
    return std::max(std::abs(away.x), std::abs(away.y));
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
  window.LookAt(node);
  const Rect box = WindowStage::BoxOf(node);
  window.DoubleClick({box.x + box.width / 2, box.Bottom() - 5});
  const auto expectRows = [this](bool areShown) {
    const auto rows = TestSupport::All<PanelBaseField>(window.Root());
    ASSERT_FALSE(rows.empty());
    for (const PanelBaseField* row : rows) EXPECT_EQ(row->GetCheckBox()->IsChecked(), areShown);
  };
  Choose("Toggle Compact Mode");
  expectRows(false);
  EXPECT_LT(node.ActualHeight(), height);
  for (const auto& each : graph.ContentNodes())
    for (const auto& [id, field] : each->contentFields) EXPECT_EQ(field->GetVisibility(), Visibility::Collapsed) << id;
  EXPECT_EQ(window.History().Size(), 0u);
  Choose("Toggle Compact Mode");
  for (const auto& each : graph.ContentNodes()) EXPECT_TRUE(each->IsShownInFull());
  expectRows(true);
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

TEST_F(DocumentCommands, MakeADocumentOfAnotherKindIfTheUserAgrees) {
  const std::string before = window.Exported(), path = window.View().FilePath();
  auto& menu = TestSupport::Named<Toolkit::MenuItem>(window.View(), "WorkspaceMenu");
  const auto expectRoot = [&](std::string_view name) {
    EXPECT_EQ(menu.GetHeader().AsStringView(), "Root Node: " + std::string(name));
    for (size_t i = 0; i < menu.ItemCount(); ++i) {
      const auto& item = static_cast<const Toolkit::MenuItem&>(*menu.ItemAt(i));
      EXPECT_EQ(item.IsChecked(), item.GetName() == name) << item.GetName();
    }
    EXPECT_EQ(window.View().CurrentRoot()->MenuName, name);
  };
  const auto choose = [&](const char* name, Toolkit::MessageBoxResult answer) {
    window.boxes.answer = answer;
    window.Click(menu);
    Choose(name);
    EXPECT_EQ(window.boxes.Texts().back(), "Attention!: All unsaved changes will be lost. Do you want to continue?");
  };
  expectRoot("Quest");
  choose("Dialogue", Toolkit::MessageBoxResult::Cancel);
  expectRoot("Quest");
  EXPECT_EQ(window.Exported(), before);
  graph.Selected().Add(*graph.ContentNodes()[1]);
  Choose("Set Selected Node As Root");
  auto& panel = TestSupport::Named<NodePanel>(window.View(), "NodePanel");
  panel.OpenNode(graph.Root());
  for (const auto& [name, title] : {std::pair("Dialogue", "[ROOT] Dialogue"), {"Quest", "[ROOT] Quest"}}) {
    choose(name, Toolkit::MessageBoxResult::OK);
    expectRoot(name);
    ASSERT_EQ(graph.ContentNodes().size(), 1u);
    EXPECT_EQ(graph.Root(), graph.ContentNodes()[0].Get());
    EXPECT_EQ(graph.Root()->Title(), title);
    EXPECT_EQ(window.History().Size(), 0u);
    EXPECT_EQ(window.View().FilePath(), path) << "a save goes over the old file";
    EXPECT_EQ(window.NoticesShown(), std::vector<std::string>{"A save writes this new document over \"quest.json\"."});
    EXPECT_EQ(panel.GetFieldsStack()->ChildCount(), 0u);
  }
  EXPECT_TRUE(window.View().Save());
  EXPECT_TRUE(window.NoticesShown().empty());
}

TEST_F(DocumentCommands, FindANodeAndTheRoot) {
  auto& panel = TestSupport::Named<NodeSearchPanel>(window.View(), "NodeSearchPanel");
  ContentNode& node = window.Node("The nest");
  graph.Selected().Add(*graph.Root());
  Choose("Find Node");
  EXPECT_TRUE(panel.IsOpen());
  window.Chord({Key::LeftCtrl, Key::F});
  EXPECT_FALSE(panel.IsOpen());
  window.Chord({Key::LeftCtrl, Key::F});
  window.Type("the nest");
  window.Wait(200);
  auto& list = TestSupport::Named<Toolkit::ItemsControl>(panel, "ResultList");
  window.Click(*static_cast<Toolkit::UIElement*>(list.GetItemContainerGenerator().ContainerFromIndex(0)));
  ASSERT_EQ(graph.Selected().GetNodes().size(), 1u);
  EXPECT_TRUE(graph.Selected().Contains(node));
  EXPECT_LT(DistanceFromTheMiddle(node), 2);
  Choose("Go To Root");
  EXPECT_LT(DistanceFromTheMiddle(*graph.Root()), 2);
  // An undo closes the panel, unless its box takes the keys, and so does another document.
  window.Undo();
  EXPECT_TRUE(panel.IsOpen());
  window.Focus(nullptr);
  window.Undo();
  EXPECT_FALSE(panel.IsOpen());
  Choose("Find Node");
  EXPECT_TRUE(panel.IsOpen());
  window.Open(TESSELOR_DATA_DIR "/samples/dialogue.json");
  EXPECT_FALSE(panel.IsOpen());
  EXPECT_LT(DistanceFromTheMiddle(*graph.Root()), 2);
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
  Choose("Hotkeys");
  EXPECT_TRUE(hotkeys());
  window.Click(*TestSupport::Find<Toolkit::Button>(window.Root(), [](const Toolkit::Button& button) {
    return button.IsVisible() && button.GetContent().AsStringView() == "Close";
  }));
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
  // A chord is complete whichever of its keys comes last.
  window.Chord({Key::Z, Key::LeftCtrl});
  EXPECT_EQ(window.History().UndoneCount(), 3u);
  window.Chord({Key::LeftCtrl, Key::Z, Key::LeftShift});
  EXPECT_EQ(window.History().UndoneCount(), 2u);
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
