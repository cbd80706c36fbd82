#include "toolkit/MarkupTest.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/Grid.h"
#include "toolkit/controls/ItemsControl.h"
#include "toolkit/controls/Label.h"
#include "toolkit/controls/Menu.h"
#include "toolkit/controls/MenuItem.h"
#include "toolkit/controls/Shapes.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/controls/ToolTip.h"
#include "toolkit/markup/ElementPlan.h"
#include "toolkit/markup/ValueConversion.h"
#include "toolkit/render/Brush.h"
#include "toolkit/render/PathGeometry.h"

namespace Toolkit {
namespace {

class MarkupCompilerTest : public StageTest {};

TEST_F(MarkupCompilerTest, ReportsEachMistakeWithItsLineAndLoadsTheRest) {
  const std::pair<const char*, const char*> cases[] = {
      {">\n<Nonsense/></StackPanel>", "2: type 'Nonsense' is not known"},
      {" Wide=\"3\"/>", "1: 'Wide' is no property or event of StackPanel"},
      {" Width=\"broad\"/>", "1: 'broad' is no value of Width"},
      {" Orientation=\"Diagonal\"/>", "1: 'Diagonal' is no value of Orientation"},
      {" Style=\"{StaticResource Missing}\"/>", "1: resource 'Missing' is not defined"},
      {" Style=\"{Strange Thing}\"/>", "1: markup extension 'Strange' is not known"},
      {" Tag=\"{Binding A, Mod=OneWay}\"/>", "1: binding argument 'Mod=OneWay' is not understood"},
      {">\n\n<StackPanel.Resources><Style/></StackPanel.Resources></StackPanel>", "3: a resource needs an x:Key"},
      {">some text</StackPanel>", "1: a list cannot be given as text"},
      {"><Brush/></StackPanel>", "1: a Brush cannot be made"},
  };
  for (const auto& [rest, report] : cases) {
    EXPECT_TRUE(Make<StackPanel>("StackPanel", rest)) << rest;
    EXPECT_EQ(warnings.Take(), std::vector<std::string>{report}) << rest;
  }
  EXPECT_FALSE(Make<StackPanel>("StackPanel", "><Border></StackPanel>"));
  EXPECT_EQ(warnings.Take().size(), 1u);
}

/// A class of another namespace than the toolkit's.
class OtherBox : public Border {
  TOOLKIT_TYPE(OtherBox)
};
TOOLKIT_TYPE_IMPL(OtherBox, Border, "Other.Box")
void OtherBox::Describe(TypeBuilder<OtherBox>&) {}

TEST_F(MarkupCompilerTest, FindsClassesInTheNamespaceOfTheirPrefix) {
  OtherBox::StaticType();
  const std::string declarations = R"( xmlns:o="clr-namespace:Other;assembly=Any" xmlns:t="anything" )";
  auto panel =
      Make<StackPanel>("StackPanel", declarations + "><o:Box Tag=\"{x:Type o:Box}\"/><t:Border/></StackPanel>");
  ASSERT_TRUE(panel);
  ASSERT_EQ(panel->ChildCount(), 2u);
  ASSERT_TRUE(DynamicCast<OtherBox>(panel->Child(0)));
  EXPECT_EQ(panel->Child(0)->GetValue(FrameworkElement::TagProperty).AsType(), &OtherBox::StaticType());
  EXPECT_EQ(&panel->Child(1)->GetType(), &Border::StaticType());
  struct Case {
    const char* content;
    const char* report;
    bool loads;
  };
  for (const Case& c : {
           Case{"\n<Box/>", "2: type 'Box' is not known", true},
           Case{"\n<local:Box/>", "2: type 'local:Box' is not known", true},
           Case{"<Border Tag=\"{x:Type u:Border}\"/>", "1: type 'u:Border' is not known", true},
           Case{"\n\n<u:Box/>", "3: the prefix of 'u:Box' is not declared", false},
           Case{"<Border>\n<Border u:Width=\"3\"/></Border>", "2: the prefix of 'u:Width' is not declared", false},
       }) {
    EXPECT_EQ(Make("StackPanel", declarations + ">" + c.content + "</StackPanel>") != nullptr, c.loads);
    EXPECT_EQ(warnings.Take(), std::vector<std::string>{c.report});
  }
}

TEST_F(MarkupCompilerTest, TakesTheNearestResourceOfAKey) {
  auto panel = Make<StackPanel>("StackPanel", R"(>
    <StackPanel.Resources><SolidColorBrush x:Key="K" Color="#010203"/></StackPanel.Resources>
    <Border Background="{StaticResource K}"><Border.Resources><SolidColorBrush x:Key="K" Color="#040506"/></Border.Resources>
    </Border><Border Background="{StaticResource K}"/></StackPanel>)");
  const auto color = [&](size_t i) {
    return panel->Child(i)->GetValue(Border::BackgroundProperty).As<SolidColorBrush*>()->GetColor();
  };
  EXPECT_EQ(color(0), Color::FromBytes(4, 5, 6));
  EXPECT_EQ(color(1), Color::FromBytes(1, 2, 3));
}

TEST_F(MarkupCompilerTest, ReadsPropertyElementsAttachedPropertiesAndLists) {
  auto grid = Make<Grid>("Grid", R"(>
    <Grid.RowDefinitions><RowDefinition Height="10"/><RowDefinition Height="*"/></Grid.RowDefinitions>
    <Border Grid.Row="1" Panel.ZIndex="4" Margin="1,2 3 4" CornerRadius="5 6 7 8">
      <Border.Background><LinearGradientBrush StartPoint="0,0" EndPoint="1,0">
        <GradientStop Color="Red" Offset="0"/><GradientStop Color="#80FFFFFF" Offset="1"/></LinearGradientBrush></Border.Background>
      <TextBlock>Hello</TextBlock>
    </Border></Grid>)");
  ASSERT_TRUE(grid);
  EXPECT_EQ(grid->RowCount(), 2u);
  auto* border = DynamicCast<Border>(grid->Child(0));
  EXPECT_EQ(border->Get<int32_t>(Grid::RowProperty), 1);
  EXPECT_EQ(Panel::GetZIndex(border), 4);
  EXPECT_EQ(border->GetMargin(), (Thickness{1, 2, 3, 4}));
  EXPECT_EQ(border->Get<CornerRadius>(Border::CornerRadiusProperty), (CornerRadius{5, 6, 7, 8}));
  auto* brush = border->GetValue(Border::BackgroundProperty).As<LinearGradientBrush*>();
  ASSERT_TRUE(brush);
  EXPECT_EQ(brush->Stops().size(), 2u);
  EXPECT_EQ(DynamicCast<TextBlock>(border->GetChild())->GetText(), "Hello");
}

TEST_F(MarkupCompilerTest, MakesToolTipsOnlyWhenTheyAreNeeded) {
  auto panel = Make<StackPanel>("StackPanel", R"(>
    <TextBlock x:Name="T"><TextBlock.ToolTip><ToolTip Content="{Binding Text}"/></TextBlock.ToolTip></TextBlock></StackPanel>)");
  panel->SetDataContext(MakePtr<TestData>("explanation").Get());
  auto* block = panel->FindName<TextBlock>("T");
  auto* factory = block->GetValue(FrameworkElement::ToolTipProperty).As<ElementFactory*>();
  ASSERT_TRUE(factory);
  Ptr<FrameworkElement> tip = factory->Create(*block);
  ASSERT_TRUE(tip);
  EXPECT_EQ(static_cast<ToolTip*>(tip.Get())->GetContent(), Value("explanation"));
}

TEST_F(MarkupCompilerTest, ReadsColoursAndPaths) {
  Color color;
  for (const auto& [text, expected] : {std::pair{"#123", Color::FromBytes(17, 34, 51)},
                                       {"#112233", Color::FromBytes(17, 34, 51)},
                                       {"#80112233", Color::FromBytes(17, 34, 51, 128)},
                                       {"Snow", Color::FromBytes(255, 250, 250)}}) {
    EXPECT_TRUE(ValueConversion::ColorFromText(text, color)) << text;
    EXPECT_EQ(color, expected) << text;
  }
  for (const char* text : {"#12", "#GGGGGG", "", "#"})
    EXPECT_FALSE(ValueConversion::ColorFromText(text, color)) << text;
  Ptr<PathGeometry> path = PathGeometry::Parse("M0,0 C20,0 20,30 0,30 Z m 5 5 l10-2");
  ASSERT_TRUE(path);
  EXPECT_EQ(path->Figures().size(), 2u);
  EXPECT_TRUE(path->Figures()[0]->IsClosed());
  EXPECT_EQ(path->Figures()[1]->Segments()[0]->EndPoint(), (Point{15, 3}));
  for (const char* broken : {"L 1 1", "M 1", "M 0 0 C 1 1 2 2", "M 0 0 Q 1 1 2 2", "x"})
    EXPECT_FALSE(PathGeometry::Parse(broken)) << broken;
}

TEST_F(MarkupCompilerTest, CollectsItemsBeforeAnyContainerExists) {
  auto menu =
      Make<Menu>("Menu", R"(><MenuItem Header="A"><MenuItem Header="B"/><MenuItem Header="C"/></MenuItem></Menu>)");
  ASSERT_EQ(menu->ItemCount(), 1u);
  auto* item = DynamicCast<MenuItem>(menu->ItemAt(0));
  EXPECT_EQ(item->ItemCount(), 2u);
  EXPECT_EQ(item->UIParent(), menu.Get());
}

TEST_F(MarkupCompilerTest, KeepsNamesOfATemplateToItself) {
  Show(R"(<ItemsControl x:Name="List"><ItemsControl.ItemTemplate><DataTemplate><Border>
    <TextBlock x:Name="Inner" Text="{Binding Text}"/></Border></DataTemplate></ItemsControl.ItemTemplate></ItemsControl>)");
  auto& items = Find<ItemsControl>("List");
  const auto list = MakeItems({"one", "two", "three"});
  items.SetItemsSource(list.Get());
  Settle();
  EXPECT_EQ(items.FindName("Inner"), nullptr);
  const ItemContainerGenerator& generator = items.GetItemContainerGenerator();
  const auto textOf = [&](size_t index) {
    const auto* row = static_cast<FrameworkElement*>(generator.ContainerFromIndex(index)->VisualChild(0));
    return std::string(row->FindName<TextBlock>("Inner")->GetText());
  };
  EXPECT_EQ(textOf(1), "two");
  const FrameworkElement* kept = generator.ContainerFromItem(list->Get(2));
  list->Move(2, 0);
  list->RemoveAt(1);
  Settle();
  EXPECT_EQ(textOf(0), "three");
  EXPECT_EQ(textOf(1), "two");
  EXPECT_EQ(generator.ContainerFromIndex(0), kept) << "a moved item keeps its container";
}

} // namespace
} // namespace Toolkit
