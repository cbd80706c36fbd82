// What the menu bar and the window's overlays let a user do.
#include "ToolkitEnvironment.h"
#include "WindowStage.h"
#include "app/ComponentRegistration.h"
#include "toolkit/controls/Menu.h"
#include "toolkit/controls/MenuItem.h"

#include <gtest/gtest.h>

namespace Tesselor {
namespace {

using TestSupport::WindowStage;
using Toolkit::Key;
using Toolkit::MenuItem;

MenuItem& Item(MainView& view, std::string_view header) {
  auto& bar = *TestSupport::All<Toolkit::Menu>(&view).at(0);
  const std::function<MenuItem*(Toolkit::ItemsControl&)> find = [&](Toolkit::ItemsControl& items) -> MenuItem* {
    for (size_t i = 0; i < items.ItemCount(); ++i) {
      auto* item = static_cast<MenuItem*>(items.ItemAt(i));
      if (item->GetHeader().AsStringView() == header) return item;
      if (MenuItem* found = find(*item)) return found;
    }
    return nullptr;
  };
  return *find(bar);
}

MenuItem& Item(const WindowStage& window, std::string_view header) { return Item(window.View(), header); }

Toolkit::TextBox& FirstBoxOf(ContentNode& node) {
  return TestSupport::First<Toolkit::TextBox>(TestSupport::Named<Toolkit::UIElement>(node, "NodeContent"));
}

TEST(MenuBar, GreysWhatCannotRun) {
  WindowStage window("quest");
  const auto usable = [&] {
    std::string text;
    for (const char* name : {"Open", "Save", "SaveAs", "Set Selected Node As Root", "Go To Root"})
      text += Item(window, name).IsEnabled() ? '1' : '0';
    return text;
  };
  Graph& graph = window.View().GetGraph();
  const auto select = [&](std::vector<BaseNode*> nodes) {
    graph.Selected().Clear();
    for (BaseNode* node : nodes) graph.Selected().Add(*node);
    window.Settle();
  };
  BaseNode& root = *window.View().RootNode();
  BaseNode& nest = window.Node("The nest");
  EXPECT_EQ(usable(), "11101");
  const std::pair<std::vector<BaseNode*>, const char*> selections[] = {
      {{&nest}, "11111"},
      {{&nest, &root}, "11101"},
      {{graph.GroupNodes()[0].Get()}, "11101"},
      {{graph.CommentNodes()[0].Get()}, "11101"},
      {{&root}, "11111"},
  };
  for (const auto& [nodes, expected] : selections) {
    select(nodes);
    EXPECT_EQ(usable(), expected);
  }
  // One of two leaves the selection; then the root leaves the document, and comes back.
  select({&nest, &root});
  graph.Selected().Remove(nest);
  window.Settle();
  EXPECT_EQ(usable(), "11111");
  window.Focus(&graph.Panel());
  window.Press(Key::Delete);
  EXPECT_EQ(usable(), "11100");
  window.Undo();
  EXPECT_EQ(usable(), "11101");
  window.View().ClearDocument();
  window.Settle();
  EXPECT_EQ(usable(), "11100");
}

TEST(MenuBar, GreysTheFilesCommandsWithoutAWorkspace) {
  TestSupport::ToolkitEnvironment::Start(&RegisterComponents);
  const TestSupport::TemporaryDirectory nothing;
  const TestSupport::CurrentDirectoryScope here(nothing.Path());
  const TestSupport::CapturedBoxes boxes;
  const TestSupport::CapturedLog log;
  const auto view = Toolkit::MakePtr<MainView>();
  TestSupport::Stage stage(*view);
  for (const char* name : {"Open", "Save", "SaveAs"}) EXPECT_FALSE(Item(*view, name).IsEnabled()) << name;
}

TEST(FileDialogs, StartAtTheCurrentFile) {
  WindowStage window;
  const auto startOf = [&](const std::vector<Key>& chord) {
    window.dialogs.startPath = "none";
    window.Chord(chord);
    return window.dialogs.startPath;
  };
  EXPECT_EQ(startOf({Key::LeftCtrl, Key::O}), "");
  const TestSupport::TemporaryDirectory directory;
  const std::string saved = (directory.Path() / "saved.json").string();
  window.dialogs.path = saved;
  window.Chord({Key::LeftCtrl, Key::S});
  window.dialogs.path.reset();
  EXPECT_EQ(startOf({Key::LeftCtrl, Key::O}), saved);
  EXPECT_EQ(startOf({Key::LeftCtrl, Key::LeftShift, Key::S}), saved);
}

TEST(MenuBar, KeepsAllItemsInReachOfANarrowWindow) {
  WindowStage window({.document = "quest", .size = {911, 600}});
  MenuItem& more = Item(window, "\u00bb");
  const Toolkit::Rect box = WindowStage::BoxOf(more);
  EXPECT_LE(box.Right(), 911);
  EXPECT_TRUE(TestSupport::All<MenuItem>(&window.View()).size() > 1);
  window.Click(more);
  window.Click(Item(window, "Hotkeys"));
  EXPECT_TRUE(window.Shows("Keyboard Shortcuts"));
}

class Overlays : public testing::Test {
protected:
  bool IsHotkeysShown() const {
    return window.View().Get<Toolkit::Visibility>(MainView::HotkeysModalVisibilityProperty) ==
           Toolkit::Visibility::Visible;
  }
  bool HasFocus(const char* overlay) {
    const Toolkit::UIElement* focused = window.Input().Focused();
    return focused && TestSupport::Named<Toolkit::UIElement>(window.View(), overlay).IsAncestorOf(focused);
  }
  WindowStage window{"quest"};
};

TEST_F(Overlays, KeepAllInputFromWhatLiesBehind) {
  Graph& graph = window.View().GetGraph();
  ContentNode& nest = window.Node("The nest");
  window.LookAt(nest);
  graph.Selected().Add(nest);
  window.Focus(&graph.Panel());
  const std::string before = window.Exported();
  const Toolkit::Point view = window.Canvas().GetTranslation();
  window.Press(Key::H);
  ASSERT_TRUE(IsHotkeysShown());
  EXPECT_TRUE(HasFocus("HotkeysOverlay"));
  for (const Key key : {Key::Delete, Key::Right, Key::F2, Key::F10, Key::Tab, Key::Tab}) {
    window.Press(key);
    EXPECT_TRUE(HasFocus("HotkeysOverlay"));
  }
  for (const Key key : {Key::F, Key::O, Key::S, Key::A, Key::D, Key::Z}) window.Chord({Key::LeftCtrl, key});
  window.Drag({300, 300}, {500, 400});
  window.Drag({300, 300}, {500, 400}, {.button = Toolkit::MouseButton::Middle});
  window.RightClick({300, 300});
  window.Wheel({300, 300}, -3);
  window.Click({20, 20});
  // Also once a press beside the box has taken the focus.
  window.Focus(nullptr);
  window.Press(Key::Delete);
  window.Press(Key::F10);
  EXPECT_EQ(window.Exported(), before);
  EXPECT_EQ(window.Canvas().GetTranslation(), view);
  EXPECT_FALSE(window.Canvas().GetNodesMenu()->IsOpen());
  EXPECT_FALSE(window.dialogs.filter);
  EXPECT_EQ(window.History().Size(), 0u);
  EXPECT_FALSE(window.Shows("Find Node (Ctrl+F)"));
  EXPECT_TRUE(IsHotkeysShown());
  window.Press(Key::H);
  EXPECT_FALSE(IsHotkeysShown());
  EXPECT_TRUE(graph.Panel().IsFocused());
  EXPECT_EQ(graph.Selected().GetNodes().size(), 1u);
  window.Press(Key::Tab);
  EXPECT_TRUE(window.Input().Focused());
  EXPECT_FALSE(graph.Panel().IsFocused());
}

TEST_F(Overlays, EndWhatIsUnderWay) {
  ContentNode& nest = window.Node("The nest");
  window.LookAt(nest);
  const std::string before = window.Exported();
  const Toolkit::Rect box = WindowStage::BoxOf(nest);
  const Toolkit::Point grip{box.x + box.width / 2, box.Bottom() - 5};
  window.Press(grip);
  window.MoveTo(grip + Toolkit::Point{60, 60});
  EXPECT_NE(window.Exported(), before);
  window.Press(Key::H);
  ASSERT_TRUE(IsHotkeysShown());
  EXPECT_EQ(window.Exported(), before);
  window.MoveTo(grip + Toolkit::Point{90, 90});
  window.Release(grip);
  EXPECT_EQ(window.Exported(), before);
}

TEST_F(Overlays, GiveTheFocusBackWhicheverWayTheyClose) {
  ContentNode& nest = window.Node("The nest");
  window.LookAt(nest);
  auto& box = FirstBoxOf(nest);
  const std::function<void()> ways[] = {[&] { window.Press(Key::Escape); }, [&] { window.Press(Key::Return); },
                                        [&] { window.Press(Key::H); }};
  for (const auto& close : ways) {
    window.Click(box);
    window.Click(Item(window, "Hotkeys"));
    ASSERT_TRUE(IsHotkeysShown());
    EXPECT_TRUE(HasFocus("HotkeysOverlay"));
    close();
    EXPECT_FALSE(IsHotkeysShown());
    EXPECT_TRUE(box.IsFocused());
  }
}

} // namespace
} // namespace Tesselor
