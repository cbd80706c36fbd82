#include "toolkit/visual/Animation.h"
#include "toolkit/MarkupTest.h"
#include "toolkit/base/Dispatcher.h"
#include "toolkit/controls/Panel.h"

#include <limits>

namespace Toolkit {
namespace {

TEST(DoubleAnimation, MovesThereAndBackAndRestsAtItsEnd) {
  constexpr double Forever = std::numeric_limits<double>::infinity();
  const DoubleAnimation once{nullptr, 2, 6, 100, false, 1};
  const DoubleAnimation twiceThereAndBack{nullptr, 2, 6, 100, true, 2};
  const DoubleAnimation forever{nullptr, 2, 6, 100, true, Forever};
  const DoubleAnimation sawtooth{nullptr, 2, 6, 100, false, Forever};
  const struct {
    const DoubleAnimation& animation;
    double elapsed;
    float value;
    bool hasEnded;
  } cases[] = {
      {once, 0, 2, false},
      {once, 25, 3, false},
      {once, 100, 6, true},
      {once, 1e6, 6, true},
      {twiceThereAndBack, 150, 4, false},
      {twiceThereAndBack, 325, 5, false},
      {twiceThereAndBack, 400, 2, true},
      {forever, 1e6 + 25, 3, false},
      {forever, 1e6 + 125, 5, false},
      {sawtooth, 1e6 + 125, 3, false},
  };
  for (const auto& c : cases) {
    EXPECT_FLOAT_EQ(c.animation.ValueAt(c.elapsed), c.value) << c.elapsed;
    EXPECT_EQ(c.animation.HasEnded(c.elapsed), c.hasEnded) << c.elapsed;
  }
}

class AnimationTest : public StageTest {
protected:
  float OpacityAfter(const UIElement& element, double milliseconds) {
    Wait(milliseconds);
    return element.Get<float>(UIElement::OpacityProperty);
  }
};

constexpr const char* Pulsing = R"(>
  <Grid.Resources>
    <Style x:Key="Pulse" TargetType="Border">
      <Setter Property="Opacity" Value="0.9"/>
      <Style.Triggers>
        <Trigger Property="Tag" Value="on">
          <Trigger.EnterActions>
            <BeginStoryboard><Storyboard>
              <DoubleAnimation Storyboard.TargetProperty="Opacity" From="0.5" To="1" Duration="0:0:0.1"
                               AutoReverse="True" RepeatBehavior="Forever"/>
            </Storyboard></BeginStoryboard>
          </Trigger.EnterActions>
        </Trigger>
      </Style.Triggers>
    </Style>
  </Grid.Resources>
  <Border x:Name="Border" Style="{StaticResource Pulse}"/>
</Grid>)";

TEST_F(AnimationTest, RunsWhileItsTriggerHoldsInAWindow) {
  Ptr<Panel> grid = Make<Panel>("Grid", Pulsing);
  ASSERT_TRUE(grid);
  auto& border = *grid->FindName<FrameworkElement>("Border");
  border.SetValue(FrameworkElement::TagProperty, Value("on"));
  border.ApplyThemeStyle();
  EXPECT_FALSE(Dispatcher::Current().HasWork()) << "runs outside of a window";
  Put(*grid);
  EXPECT_FLOAT_EQ(OpacityAfter(border, 0), 0.5f);
  // At the third, the ninth and the eleventh frame.
  EXPECT_NEAR(OpacityAfter(border, 51), 0.75f, 1e-3);
  EXPECT_NEAR(OpacityAfter(border, 100), 0.75f, 1e-3);
  EXPECT_NEAR(OpacityAfter(border, 33), 0.5833f, 1e-3);

  grid->DetachAsRoot();
  EXPECT_FALSE(Dispatcher::Current().HasWork()) << "goes on outside of a window";
  EXPECT_FLOAT_EQ(OpacityAfter(border, 0), 0.9f);
  grid->AttachAsRoot();
  EXPECT_TRUE(Dispatcher::Current().HasWork()) << "does not start again";

  border.SetValue(FrameworkElement::TagProperty, Value("off"));
  EXPECT_FALSE(Dispatcher::Current().HasWork()) << "goes on without its trigger";
  EXPECT_FLOAT_EQ(OpacityAfter(border, 0), 0.9f);
}

TEST_F(AnimationTest, ReportsWhatIsNoNumberOrNoDuration) {
  for (const auto& [attributes, message] : std::initializer_list<std::pair<const char*, const char*>>{
           {R"(TargetProperty="Tag" From="0" To="1" Duration="0:0:1")", "'Tag' is no number of Border"},
           {R"(TargetProperty="Nothing" From="0" To="1" Duration="0:0:1")", "'Nothing' is no number of Border"},
           {R"(TargetProperty="Opacity" From="0" To="1" Duration="1 s")", "'1 s' is no duration"},
           {R"(TargetProperty="Opacity" From="0" To="1" Duration="0:0:0")", "'0:0:0' is no duration"},
           {R"(TargetProperty="Opacity" From="0" To="1" Duration="0:0:1e400")", "'0:0:1e400' is no duration"}}) {
    Make<Panel>("Grid", std::string(R"(>
      <Grid.Resources><Style x:Key="S" TargetType="Border"><Style.Triggers><Trigger Property="Tag" Value="on">
        <Trigger.EnterActions><BeginStoryboard><Storyboard><DoubleAnimation Storyboard.)") +
                            attributes + R"(/></Storyboard></BeginStoryboard></Trigger.EnterActions>
      </Trigger></Style.Triggers></Style></Grid.Resources></Grid>)");
    const std::vector<std::string> reports = warnings.Take();
    ASSERT_EQ(reports.size(), 1u) << attributes;
    EXPECT_TRUE(reports[0].ends_with(message)) << reports[0];
  }
}

} // namespace
} // namespace Toolkit
