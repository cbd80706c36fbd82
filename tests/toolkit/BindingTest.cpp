#include "toolkit/MarkupTest.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/controls/TextBox.h"

namespace Toolkit {
namespace {

class BindingTest : public StageTest {
protected:
  static Ptr<TestData> Data(const char* text, int number = 0) { return MakePtr<TestData>(text, number); }
};

TEST_F(BindingTest, FollowsEveryStepOfItsPath) {
  auto block = Make<TextBlock>("TextBlock", " Text=\"{Binding Next.Text}\"/>");
  EXPECT_EQ(block->GetText(), "");
  auto data = Data("outer"), first = Data("first"), second = Data("second");
  data->SetNext(first.Get());
  block->SetDataContext(data.Get());
  EXPECT_EQ(block->GetText(), "first");
  first->SetText("changed");
  EXPECT_EQ(block->GetText(), "changed");
  data->SetNext(second.Get());
  EXPECT_EQ(block->GetText(), "second");
  first->SetText("stale");
  EXPECT_EQ(block->GetText(), "second");
  // What it leaves may be gone at once.
  data->SetNext(Data("only here").Get());
  data->SetNext(Data("last").Get());
  EXPECT_EQ(block->GetText(), "last");
  data->SetNext(nullptr);
  EXPECT_EQ(block->GetText(), "");
  block->SetDataContext(second.Get());
  block->SetDataContext(nullptr);
  EXPECT_EQ(block->GetText(), "");
}

TEST_F(BindingTest, FindsItsSourceByNameByAncestorAndInItself) {
  Show(R"(<StackPanel x:Name="Root" Tag="root tag"><StackPanel Tag="near tag">
    <TextBlock x:Name="A" Tag="own" Text="{Binding Tag, RelativeSource={RelativeSource Self}}"/>
    <TextBlock x:Name="B" Text="{Binding Tag, ElementName=Root}"/>
    <TextBlock x:Name="C"
        Text="{Binding Tag, RelativeSource={RelativeSource FindAncestor, AncestorType={x:Type StackPanel}}}"/>
    </StackPanel></StackPanel>)");
  const auto texts = [this] {
    std::string all;
    for (const char* name : {"A", "B", "C"}) all += std::string(Find<TextBlock>(name).GetText()) + ";";
    return all;
  };
  EXPECT_EQ(texts(), "own;root tag;near tag;");
  Find("Root").SetValue(FrameworkElement::TagProperty, Value("new"));
  EXPECT_EQ(texts(), "own;new;near tag;");
}

TEST_F(BindingTest, FindsTheAncestorOfATemplateForBindingsAndTriggers) {
  Show(R"(<StackPanel x:Name="Root" Tag="on"><StackPanel.Resources>
    <Style x:Key="Shown" TargetType="TextBlock"><Setter Property="Visibility" Value="Collapsed"/><Style.Triggers>
      <DataTrigger Binding="{Binding Tag, RelativeSource={RelativeSource FindAncestor, AncestorType={x:Type StackPanel}}}"
                   Value="on"><Setter Property="Visibility" Value="Visible"/></DataTrigger>
    </Style.Triggers></Style>
    <ControlTemplate x:Key="Template" TargetType="Control"><Grid>
      <TextBlock Style="{StaticResource Shown}"
          Text="{Binding Tag, RelativeSource={RelativeSource FindAncestor, AncestorType={x:Type StackPanel}}}"/>
    </Grid></ControlTemplate></StackPanel.Resources>
    <Control Template="{StaticResource Template}"/></StackPanel>)");
  const TextBlock& text = *TestSupport::All<TextBlock>(*window).at(0);
  EXPECT_EQ(text.GetText(), "on");
  EXPECT_EQ(text.GetVisibility(), Visibility::Visible);
  Find("Root").SetValue(FrameworkElement::TagProperty, Value("off"));
  EXPECT_EQ(text.GetText(), "off");
  EXPECT_EQ(text.GetVisibility(), Visibility::Collapsed);
}

TEST_F(BindingTest, FormatsAndConverts) {
  auto panel = Make("StackPanel", R"(>
    <TextBlock x:Name="A" Text="{Binding Number, StringFormat=D}"/>
    <TextBlock x:Name="B" Text="{Binding Number, StringFormat='No. {0:F1}!'}"/>
    <TextBlock x:Name="C" Text="{Binding Number}"/>
    <Border x:Name="D" Width="{Binding Number}"/></StackPanel>)");
  panel->SetDataContext(Data("", 42).Get());
  EXPECT_EQ(panel->FindName<TextBlock>("A")->GetText(), "42");
  EXPECT_EQ(panel->FindName<TextBlock>("B")->GetText(), "No. 42.0!");
  EXPECT_EQ(panel->FindName<TextBlock>("C")->GetText(), "42");
  EXPECT_EQ(panel->FindName("D")->GetWidth(), 42.0f);
}

TEST_F(BindingTest, WritesBackWhenItsTriggerSays) {
  struct Case {
    const char* arguments;
    const char* afterTyping;
    const char* afterFocusLoss;
  };
  for (const Case& c :
       {Case{", UpdateSourceTrigger=PropertyChanged", "typed", "typed"}, Case{"", "start", "typed"},
        Case{", UpdateSourceTrigger=LostFocus", "start", "typed"}, Case{", Mode=OneWay", "start", "start"},
        Case{", UpdateSourceTrigger=Explicit", "start", "start"}}) {
    auto box = Make<TextBox>("TextBox", std::string(" Text=\"{Binding Text") + c.arguments + "}\"/>");
    auto data = Data("start");
    box->SetDataContext(data.Get());
    EXPECT_EQ(box->GetText(), "start") << c.arguments;
    box->SetText("typed");
    EXPECT_EQ(data->GetText(), c.afterTyping) << c.arguments;
    box->RaiseEvent(RoutedEventArgs(UIElement::LostFocusEvent, box.Get()));
    EXPECT_EQ(data->GetText(), c.afterFocusLoss) << c.arguments;
  }
}

TEST_F(BindingTest, EndsAOneWayBindingOnALocalValueAndKeepsATwoWayOne) {
  auto oneWay = Make<TextBlock>("TextBlock", " Text=\"{Binding Text}\"/>");
  auto twoWay = Make<TextBox>("TextBox", " Text=\"{Binding Text, UpdateSourceTrigger=PropertyChanged}\"/>");
  auto data = Data("a");
  oneWay->SetDataContext(data.Get());
  twoWay->SetDataContext(data.Get());
  oneWay->SetText("mine");
  twoWay->SetText("b");
  data->SetText("c");
  EXPECT_EQ(oneWay->GetText(), "mine");
  EXPECT_EQ(twoWay->GetText(), "c");
}

TEST_F(BindingTest, HoldsADelayedWriteBackUntilTypingPauses) {
  auto box = Make<TextBox>("TextBox", " Text=\"{Binding Text, UpdateSourceTrigger=PropertyChanged, Delay=200}\"/>");
  auto data = Data("");
  box->SetDataContext(data.Get());
  box->SetText("a");
  Wait(150);
  box->SetText("ab");
  Wait(199);
  EXPECT_EQ(data->GetText(), "");
  Wait(1);
  EXPECT_EQ(data->GetText(), "ab");
  EXPECT_EQ(data->changes, 1);
  // It goes with its element.
  box->SetText("lost");
  box.Reset();
  Wait(1000);
  EXPECT_EQ(data->GetText(), "ab");
}

TEST_F(BindingTest, ReportsAPathThatNamesNothing) {
  auto block = Make<TextBlock>("TextBlock", " Text=\"{Binding Nonsense}\"/>");
  block->SetDataContext(Data("").Get());
  const std::vector<std::string> reports = warnings.Take();
  ASSERT_EQ(reports.size(), 1u);
  EXPECT_TRUE(reports[0].ends_with("'Nonsense' is no property of Tesselor.TestData (bound to Text)")) << reports[0];
}

} // namespace
} // namespace Toolkit
