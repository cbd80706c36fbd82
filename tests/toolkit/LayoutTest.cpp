#include "Expected.h"
#include "toolkit/MarkupTest.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/visual/LayoutQueue.h"
#include "toolkit/visual/Transform.h"

namespace Toolkit {
namespace {

class LayoutTest : public StageTest {};

TEST_F(LayoutTest, PlacesChildrenOfPanels) {
  const struct {
    const char* name;
    Size size;
    const char* markup;
  } cases[] = {
      {"StackPanel",
       {100, 100},
       R"(<StackPanel><Border x:Name="A" Height="10"/>
       <Border x:Name="B" Height="20" Width="30" HorizontalAlignment="Right" Margin="1 2 3 4"/>
       <Border x:Name="C" Height="5" Visibility="Collapsed"/><Border x:Name="D" Height="5" Width="10"/></StackPanel>)"},
      {"DockPanel",
       {100, 50},
       R"(<DockPanel><Border x:Name="Left" Width="20"/><Border x:Name="Top" DockPanel.Dock="Top" Height="10"/>
       <Border x:Name="Right" DockPanel.Dock="Right" Width="15"/><Border x:Name="Rest"/></DockPanel>)"},
      {"Border", {50, 40}, R"(<Border BorderThickness="2" Padding="3 4"><Border/></Border>)"},
  };
  for (const auto& c : cases) {
    Show(c.markup, c.size);
    TestSupport::ExpectLayout(std::string("Layout") + c.name, *window);
  }
}

TEST_F(LayoutTest, MakesEachChildOfACanvasALayoutRootOfItsOwn) {
  Show(R"(<Canvas x:Name="C"><Border x:Name="A" Canvas.Left="10" Canvas.Top="20"><TextBlock x:Name="T" Text="abc"/>
       </Border><Border Canvas.Left="100"><TextBlock x:Name="U" Text="abc"/></Border></Canvas>)");
  auto& canvas = Find<Canvas>("C");
  auto& a = Find("A");
  const float before = a.ActualWidth();
  EXPECT_GT(before, 0);
  Find<TextBlock>("T").SetText("a much longer text");
  EXPECT_TRUE(canvas.IsMeasureValid());
  EXPECT_TRUE(Find("U").IsMeasureValid());
  Settle();
  EXPECT_GT(a.ActualWidth(), before);
  Canvas::SetLeft(&a, 33);
  EXPECT_EQ(a.Offset(), (Point{33, 20}));
  auto added = MakePtr<TextBlock>();
  added->SetText("x");
  Canvas::SetLeft(added.Get(), 7);
  canvas.AddChild(added.Get());
  Settle();
  EXPECT_EQ(added->Offset(), (Point{7, 0}));
  EXPECT_GT(added->ActualHeight(), 0);
}

TEST_F(LayoutTest, LaysOutWhatChangedWhileItWasDetached) {
  Show("<StackPanel x:Name=\"Outer\"><StackPanel x:Name=\"Inner\"><TextBlock x:Name=\"T\" Text=\"short\"/></StackPanel>"
       "</StackPanel>");
  auto& outer = Find<StackPanel>("Outer");
  auto& block = Find<TextBlock>("T");
  const Ptr<FrameworkElement> inner(&Find("Inner"));
  const float narrow = block.DesiredSize().width;
  outer.RemoveChild(inner.Get());
  block.SetText("a longer text than before");
  outer.AddChild(inner.Get());
  Settle();
  EXPECT_GT(block.DesiredSize().width, narrow);
  block.SetVisibility(Visibility::Collapsed);
  Settle();
  EXPECT_EQ(inner->DesiredSize().height, 0);
  block.SetVisibility(Visibility::Visible);
  Settle();
  EXPECT_GT(inner->DesiredSize().height, 0);
}

TEST_F(LayoutTest, MapsPointsThroughTransforms) {
  Show(R"(<Canvas><Canvas x:Name="Inner" Canvas.Left="10" Canvas.Top="10" Width="100" Height="100">
    <Canvas.RenderTransform><TransformGroup><ScaleTransform ScaleX="2" ScaleY="2"/><TranslateTransform X="5"/>
    </TransformGroup></Canvas.RenderTransform>
    <Border x:Name="Leaf" Canvas.Left="4" Width="20" Height="20" Background="Red"/></Canvas></Canvas>)");
  auto& leaf = Find("Leaf");
  EXPECT_EQ(leaf.TransformToAncestor(nullptr).Map({1, 1}), (Point{25, 12}));
  EXPECT_EQ(leaf.PointFromRoot({25, 12}), (Point{1, 1}));
  EXPECT_EQ(window->HitTest({24, 12}), &leaf);
  EXPECT_NE(window->HitTest({22, 12}), &leaf);
}

TEST_F(LayoutTest, RaisesLoadedOnceWithSizesValid) {
  Show("<StackPanel x:Name=\"P\"/>");
  auto block = MakePtr<TextBlock>();
  block->SetText("abc");
  std::vector<float> widths;
  Listen(*block, FrameworkElement::LoadedEvent, [&](auto&) { widths.push_back(block->ActualWidth()); });
  Find<StackPanel>("P").AddChild(block.Get());
  Settle();
  LayoutQueue::Current().RaiseLoaded();
  ASSERT_EQ(widths.size(), 1u);
  EXPECT_GT(widths[0], 0);
}

} // namespace
} // namespace Toolkit
