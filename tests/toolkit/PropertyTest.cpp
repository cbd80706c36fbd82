#include "toolkit/MarkupTest.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/visual/Style.h"

namespace Toolkit {
namespace {

class PropertyTest : public MarkupTest {};

TEST_F(PropertyTest, TakesTheStrongestLayerAndFallsBackWhenItGoes) {
  auto block = MakePtr<TextBlock>();
  const auto* size = TextElement::FontSizeProperty;
  const auto now = [&] { return block->Get<float>(size); };
  EXPECT_EQ(now(), 12.0f);
  auto style = MakePtr<Style>();
  style->targetType = &TextBlock::StaticType();
  style->setters.Set(size, Value(20.0f));
  block->SetValue(FrameworkElement::StyleProperty, Value(style));
  EXPECT_EQ(now(), 20.0f);
  block->SetValueAt(ValueLevel::StyleTrigger, size, Value(21.0f));
  EXPECT_EQ(now(), 21.0f);
  block->SetValue(size, Value(22.0f));
  block->SetValueAt(ValueLevel::Animation, size, Value(23.0f));
  EXPECT_EQ(now(), 23.0f);
  block->ClearValueAt(ValueLevel::Animation, size);
  EXPECT_EQ(now(), 22.0f);
  block->ClearValue(size);
  EXPECT_EQ(now(), 21.0f);
  block->ClearValueAt(ValueLevel::StyleTrigger, size);
  block->SetValue(FrameworkElement::StyleProperty, Value());
  EXPECT_EQ(now(), 12.0f);
}

TEST_F(PropertyTest, InheritsThroughTheTreeAndFollowsChangesAndMoves) {
  auto outer = MakePtr<StackPanel>(), inner = MakePtr<StackPanel>(), other = MakePtr<StackPanel>();
  auto block = MakePtr<TextBlock>();
  inner->AddChild(block.Get());
  outer->AddChild(inner.Get());
  const auto* size = TextElement::FontSizeProperty;
  const auto now = [&] { return block->Get<float>(size); };
  outer->SetValue(size, Value(30.0f));
  EXPECT_EQ(now(), 30.0f);
  inner->SetValue(size, Value(31.0f));
  outer->SetValue(size, Value(32.0f));
  EXPECT_EQ(now(), 31.0f);
  inner->ClearValue(size);
  EXPECT_EQ(now(), 32.0f);
  outer->RemoveChild(inner.Get());
  EXPECT_EQ(now(), 12.0f);
  other->SetValue(size, Value(40.0f));
  other->AddChild(inner.Get());
  EXPECT_EQ(now(), 40.0f);
}

TEST_F(PropertyTest, RaisesNothingForTheValueThatIsThere) {
  struct Counter : PropertyObserver {
    int count = 0;
    void OnObservedChange(Observable&, Symbol) override { ++count; }
  } counter;
  auto block = MakePtr<TextBlock>();
  block->SetText("a");
  counter.Observe(block.Get());
  block->SetText("a");
  EXPECT_EQ(counter.count, 0);
  block->SetText("b");
  EXPECT_EQ(counter.count, 1);
}

TEST_F(PropertyTest, AppliesTriggersWhileTheirConditionsHold) {
  auto panel = Make("StackPanel", R"(>
    <StackPanel.Resources>
      <Style x:Key="S" TargetType="Border">
        <Setter Property="Opacity" Value="0.5"/>
        <Style.Triggers>
          <DataTrigger Binding="{Binding Text}" Value="on"><Setter Property="Opacity" Value="0.7"/></DataTrigger>
          <Trigger Property="IsMouseOver" Value="True"><Setter Property="Opacity" Value="0.9"/></Trigger>
          <MultiDataTrigger>
            <MultiDataTrigger.Conditions>
              <Condition Binding="{Binding Text}" Value="on"/><Condition Binding="{Binding Number}" Value="3"/>
            </MultiDataTrigger.Conditions>
            <Setter Property="Opacity" Value="0.1"/>
          </MultiDataTrigger>
        </Style.Triggers>
      </Style>
    </StackPanel.Resources>
    <Border x:Name="B" Style="{StaticResource S}"/></StackPanel>)");
  ASSERT_TRUE(panel);
  auto data = MakePtr<TestData>();
  panel->SetDataContext(data.Get());
  auto* border = panel->FindName<Border>("B");
  EXPECT_EQ(border->Get<float>(UIElement::OpacityProperty), 0.5f);
  data->SetText("on");
  EXPECT_EQ(border->Get<float>(UIElement::OpacityProperty), 0.7f);
  border->SetValue(UIElement::IsMouseOverProperty, true);
  EXPECT_EQ(border->Get<float>(UIElement::OpacityProperty), 0.9f);
  data->SetNumber(3);
  EXPECT_EQ(border->Get<float>(UIElement::OpacityProperty), 0.1f);
  data->SetNumber(4);
  border->SetValue(UIElement::IsMouseOverProperty, false);
  data->SetText("off");
  EXPECT_EQ(border->Get<float>(UIElement::OpacityProperty), 0.5f);
}

TEST_F(PropertyTest, LeavesNoObjectBehindAnElementThatIsItsOwnContext) {
  const size_t before = Object::LiveCount();
  {
    auto block = MakePtr<TextBlock>();
    block->SetDataContext(block.Get());
    auto other = MakePtr<TextBlock>();
    other->SetDataContext(other.Get());
    other->SetDataContext(block.Get());
    other->SetDataContext(other.Get());
    EXPECT_EQ(other->GetDataContext(), other.Get());
  }
  EXPECT_EQ(Object::LiveCount(), before);
}

} // namespace
} // namespace Toolkit
