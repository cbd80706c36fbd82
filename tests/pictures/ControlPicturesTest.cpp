#include "PictureStage.h"

#include "toolkit/MarkupTestSupport.h"
#include "toolkit/application/Window.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/HeaderedContentControl.h"
#include "toolkit/controls/ListView.h"
#include "toolkit/controls/ScrollViewer.h"
#include "toolkit/controls/StackPanel.h"

namespace Toolkit {
namespace {

/// One control of each kind in each state, as the theme paints them.
class ControlPictures : public TestSupport::PictureTest {
protected:
  ~ControlPictures() override {
    if (window) window->DetachAsRoot();
    window.Reset();
    content.Reset();
    input.reset();
  }
  void Show(Size size, const std::string& text) {
    markup = "<Grid xmlns=\"p\" xmlns:x=\"x\">" + text + "</Grid>";
    plan =
        DocumentCompiler("controls.xaml", markup, [](std::string_view) { return Ptr<ResourceDictionary>(); }).Compile();
    ASSERT_TRUE(plan);
    const Ptr<Object> made = Instantiation(nullptr, nullptr, false).Create(*plan);
    content = Ptr<FrameworkElement>(DynamicCast<FrameworkElement>(made));
    window = MakePtr<Window>();
    window->ApplyThemeStyle();
    window->SetContent(Value(content));
    input = std::make_unique<InputState>(*window);
    window->SetClientSize(size);
  }
  template <class T = FrameworkElement> T& Named(const char* name) { return *content->FindName<T>(name); }
  void ExpectWindow(const std::string& name) {
    LayoutQueue::Current().RaiseLoaded();
    LayoutQueue::Current().Run();
    const Size size = window->RenderSize();
    RenderTest::Picture picture(static_cast<int>(size.width), static_cast<int>(size.height));
    const FrameRecorder::Frame frame = FrameRecorder(nullptr).Record(*window, size, 1);
    TileRasterizer(1).Draw(*frame.list, picture.Buffer());
    Compare(name, picture);
  }

  Ptr<Window> window;
  Ptr<FrameworkElement> content;

private:
  std::string markup;
  std::unique_ptr<ElementPlan> plan;
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
  Show({460, 200}, "<StackPanel Orientation=\"Horizontal\">" +
                       row("<Button Content=\"Button\" Width=\"80\"/>", "Button") +
                       row("<CheckBox Content=\"Check\"/>", "Open") +
                       row("<CheckBox Content=\"Check\" IsChecked=\"True\"/>", "Checked") +
                       row("<Slider Width=\"120\" Value=\"4\" TickPlacement=\"BottomRight\"/>", "Slider") +
                       row("<TextBox Width=\"80\" Text=\"Text\"/>", "Text") + "</StackPanel>");
  for (const char* kind : {"Button", "Open", "Checked", "Slider", "Text"}) {
    const auto set = [&](const char* state, const DependencyProperty* property, bool value) {
      Named((std::string(kind) + state).c_str()).SetValue(property, value);
    };
    set("Hover", UIElement::IsMouseOverProperty, true);
    const Toolkit::Type& type = Named((std::string(kind) + "Press").c_str()).GetType();
    const DependencyProperty* pressed = type.FindProperty(Symbol("IsPressed"));
    if (!pressed) pressed = type.FindProperty(Symbol("IsDragging"));
    if (pressed) set("Press", pressed, true);
    set("Focus", UIElement::IsFocusedProperty, true);
    set("Focus", UIElement::IsFocusVisibleProperty, true);
    set("Off", UIElement::IsEnabledProperty, false);
  }
  ExpectWindow("ControlStates");
}

TEST_F(ControlPictures, Scrolling) {
  Show({520, 210},
       "<Grid Margin=\"8\"><Grid.ColumnDefinitions><ColumnDefinition/><ColumnDefinition/><ColumnDefinition/>"
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
       "</GridViewColumn.CellTemplate></GridViewColumn></GridView></ListView.View></ListView></Grid>");
  auto rows = MakePtr<ObservableCollection<TestData>>();
  for (const char* text : {"first", "second", "third"}) {
    rows->Add(MakePtr<TestData>());
    rows->Get(rows->Count() - 1)->SetText(text);
  }
  auto& list = Named<ListView>("List");
  list.SetItemsSource(rows.Get());
  list.SetSelectedIndex(1);
  LayoutQueue::Current().Run();
  list.GetItemContainerGenerator().ContainerFromIndex(2)->SetValue(UIElement::IsMouseOverProperty, true);
  Named("Focus").SetValue(UIElement::IsFocusVisibleProperty, true);
  const auto at = [](const UIElement& element, Point point) { return element.TransformToAncestor(nullptr).Map(point); };
  input->MouseMove(at(Named("Hover"), {30, 10}));
  auto& viewer = Named<ScrollViewer>("Viewer");
  viewer.ScrollTo({10, 12});
  LayoutQueue::Current().Run();
  const Rect thumb = viewer.VerticalBar().Thumb();
  input->MouseDown(MouseButton::Left, at(viewer, {thumb.x + 3, thumb.y + 3}), 1);
  ExpectWindow("Scrolling");
}

} // namespace
} // namespace Toolkit
