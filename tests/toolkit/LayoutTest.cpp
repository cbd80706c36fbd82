#include "toolkit/MarkupTestSupport.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/Grid.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/visual/Transform.h"

#include <sstream>

namespace Toolkit {
namespace {

/// The names, places and sizes of all named elements, in tree order.
void Dump(const UIElement& element, std::ostringstream& out) {
  const auto& framework = static_cast<const FrameworkElement&>(element);
  if (!framework.GetName().empty()) {
    const Matrix place = element.TransformToAncestor(nullptr);
    out << framework.GetName() << ' ' << place.dx << ',' << place.dy << ' ' << element.ActualWidth() << 'x'
        << element.ActualHeight() << '\n';
  }
  for (size_t i = 0; i < element.VisualChildCount(); ++i) Dump(*element.VisualChild(i), out);
}

class LayoutTest : public MarkupTest {
protected:
  std::string Layout(const std::string& root, const std::string& rest, Size size) {
    Ptr<FrameworkElement> element = Make(root, rest);
    if (!element) return "no element";
    element->AttachAsRoot();
    element->Measure(size);
    element->Arrange({0, 0, size.width, size.height});
    LayoutQueue::Current().Run();
    std::ostringstream out;
    Dump(*element, out);
    element->DetachAsRoot();
    return out.str();
  }
};

TEST_F(LayoutTest, PlacesChildrenOfPanels) {
  EXPECT_EQ(
      Layout(
          "StackPanel",
          R"( x:Name="P"><Border x:Name="A" Height="10"/><Border x:Name="B" Height="20" Width="30" HorizontalAlignment="Right" Margin="1 2 3 4"/><Border x:Name="C" Height="5" Visibility="Collapsed"/><Border x:Name="D" Height="5" Width="10"/></StackPanel>)",
          {100, 100}),
      "P 0,0 100x100\nA 0,0 100x10\nB 67,12 30x20\nC 0,0 0x0\nD 45,36 10x5\n");
  EXPECT_EQ(
      Layout(
          "DockPanel",
          R"(><Border x:Name="L" Width="20"/><Border x:Name="T" DockPanel.Dock="Top" Height="10"/><Border x:Name="R" DockPanel.Dock="Right" Width="15"/><Border x:Name="F"/></DockPanel>)",
          {100, 50}),
      "L 0,0 20x50\nT 20,0 80x10\nR 85,10 15x40\nF 20,10 65x40\n");
  EXPECT_EQ(Layout("Border", R"( BorderThickness="2" Padding="3 4"><Border x:Name="I"/></Border>)", {50, 40}),
            "I 5,6 40x28\n");
}

TEST_F(LayoutTest, SharesGridTracks) {
  EXPECT_EQ(Layout("Grid", R"(>
      <Grid.ColumnDefinitions><ColumnDefinition Width="20"/><ColumnDefinition Width="Auto"/><ColumnDefinition Width="2*"/><ColumnDefinition Width="*"/></Grid.ColumnDefinitions>
      <Grid.RowDefinitions><RowDefinition Height="Auto"/><RowDefinition Height="*"/></Grid.RowDefinitions>
      <Border x:Name="A" Height="12"/><Border x:Name="B" Grid.Column="1" Width="30"/><Border x:Name="C" Grid.Column="2" Grid.Row="1"/>
      <Border x:Name="D" Grid.Column="3"/><Border x:Name="E" Grid.Column="0" Grid.ColumnSpan="4" Grid.Row="1"/></Grid>)",
                   {140, 100}),
            "A 0,0 20x12\nB 20,0 30x12\nC 50,12 60x88\nD 110,0 30x12\nE 0,12 140x88\n");
  // With no width given, stars want what their children want, in proportion.
  EXPECT_EQ(
      Layout(
          "StackPanel",
          R"( Orientation="Horizontal"><Grid x:Name="G"><Grid.ColumnDefinitions><ColumnDefinition Width="200"/><ColumnDefinition Width="*"/></Grid.ColumnDefinitions>
      <Border Grid.Column="1" Width="75"/></Grid></StackPanel>)",
          {1000, 10}),
      "G 0,0 275x10\n");
}

TEST_F(LayoutTest, MakesEachChildOfACanvasALayoutRootOfItsOwn) {
  auto canvas = Make<Canvas>(
      "Canvas",
      R"( Width="500" Height="500"><Border x:Name="A" Canvas.Left="10" Canvas.Top="20"><TextBlock x:Name="T" Text="abc"/></Border><Border x:Name="B" Canvas.Left="100"><TextBlock x:Name="U" Text="abc"/></Border></Canvas>)");
  canvas->AttachAsRoot();
  LayoutQueue::Current().Run();
  auto* a = canvas->FindName("A");
  auto* text = canvas->FindName<TextBlock>("T");
  const float before = a->ActualWidth();
  EXPECT_GT(before, 0);
  text->SetText("a much longer text");
  EXPECT_TRUE(canvas->IsMeasureValid());
  EXPECT_TRUE(canvas->FindName("U")->IsMeasureValid());
  canvas->UpdateLayout();
  EXPECT_GT(a->ActualWidth(), before);
  Canvas::SetLeft(a, 33);
  EXPECT_EQ(a->Offset(), (Point{33, 20}));
  auto added = MakePtr<TextBlock>();
  added->SetText("x");
  Canvas::SetLeft(added.Get(), 7);
  canvas->AddChild(added.Get());
  canvas->UpdateLayout();
  EXPECT_EQ(added->Offset(), (Point{7, 0}));
  EXPECT_GT(added->ActualHeight(), 0);
  canvas->DetachAsRoot();
}

TEST_F(LayoutTest, LaysOutWhatChangedWhileItWasDetached) {
  auto panel = MakePtr<StackPanel>();
  auto inner = MakePtr<StackPanel>();
  auto block = MakePtr<TextBlock>();
  block->SetText("short");
  inner->AddChild(block.Get());
  panel->AddChild(inner.Get());
  panel->AttachAsRoot();
  LayoutQueue::Current().Run();
  const float narrow = block->DesiredSize().width;
  panel->RemoveChild(inner.Get());
  block->SetText("a longer text than before");
  panel->AddChild(inner.Get());
  LayoutQueue::Current().Run();
  EXPECT_GT(block->DesiredSize().width, narrow);
  block->SetVisibility(Visibility::Collapsed);
  LayoutQueue::Current().Run();
  EXPECT_EQ(inner->DesiredSize().height, 0);
  block->SetVisibility(Visibility::Visible);
  LayoutQueue::Current().Run();
  EXPECT_GT(inner->DesiredSize().height, 0);
  panel->DetachAsRoot();
}

TEST_F(LayoutTest, MapsPointsThroughTransforms) {
  auto canvas = Make<Canvas>(
      "Canvas",
      R"( Width="500" Height="500"><Canvas x:Name="Inner" Canvas.Left="10" Canvas.Top="10" Width="100" Height="100">
    <Canvas.RenderTransform><TransformGroup><ScaleTransform ScaleX="2" ScaleY="2"/><TranslateTransform X="5"/></TransformGroup></Canvas.RenderTransform>
    <Border x:Name="Leaf" Canvas.Left="4" Width="20" Height="20" Background="Red"/></Canvas></Canvas>)");
  canvas->AttachAsRoot();
  LayoutQueue::Current().Run();
  auto* leaf = canvas->FindName("Leaf");
  EXPECT_EQ(leaf->TransformToAncestor(canvas.Get()).Map({1, 1}), (Point{25, 12}));
  EXPECT_EQ(leaf->PointFromRoot({25, 12}), (Point{1, 1}));
  EXPECT_EQ(canvas->HitTest({24, 12}), leaf);
  EXPECT_EQ(canvas->HitTest({22, 12}), nullptr);
  canvas->DetachAsRoot();
}

TEST_F(LayoutTest, RaisesLoadedOnceWithSizesValid) {
  auto panel = MakePtr<StackPanel>();
  auto block = MakePtr<TextBlock>();
  block->SetText("abc");
  int loads = 0;
  float width = 0;
  block->AddHandler(FrameworkElement::LoadedEvent, RoutedEventHandler::From([&](Object*, const RoutedEventArgs&) {
                      ++loads;
                      width = block->ActualWidth();
                    }));
  panel->AttachAsRoot();
  panel->AddChild(block.Get());
  LayoutQueue::Current().RaiseLoaded();
  LayoutQueue::Current().RaiseLoaded();
  EXPECT_EQ(loads, 1);
  EXPECT_GT(width, 0);
  panel->DetachAsRoot();
}

} // namespace
} // namespace Toolkit
