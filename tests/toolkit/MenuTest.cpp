#include "toolkit/controls/Menu.h"
#include "Expected.h"
#include "toolkit/KeyScript.h"
#include "toolkit/MarkupTest.h"
#include "toolkit/controls/ContextMenu.h"
#include "toolkit/controls/MenuItem.h"
#include "toolkit/controls/StackPanel.h"

namespace Toolkit {
namespace {

/// A bar over an area that counts clicks. Clicks of items are noted with their names and how many popups are open.
class MenuTest : public StageTest {
protected:
  void ShowBar(const std::string& items) {
    Show("<StackPanel x:Name=\"Root\"><Menu x:Name=\"Bar\">" + items +
         "</Menu><Border x:Name=\"Area\" Background=\"Black\" Height=\"275\"/></StackPanel>");
    Listen(*window, MenuItem::ClickEvent, [this](const RoutedEventArgs& args) {
      clicks += std::string(static_cast<MenuItem*>(args.source)->GetName()) + std::to_string(OpenPopups()) + " ";
    });
  }
  void ShowUsual() {
    ShowBar(
        "<MenuItem x:Name=\"File\" Header=\"File\"><MenuItem x:Name=\"New\" Header=\"New\"/>"
        "<MenuItem x:Name=\"Off\" Header=\"Off\" IsEnabled=\"False\"/>"
        "<MenuItem x:Name=\"More\" Header=\"More\"><MenuItem x:Name=\"Deep\" Header=\"Deep\"/></MenuItem></MenuItem>"
        "<MenuItem x:Name=\"View\" Header=\"View\"><MenuItem x:Name=\"Grid\" Header=\"Grid\" IsCheckable=\"True\"/>"
        "</MenuItem><MenuItem x:Name=\"Help\" Header=\"Help\"/>");
  }
  const MenuItem& At(const char* item) { return Find<MenuItem>(item); }
  bool IsOpen(const char* item) { return Find<MenuItem>(item).IsSubmenuOpen(); }
  std::string Lit() {
    std::string names;
    for (const char* name : {"File", "New", "Off", "More", "Deep", "View", "Grid", "Help"})
      if (Find<MenuItem>(name).Get<bool>(MenuItem::IsHighlightedProperty)) names += std::string(name) + " ";
    return names;
  }
  /// A fresh window whose area has the focus, with the mouse out of the way.
  void ShowUsualBesideTheFocus() {
    ShowUsual();
    clicks.clear();
    Find("Area").SetValue(UIElement::FocusableProperty, true);
    Focus(&Find("Area"));
    MoveTo({390, 290});
  }
  static Ptr<ContextMenu> MenuOfOne() {
    auto menu = MakePtr<ContextMenu>();
    auto item = MakePtr<MenuItem>();
    item->SetName("Only");
    item->SetHeader("Only");
    menu->AddItem(item.Get());
    return menu;
  }
  std::string clicks;
};

TEST_F(MenuTest, OpensByAPressAndTheOthersByPassingOver) {
  ShowUsual();
  MoveTo(At("File"));
  EXPECT_EQ(Lit(), "File ");
  EXPECT_FALSE(IsOpen("File"));
  Press(At("File"));
  EXPECT_TRUE(IsOpen("File"));
  Release(At("File"));
  EXPECT_TRUE(IsOpen("File"));
  EXPECT_TRUE(Shows("New"));
  MoveTo(At("View"));
  EXPECT_FALSE(IsOpen("File"));
  EXPECT_TRUE(IsOpen("View"));
  EXPECT_EQ(OpenPopups(), 1u);
  MoveTo(At("Help"));
  EXPECT_EQ(OpenPopups(), 0u);
  MoveTo(At("File"));
  EXPECT_TRUE(IsOpen("File"));
  Click(At("File"));
  EXPECT_FALSE(IsOpen("File"));
  MoveTo(At("View"));
  EXPECT_FALSE(IsOpen("View"));
  Click(At("View"));
  EXPECT_TRUE(IsOpen("View"));
  Click({200, 250});
  EXPECT_EQ(OpenPopups(), 0u);
  EXPECT_EQ(Lit(), "");
  EXPECT_EQ(clicks, "");
}

TEST_F(MenuTest, ClosesAllMenusBeforeAnItemIsClicked) {
  ShowUsual();
  Click(At("File"));
  Click(At("Off"));
  EXPECT_EQ(OpenPopups(), 1u);
  MoveTo(At("More"));
  EXPECT_FALSE(IsOpen("More"));
  Wait(300);
  ASSERT_TRUE(IsOpen("More"));
  TestSupport::ExpectLayout("OpenMenus", window->Popups());
  // On the way to the submenu the mouse may cross other items for a moment.
  MoveTo(At("New"));
  EXPECT_TRUE(IsOpen("More"));
  MoveTo(At("Deep"));
  Wait(300);
  EXPECT_EQ(OpenPopups(), 2u);
  Click(At("Deep"));
  EXPECT_EQ(clicks, "Deep0 ");
  // Pressed on the bar, released on an item.
  Press(At("View"));
  MoveTo(At("Grid"));
  Release(At("Grid"));
  EXPECT_TRUE(Find<MenuItem>("Grid").IsChecked());
  Click(At("Help"));
  EXPECT_EQ(clicks, "Deep0 Grid0 Help0 ");
  EXPECT_EQ(Lit(), "");
}

TEST_F(MenuTest, IsWorkedByKeys) {
  const struct {
    const char* script;
    const char* lit;
    size_t open;
    const char* clicks;
  } cases[] = {
      // The bar's first item was pressed before.
      {"Down", "File New ", 1, ""},
      {"Down Down", "File More ", 1, ""},
      {"Down Down Down", "File New ", 1, ""},
      {"Up", "File More ", 1, ""},
      {"End", "File More ", 1, ""},
      {"End Home", "File New ", 1, ""},
      {"S", "File ", 1, ""},
      {"Down Return", "", 0, "New0 "},
      {"End Right", "File More Deep ", 2, ""},
      {"End Return Return", "", 0, "Deep0 "},
      {"End Right Left", "File More ", 1, ""},
      {"End Right Escape", "File More ", 1, ""},
      {"End Right Escape Escape", "", 0, ""},
      {"End Right Right", "View Grid ", 1, ""},
      {"Right", "View Grid ", 1, ""},
      {"Right Left", "File New ", 1, ""},
      {"Left", "Help ", 0, ""},
      {"Left Return", "", 0, "Help0 "},
      {"Left Left", "View Grid ", 1, ""},
      {"Left Right", "File New ", 1, ""},
      {"Left Right Down Right Return", "", 0, "Deep0 "},
      {"Left Escape", "", 0, ""},
      {"Right Right Home Down", "File New ", 1, ""},
      // The bar takes the keys.
      {"F10", "File ", 0, ""},
      {"F10 F10", "", 0, ""},
      {"F10 Escape", "", 0, ""},
      {"F10 Down", "File New ", 1, ""},
      {"F10 Left Return", "", 0, "Help0 "},
      {"F10 Down Return", "", 0, "New0 "},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.script);
    ShowUsualBesideTheFocus();
    if (*c.script != 'F') {
      Click(At("File"));
      MoveTo({390, 290});
    }
    RunKeys(*this, c.script);
    EXPECT_EQ(Lit(), c.lit);
    EXPECT_EQ(OpenPopups(), c.open);
    EXPECT_EQ(clicks, c.clicks);
    // It comes back with the end of the menus.
    if (!*c.lit || *c.script == 'F') {
      EXPECT_EQ(Find("Area").IsFocused(), !*c.lit);
    }
  }
}

TEST_F(MenuTest, ScrollsWhatDoesNotFit) {
  std::string items;
  for (int i = 0; i < 60; ++i) items += "<MenuItem Header=\"Row " + std::to_string(i) + "\"/>";
  ShowBar("<MenuItem x:Name=\"File\" Header=\"File\">" + items + "</MenuItem>");
  Click(At("File"));
  auto& last = *static_cast<MenuItem*>(Find<MenuItem>("File").ItemAt(59));
  EXPECT_GT(BoxOf(last).y, 300);
  Press(Key::End);
  EXPECT_LE(BoxOf(last).Bottom(), 300);
  Wheel({20, 100}, 1000);
  EXPECT_LE(BoxOf(*static_cast<MenuItem*>(Find<MenuItem>("File").ItemAt(0))).y, 60);
  EXPECT_EQ(OpenPopups(), 1u);
}

TEST_F(MenuTest, SurvivesAClickThatTakesTheMenuAway) {
  ShowUsual();
  Listen(Find("New"), MenuItem::ClickEvent, [&](auto&) { Find<StackPanel>("Root").ClearChildren(); });
  Click(At("File"));
  Click(At("New"));
  EXPECT_EQ(clicks, "New0 ");
}

TEST_F(MenuTest, OpensAContextMenuByARightClickOnItsElement) {
  ShowBar("");
  auto& area = Find<FrameworkElement>("Area");
  const Ptr<ContextMenu> menu = MenuOfOne();
  auto* item = static_cast<MenuItem*>(menu->ItemAt(0));
  area.SetValue(FrameworkElement::ContextMenuProperty, Value(menu));
  RightClick({100, 100});
  ASSERT_TRUE(menu->IsOpen());
  EXPECT_EQ(BoxOf(*menu).x, 100);
  EXPECT_EQ(BoxOf(*menu).y, 100);
  // A right click elsewhere only closes it.
  RightClick({50, 200});
  EXPECT_FALSE(menu->IsOpen());
  RightClick({100, 100});
  Click(item);
  EXPECT_EQ(clicks, "Only0 ");
  EXPECT_FALSE(menu->IsOpen());
  // Who handles the click wants no menu.
  Listen(area, UIElement::MouseRightButtonUpEvent, [](const RoutedEventArgs& args) { args.handled = true; });
  RightClick({100, 100});
  EXPECT_FALSE(menu->IsOpen());
  // One from a document is made when it is wanted, and inherits from its element.
  Show("<Border x:Name=\"Area\" Background=\"Black\" Tag=\"t\"><Border.ContextMenu><ContextMenu>"
       "<MenuItem Header=\"Made late\"/></ContextMenu></Border.ContextMenu></Border>");
  RightClick({100, 100});
  EXPECT_TRUE(Shows("Made late"));
}

TEST_F(MenuTest, KeepsAMenuThatOpenedByThePressThroughTheRelease) {
  ShowBar("");
  auto& area = Find<FrameworkElement>("Area");
  const Ptr<ContextMenu> menu = MenuOfOne();
  Listen(area, UIElement::PreviewMouseDownEvent, [&](const RoutedEventArgs& args) {
    args.handled = true;
    area.SetValue(FrameworkElement::ContextMenuProperty, Value(menu));
    menu->SetIsOpen(true);
  });
  for (const MouseButton button : {MouseButton::Right, MouseButton::Left}) {
    // At the lower edge the menu opens upward, so that the mouse is over its item.
    for (const Point at : {Point{100, 100}, Point{100, 270}}) {
      SCOPED_TRACE(std::to_string(static_cast<int>(button)) + " at " + std::to_string(at.y));
      Press(at, button);
      ASSERT_TRUE(menu->IsOpen());
      Release(at, button);
      EXPECT_TRUE(menu->IsOpen());
      EXPECT_EQ(clicks, "");
      Press(Key::Escape);
      EXPECT_FALSE(menu->IsOpen());
    }
  }
}

} // namespace
} // namespace Toolkit
