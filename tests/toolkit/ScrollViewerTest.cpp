#include "toolkit/controls/ScrollViewer.h"
#include "toolkit/KeyScript.h"
#include "toolkit/MarkupTest.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/StackPanel.h"

namespace Toolkit {
namespace {

constexpr float Bar = ScrollThumb::Width;

/// A viewer of 200 by 100 in the corner of a column that takes input.
class ScrollViewerTest : public StageTest {
protected:
  void ShowViewer(const std::string& attributes, const std::string& content) {
    Show("<StackPanel x:Name=\"Root\" Background=\"Black\"><ScrollViewer x:Name=\"V\" Width=\"200\" Height=\"100\" "
         "HorizontalAlignment=\"Left\" " +
             attributes + ">" + content + "</ScrollViewer></StackPanel>",
         {400, 400});
    viewer = &Find<ScrollViewer>("V");
  }
  bool Wheel(float notches) { return Stage::Wheel({50, 50}, notches); }
  static Point MiddleOf(const Rect& r) { return {r.x + r.width * 0.5f, r.y + r.height * 0.5f}; }

  ScrollViewer* viewer = nullptr;
};

std::string Block(const char* width, const char* height) {
  return std::string("<Border x:Name=\"B\" Background=\"Red\" HorizontalAlignment=\"Left\" Width=\"") + width +
         "\" Height=\"" + height + "\"/>";
}

TEST_F(ScrollViewerTest, LeavesRoomForTheBarsThatTheContentNeeds) {
  struct Case {
    const char *vertical, *horizontal;
    const char *width, *height;
    Size viewport;
  };
  for (const Case& c : std::vector<Case>{{"Auto", "Auto", "200", "100", {200, 100}},
                                         {"Auto", "Auto", "150", "101", {200 - Bar, 100}},
                                         {"Auto", "Auto", "201", "50", {200, 100 - Bar}},
                                         // One bar takes the room that makes the other one necessary.
                                         {"Auto", "Auto", "195", "101", {200 - Bar, 100 - Bar}},
                                         {"Auto", "Disabled", "300", "101", {200 - Bar, 100}},
                                         {"Hidden", "Auto", "200", "300", {200, 100}},
                                         {"Visible", "Auto", "150", "50", {200 - Bar, 100}},
                                         {"Disabled", "Auto", "150", "300", {200, 100}}}) {
    ShowViewer(std::string("VerticalScrollBarVisibility=\"") + c.vertical + "\" HorizontalScrollBarVisibility=\"" +
                   c.horizontal + "\"",
               Block(c.width, c.height));
    EXPECT_EQ(viewer->Viewport(), c.viewport)
        << c.vertical << "/" << c.horizontal << " " << c.width << " x " << c.height;
    // What is laid out anew has the same bars.
    viewer->InvalidateMeasure();
    Settle();
    EXPECT_EQ(viewer->Viewport(), c.viewport) << "the second time";
  }
}

TEST_F(ScrollViewerTest, WidensTheColumnOfAGridByItsBar) {
  const std::string content = "<ScrollViewer x:Name=\"V\" Grid.Row=\"1\" HorizontalScrollBarVisibility=\"Auto\">" +
                              Block("120", "500") + "</ScrollViewer>";
  const std::string rows = "<Grid.RowDefinitions><RowDefinition Height=\"20\"/><RowDefinition/></Grid.RowDefinitions>";
  // Once alone in a grid that is measured freely, and once in a column beside another.
  for (const std::string& panel :
       {"<Grid Grid.Row=\"1\" Grid.Column=\"1\">" + rows + content + "</Grid>",
        "<Border Grid.Row=\"1\" Grid.Column=\"1\"><Grid><Grid.RowDefinitions><RowDefinition Height=\"Auto\"/>"
        "<RowDefinition/></Grid.RowDefinitions><Border Height=\"20\"/>" +
            content + "</Grid></Border>"}) {
    Show("<StackPanel><Grid Height=\"120\" Width=\"300\"><Grid.ColumnDefinitions><ColumnDefinition/>"
         "<ColumnDefinition Width=\"Auto\"/></Grid.ColumnDefinitions>" +
             rows + "<Border x:Name=\"Rest\" Grid.Row=\"1\"/>" + panel + "</Grid></StackPanel>",
         {400, 400});
    EXPECT_EQ(Find<ScrollViewer>("V").Viewport(), (Size{120, 80})) << panel;
    EXPECT_EQ(Find("Rest").ActualWidth(), 300 - 120 - Bar);
  }
}

TEST_F(ScrollViewerTest, TakesABarAwayWithTheNeedForIt) {
  ShowViewer("", "<TextBlock x:Name=\"B\" TextWrapping=\"Wrap\"/>");
  auto& text = Find("B");
  const DependencyProperty* textProperty = text.GetType().FindProperty(Symbol("Text"));
  std::string words;
  for (int i = 0; i < 60; ++i) words += "words ";
  text.SetValue(textProperty, std::string_view(words));
  Settle();
  EXPECT_EQ(viewer->Viewport().width, 200 - Bar);
  EXPECT_LT(text.ActualWidth(), 195) << "the text wraps before the bar";
  viewer->ScrollTo({0, 1e6f});
  text.SetValue(textProperty, "short");
  Settle();
  EXPECT_EQ(viewer->Viewport().width, 200);
  EXPECT_EQ(viewer->ScrollOffset(), Point());
}

/// Half as high as it is wide, like a picture.
struct Picture : FrameworkElement {
  Picture() = default;
  Size MeasureOverride(Size available) override { return {available.width, available.width * 0.5f + 1}; }
};

TEST_F(ScrollViewerTest, SettlesWhereContentFitsOnlyBesideABar) {
  ShowViewer("", "");
  viewer->SetContent(Value(MakePtr<Picture>()));
  Settle();
  EXPECT_EQ(viewer->Viewport().width, 200 - Bar);
}

TEST_F(ScrollViewerTest, KeepsTheOffsetWithinWhatCanBeScrolled) {
  ShowViewer("HorizontalScrollBarVisibility=\"Auto\"", Block("500", "700"));
  viewer->ScrollTo({1e6f, 1e6f});
  EXPECT_EQ(viewer->ScrollOffset(), (Point{500 - 190, 700 - 90}));
  Find("B").SetHeight(300);
  Settle();
  EXPECT_EQ(viewer->ScrollOffset(), (Point{310, 210}));
  viewer->SetHeight(250);
  Settle();
  EXPECT_EQ(viewer->ScrollOffset(), (Point{310, 60}));
  EXPECT_EQ(Find("B").Offset(), (Point{-310, -60}));
}

TEST_F(ScrollViewerTest, ScrollsByItsBars) {
  ShowViewer("HorizontalScrollBarVisibility=\"Auto\"", Block("380", "900"));
  const Rect down = viewer->VerticalBar().Thumb(), across = viewer->HorizontalBar().Thumb();
  // Half of the content's way is half of the bar's.
  Drag(MiddleOf(down), {MiddleOf(down).x + 90, MiddleOf(down).y + (90 - down.height) * 0.5f});
  EXPECT_NEAR(viewer->ScrollOffset().y, 405, 0.5f);
  EXPECT_EQ(viewer->ScrollOffset().x, 0);
  Drag(MiddleOf(across), {MiddleOf(across).x + 500, 5});
  EXPECT_EQ(viewer->ScrollOffset().x, 190);
  // Beside it, the track takes a page.
  const Point below{MiddleOf(down).x, 89}, above{MiddleOf(down).x, 1};
  Click(below);
  EXPECT_NEAR(viewer->ScrollOffset().y, 495, 0.5f);
  Click(above);
  Click(above);
  EXPECT_NEAR(viewer->ScrollOffset().y, 315, 0.5f);
  EXPECT_EQ(Input().Captured(), nullptr);
  // A release that is never told of ends the drag as well.
  Press(MiddleOf(viewer->VerticalBar().Thumb()));
  Input().ReleaseAll();
  MoveTo({195, 5});
  EXPECT_NEAR(viewer->ScrollOffset().y, 315, 0.5f);
}

TEST_F(ScrollViewerTest, HitsItsBarsAndNotTheContentBelowThem) {
  ShowViewer("HorizontalScrollBarVisibility=\"Auto\"", Block("380", "900"));
  UIElement* block = &Find("B");
  EXPECT_EQ(window->HitTest({100, 50}), block);
  EXPECT_EQ(window->HitTest({195, 50}), viewer);
  EXPECT_EQ(window->HitTest({50, 95}), viewer);
  EXPECT_EQ(window->HitTest({50, 120}), &Find("Root"));
  const size_t withBars = Frame().Entries().size();
  ShowViewer("VerticalScrollBarVisibility=\"Hidden\" HorizontalScrollBarVisibility=\"Hidden\"", Block("380", "900"));
  EXPECT_EQ(Frame().Entries().size(), withBars - 2);
  EXPECT_EQ(window->HitTest({195, 50}), &Find("B"));
  EXPECT_TRUE(Wheel(-1)) << "without a bar it scrolls all the same";
}

TEST_F(ScrollViewerTest, LeavesTheWheelToThoseAroundAtTheEndOfItsWay) {
  ShowViewer("", "<ScrollViewer x:Name=\"Inner\" Height=\"150\" HorizontalScrollBarVisibility=\"Auto\">" +
                     Block("300", "200") + "</ScrollViewer>");
  auto& inner = Find<ScrollViewer>("Inner");
  EXPECT_TRUE(Wheel(-1));
  EXPECT_EQ(inner.ScrollOffset(), (Point{0, 48}));
  EXPECT_TRUE(Wheel(-1));
  EXPECT_EQ(inner.ScrollOffset(), (Point{0, 60}));
  EXPECT_EQ(viewer->ScrollOffset(), Point());
  EXPECT_TRUE(Wheel(-1));
  EXPECT_EQ(viewer->ScrollOffset(), (Point{0, 48}));
  EXPECT_TRUE(Wheel(-1));
  EXPECT_FALSE(Wheel(-1));
  KeyDown(Key::LeftShift);
  EXPECT_TRUE(Wheel(-1));
  EXPECT_EQ(inner.ScrollOffset(), (Point{48, 60}));
  for (int i = 0; i < 5; ++i) Wheel(-1);
  EXPECT_FALSE(Wheel(-1));
}

TEST_F(ScrollViewerTest, ScrollsByKeysThatNobodyInsideTakes) {
  ShowViewer(
      "HorizontalScrollBarVisibility=\"Auto\"",
      "<StackPanel Width=\"400\"><Button x:Name=\"First\" Height=\"30\"/><TextBox x:Name=\"Box\" Text=\"some\"/>"
      "<Border Height=\"500\"/><Button x:Name=\"Last\" Height=\"30\" HorizontalAlignment=\"Right\"/></StackPanel>");
  Focus(&Find("First"));
  const float end = viewer->Extent().height - 90;
  const struct {
    const char* key;
    bool isTaken;
    Point offset;
  } steps[] = {{"Up", false, {0, 0}},     {"Down", true, {0, 24}},  {"PageDown", true, {0, 90}},
               {"Right", true, {24, 90}}, {"End", true, {24, end}}, {"PageUp", true, {24, end - 66}},
               {"Home", true, {24, 0}},   {"Left", true, {0, 0}},   {"Space", true, {0, 0}}};
  for (const auto& s : steps) {
    EXPECT_EQ(RunKeys(*this, s.key), s.isTaken) << s.key;
    EXPECT_EQ(viewer->ScrollOffset(), s.offset) << s.key;
  }
  Focus(&Find("Box"));
  Press(Key::End);
  EXPECT_EQ(viewer->ScrollOffset(), Point()) << "the text box needs this key itself";
  // What Tab comes to is shown.
  Press(Key::Tab);
  EXPECT_TRUE(Find("Last").IsFocused());
  EXPECT_EQ(viewer->ScrollOffset().y, end);
  Press(Key::Tab);
  EXPECT_EQ(viewer->ScrollOffset(), Point());
}

} // namespace
} // namespace Toolkit
