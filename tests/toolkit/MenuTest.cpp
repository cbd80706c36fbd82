#include "toolkit/controls/Menu.h"
#include "Expected.h"
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
  /// "<highlighted items> | <number of open menus> | <clicks so far>"
  std::string State() {
    std::string names;
    for (const char* name : {"File", "New", "Off", "More", "Deep", "View", "Grid", "Help"})
      if (Find(name).Get<bool>(MenuItem::IsHighlightedProperty)) names += std::string(name) + " ";
    return names + "| " + std::to_string(OpenPopups()) + " | " + clicks;
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

TEST_F(MenuTest, IsWorkedByTheMouse) {
  const std::pair<const char*, const char*> steps[] = {
      // Opens by a press, and the others by passing over.
      {"move:File", "File | 0 | "},
      {"press:File", "File | 1 | "},
      {"release:File", "File | 1 | "},
      {"move:View", "View | 1 | "},
      {"move:Help", "Help | 0 | "},
      {"move:File", "File | 1 | "},
      {"click:File", "File | 0 | "},
      {"move:View", "View | 0 | "},
      {"click:View", "View | 1 | "},
      {"click:200,250", "| 0 | "},
      // All menus are closed before an item is clicked.
      {"click:File click:Off", "File | 1 | "},
      {"move:More", "File More | 1 | "},
      {"wait:300", "File More | 2 | "},
      // On the way to the submenu the mouse may cross other items for a moment.
      {"move:New", "File More | 2 | "},
      {"move:Deep wait:300", "File More Deep | 2 | "},
      {"click:Deep", "| 0 | Deep0 "},
      // Pressed on the bar, released on an item.
      {"press:View move:Grid release:Grid", "| 0 | Deep0 Grid0 "},
      {"click:Help", "| 0 | Deep0 Grid0 Help0 "},
  };
  ShowUsual();
  for (const auto& [script, state] : steps) {
    Run(script);
    EXPECT_EQ(State(), state) << script;
  }
  EXPECT_TRUE(Find<MenuItem>("Grid").IsChecked());
  Run("click:File move:More wait:300");
  TestSupport::ExpectLayout("OpenMenus", window->Popups());
}

TEST_F(MenuTest, IsWorkedByKeys) {
  std::string dump;
  const auto run = [&](const std::string& opening, const std::string& keys) {
    ShowUsual();
    clicks.clear();
    auto& area = Find("Area");
    area.SetValue(UIElement::FocusableProperty, true);
    Focus(&area);
    Run(opening + " move:390,290 " + keys);
    dump += opening + " " + keys + ": " + State() + (area.IsFocused() ? "; the area has the focus\n" : "\n");
  };
  for (const char* keys : {"Down",
                           "Down Down",
                           "Down Down Down",
                           "Up",
                           "End",
                           "End Home",
                           "S",
                           "Down Return",
                           "End Right",
                           "End Return Return",
                           "End Right Left",
                           "End Right Escape",
                           "End Right Escape Escape",
                           "End Right Right",
                           "Right",
                           "Right Left",
                           "Left",
                           "Left Return",
                           "Left Left",
                           "Left Right",
                           "Left Right Down Right Return",
                           "Left Escape",
                           "Right Right Home Down"})
    run("click:File", keys);
  for (const char* keys : {"", "F10", "Escape", "Down", "Left Return", "Down Return"}) run("F10", keys);
  TestSupport::ExpectText("MenuKeys", dump);
}

TEST_F(MenuTest, ScrollsWhatDoesNotFit) {
  std::string items;
  for (int i = 0; i < 60; ++i) items += "<MenuItem Header=\"Row " + std::to_string(i) + "\"/>";
  ShowBar("<MenuItem x:Name=\"File\" Header=\"File\">" + items + "</MenuItem>");
  Run("click:File");
  auto& last = *static_cast<MenuItem*>(Find<MenuItem>("File").ItemAt(59));
  EXPECT_GT(BoxOf(last).y, 300);
  Press(Key::End);
  EXPECT_LE(BoxOf(last).Bottom(), 300);
  Wheel({20, 100}, 1000);
  EXPECT_LE(BoxOf(*static_cast<MenuItem*>(Find<MenuItem>("File").ItemAt(0))).y, 60);
  EXPECT_EQ(OpenPopups(), 1u);
}

TEST_F(MenuTest, KeepsWhatDoesNotFitInALastMenu) {
  ShowUsual();
  const auto headers = [&] {
    auto& bar = Find<Menu>("Bar");
    std::string text;
    for (size_t i = 0; i < bar.ItemCount(); ++i)
      text += std::string(static_cast<MenuItem*>(bar.ItemAt(i))->GetHeader().AsStringView()) + " ";
    return text;
  };
  const Size wide{400, 300};
  const auto widthUpTo = [&](const char* name) { return BoxOf(Find(name)).Right(); };
  const float upToFile = widthUpTo("File"), upToView = widthUpTo("View"), all = widthUpTo("Help");
  const std::pair<float, const char*> widths[] = {
      {all + 6, "File View Help "},    {all + 5, "File View » "},    {upToView + 36, "File View » "},
      {upToView + 20, "File » "},      {upToFile + 8, "» "},         {0, "» "},
      {upToView + 36, "File View » "}, {all + 6, "File View Help "},
  };
  for (const auto& [width, shown] : widths) {
    Resize({width, 300});
    EXPECT_EQ(headers(), shown) << width;
  }
  // All of it is worked as before, by the mouse and by keys, with what it opens.
  Resize({upToFile + 40, 300});
  ASSERT_EQ(headers(), "File » ");
  auto& last = *static_cast<MenuItem*>(Find<Menu>("Bar").ItemAt(1));
  Click(last);
  EXPECT_EQ(State(), "| 1 | ");
  Click(Find("Help"));
  EXPECT_EQ(State(), "| 0 | Help0 ");
  Press(Key::F10);
  for (const Key key : {Key::Right, Key::Down, Key::Right, Key::Return}) Press(key);
  EXPECT_TRUE(Find<MenuItem>("Grid").IsChecked());
  // What is lit isn't any more in another menu.
  Resize(wide);
  Press(Key::F10);
  Press(Key::Right);
  Press(Key::Right);
  EXPECT_EQ(State(), "Help | 0 | Help0 Grid0 ");
  Resize({upToFile + 40, 300});
  EXPECT_EQ(State(), "| 0 | Help0 Grid0 ");
  // An open one closes when the bar changes, and its items are back in the bar.
  Click(last);
  Resize(wide);
  EXPECT_EQ(headers(), "File View Help ");
  Click(Find("Help"));
  EXPECT_EQ(State(), "| 0 | Help0 Grid0 Help0 ");
  Click(Find("File"));
  EXPECT_EQ(State(), "File | 1 | Help0 Grid0 Help0 ");
}

TEST_F(MenuTest, HangsRightUnderItsItemInAHighBar) {
  Show("<Grid><Menu Height=\"100\" VerticalAlignment=\"Top\"><MenuItem x:Name=\"File\" Header=\"File\">"
       "<MenuItem x:Name=\"New\" Header=\"New\"/></MenuItem></Menu></Grid>");
  Run("click:File");
  const Rect item = BoxOf(Find("File"));
  const float top = BoxOf(*Find("New").VisualParent()->VisualParent()).y;
  EXPECT_GT(top, item.y + item.height / 2);
  EXPECT_LT(top, item.y + item.height / 2 + 20);
}

TEST_F(MenuTest, SurvivesAClickThatTakesTheMenuAway) {
  ShowUsual();
  Listen(Find("New"), MenuItem::ClickEvent, [&](auto&) { Find<StackPanel>("Root").ClearChildren(); });
  Run("click:File click:New");
  EXPECT_EQ(clicks, "New0 ");
}

TEST_F(MenuTest, OpensAContextMenuByARightClickOnItsElement) {
  ShowBar("");
  auto& area = Find("Area");
  const Ptr<ContextMenu> menu = MenuOfOne();
  area.SetValue(FrameworkElement::ContextMenuProperty, Value(menu));
  Run("right:100,100");
  ASSERT_TRUE(menu->IsOpen());
  EXPECT_EQ(BoxOf(*menu).x, 100);
  EXPECT_EQ(BoxOf(*menu).y, 100);
  // A right click elsewhere only closes it.
  Run("right:50,200");
  EXPECT_FALSE(menu->IsOpen());
  Run("right:100,100");
  Click(static_cast<MenuItem*>(menu->ItemAt(0)));
  EXPECT_EQ(clicks, "Only0 ");
  EXPECT_FALSE(menu->IsOpen());
  // Who handles the click wants no menu.
  Listen(area, UIElement::MouseRightButtonUpEvent, [](const RoutedEventArgs& args) { args.handled = true; });
  Run("right:100,100");
  EXPECT_FALSE(menu->IsOpen());
  // One from a document is made when it is wanted, and inherits from its element.
  Show("<Border Background=\"Black\"><Border.ContextMenu><ContextMenu><MenuItem Header=\"Made late\"/></ContextMenu>"
       "</Border.ContextMenu></Border>");
  Run("right:100,100");
  EXPECT_TRUE(Shows("Made late"));
}

TEST_F(MenuTest, KeepsAMenuThatOpenedByThePressThroughTheRelease) {
  ShowBar("");
  auto& area = Find("Area");
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
