#include "Expected.h"
#include "toolkit/MarkupTest.h"
#include "toolkit/controls/ListView.h"
#include "toolkit/controls/ScrollViewer.h"

namespace Toolkit {
namespace {

/// One control of each kind in each state, as the theme paints them.
class ControlPictures : public StageTest {
protected:
  ControlPictures() : StageTest(Frames::Drawn) {}
};

TEST_F(ControlPictures, States) {
  const auto row = [](const std::string& one, const char* kind) {
    std::string all = "<StackPanel Margin=\"6\">";
    for (const char* state : {"Rest", "Hover", "Press", "Focus", "Off"}) {
      std::string name = std::string(kind) + state, copy = one;
      copy.insert(copy.find(' '), " Margin=\"4\" x:Name=\"" + name + "\"");
      all += copy;
    }
    return all + "</StackPanel>";
  };
  Show("<StackPanel Orientation=\"Horizontal\">" + row("<Button Content=\"Button\" Width=\"80\"/>", "Button") +
           row("<CheckBox Content=\"Check\"/>", "Open") +
           row("<CheckBox Content=\"Check\" IsChecked=\"True\"/>", "Checked") +
           row("<Slider Width=\"120\" Value=\"4\" TickPlacement=\"BottomRight\"/>", "Slider") +
           row("<TextBox Width=\"80\" Text=\"Text\"/>", "Text") + "</StackPanel>",
       {460, 200});
  for (const char* kind : {"Button", "Open", "Checked", "Slider", "Text"}) {
    const auto set = [&](const char* state, const DependencyProperty* property, bool value) {
      Find((std::string(kind) + state).c_str()).SetValue(property, value);
    };
    set("Hover", UIElement::IsMouseOverProperty, true);
    const Toolkit::Type& type = Find((std::string(kind) + "Press").c_str()).GetType();
    const DependencyProperty* pressed = type.FindProperty(Symbol("IsPressed"));
    if (!pressed) pressed = type.FindProperty(Symbol("IsDragging"));
    if (pressed) set("Press", pressed, true);
    set("Focus", UIElement::IsFocusedProperty, true);
    set("Focus", UIElement::IsFocusVisibleProperty, true);
    set("Off", UIElement::IsEnabledProperty, false);
  }
  Settle();
  TestSupport::ExpectPicture("ControlStates", Shown());
}

TEST_F(ControlPictures, Scrolling) {
  Show("<Grid Margin=\"8\"><Grid.ColumnDefinitions><ColumnDefinition/><ColumnDefinition/><ColumnDefinition/>"
       "</Grid.ColumnDefinitions>"
       "<ScrollViewer x:Name=\"Viewer\" HorizontalScrollBarVisibility=\"Auto\" Margin=\"4\">"
       "<StackPanel Background=\"#1B1D22\"><Expander x:Name=\"Open\" Header=\"Open\" IsExpanded=\"True\">"
       "<TextBlock Text=\"Content that is wider than the viewer\" Margin=\"6\"/></Expander>"
       "<Expander x:Name=\"Focus\" Header=\"With the focus\"/><Expander x:Name=\"Hover\" Header=\"Hovered\"/>"
       "<Border Height=\"200\"/></StackPanel></ScrollViewer>"
       "<TextBox Grid.Column=\"1\" Margin=\"4\" AcceptsReturn=\"True\" TextWrapping=\"Wrap\" "
       "VerticalScrollBarVisibility=\"Auto\" Text=\"One line after the other, until the box has no room left for all "
       "of them and shows a bar at its right edge, which stands beside the words and never on top of them, however "
       "long the text becomes in the end. Another sentence makes sure of it, and another one still.\"/>"
       "<ListView x:Name=\"List\" Grid.Column=\"2\" Margin=\"4\"><ListView.View><GridView>"
       "<GridViewColumn Width=\"70\"><GridViewColumn.CellTemplate><DataTemplate><TextBlock Margin=\"4\" "
       "Text=\"{Binding Text}\"/></DataTemplate></GridViewColumn.CellTemplate></GridViewColumn>"
       "<GridViewColumn><GridViewColumn.CellTemplate><DataTemplate><Button Content=\"X\"/></DataTemplate>"
       "</GridViewColumn.CellTemplate></GridViewColumn></GridView></ListView.View></ListView></Grid>",
       {520, 210});
  const auto rows = MakeItems({"first", "second", "third"});
  auto& list = Find<ListView>("List");
  list.SetItemsSource(rows.Get());
  list.SetSelectedIndex(1);
  Settle();
  list.GetItemContainerGenerator().ContainerFromIndex(2)->SetValue(UIElement::IsMouseOverProperty, true);
  Find("Focus").SetValue(UIElement::IsFocusVisibleProperty, true);
  const auto at = [](const UIElement& element, Point point) { return element.TransformToAncestor(nullptr).Map(point); };
  auto& viewer = Find<ScrollViewer>("Viewer");
  viewer.ScrollTo({10, 12});
  Settle();
  MoveTo(at(Find("Hover"), {30, 10}));
  const Rect thumb = viewer.VerticalBar().Thumb();
  Input().MouseDown(MouseButton::Left, at(viewer, {thumb.x + 3, thumb.y + 3}), 1);
  Settle();
  TestSupport::ExpectPicture("Scrolling", Shown());
}

} // namespace
} // namespace Toolkit
