#include "toolkit/MarkupTestSupport.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/controls/TextBox.h"

namespace Toolkit {
namespace {

class BindingTest : public MarkupTest {
protected:
  Ptr<TestData> Data(const char* text, int number = 0) {
    auto data = MakePtr<TestData>();
    data->SetText(text);
    data->SetNumber(number);
    return data;
  }
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
  data->SetNext(nullptr);
  EXPECT_EQ(block->GetText(), "");
  block->SetDataContext(second.Get());
  block->SetDataContext(nullptr);
  EXPECT_EQ(block->GetText(), "");
}

TEST_F(BindingTest, FindsItsSourceByNameByAncestorAndInItself) {
  auto panel = Make("StackPanel", R"( x:Name="Root" Tag="root tag">
    <StackPanel Tag="near tag"><TextBlock x:Name="A" Tag="own" Text="{Binding Tag, RelativeSource={RelativeSource Self}}"/>
    <TextBlock x:Name="B" Text="{Binding Tag, ElementName=Root}"/>
    <TextBlock x:Name="C" Text="{Binding Tag, RelativeSource={RelativeSource FindAncestor, AncestorType={x:Type StackPanel}}}"/>
    </StackPanel></StackPanel>)");
  ASSERT_TRUE(panel);
  EXPECT_EQ(panel->FindName<TextBlock>("A")->GetText(), "own");
  EXPECT_EQ(panel->FindName<TextBlock>("B")->GetText(), "root tag");
  EXPECT_EQ(panel->FindName<TextBlock>("C")->GetText(), "near tag");
  panel->SetValue(FrameworkElement::TagProperty, Value("new"));
  EXPECT_EQ(panel->FindName<TextBlock>("B")->GetText(), "new");
}

TEST_F(BindingTest, FindsTheAncestorOfATemplateForBindingsAndTriggers) {
  auto panel = Make<Panel>("StackPanel", R"( Tag="on"><StackPanel.Resources>
    <Style x:Key="Shown" TargetType="TextBlock"><Setter Property="Visibility" Value="Collapsed"/><Style.Triggers>
      <DataTrigger Binding="{Binding Tag, RelativeSource={RelativeSource FindAncestor, AncestorType={x:Type StackPanel}}}"
                   Value="on"><Setter Property="Visibility" Value="Visible"/></DataTrigger>
    </Style.Triggers></Style>
    <ControlTemplate x:Key="Template" TargetType="Control"><Grid>
      <TextBlock Style="{StaticResource Shown}"
          Text="{Binding Tag, RelativeSource={RelativeSource FindAncestor, AncestorType={x:Type StackPanel}}}"/>
    </Grid></ControlTemplate></StackPanel.Resources>
    <Control Template="{StaticResource Template}"/></StackPanel>)");
  ASSERT_TRUE(panel);
  panel->AttachAsRoot();
  panel->Measure({100, 100});
  const auto* text = static_cast<TextBlock*>(panel->VisualChild(0)->VisualChild(0)->VisualChild(0));
  EXPECT_EQ(text->GetText(), "on");
  EXPECT_EQ(text->GetVisibility(), Visibility::Visible);
  panel->SetValue(FrameworkElement::TagProperty, Value("off"));
  EXPECT_EQ(text->GetText(), "off");
  EXPECT_EQ(text->GetVisibility(), Visibility::Collapsed);
  panel->DetachAsRoot();
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
        Case{", Mode=OneWay", "start", "start"}, Case{", UpdateSourceTrigger=Explicit", "start", "start"}}) {
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
  double now = 0;
  Dispatcher& dispatcher = Dispatcher::Current();
  dispatcher.SetClock([&] { return now; });
  auto box = Make<TextBox>("TextBox", " Text=\"{Binding Text, UpdateSourceTrigger=PropertyChanged, Delay=200}\"/>");
  auto data = Data("");
  box->SetDataContext(data.Get());
  box->SetText("a");
  now = 150;
  dispatcher.RunDue();
  box->SetText("ab");
  now = 300;
  dispatcher.RunDue();
  EXPECT_EQ(data->GetText(), "");
  now = 350;
  dispatcher.RunDue();
  EXPECT_EQ(data->GetText(), "ab");
  EXPECT_EQ(data->changes, 1);
}

TEST_F(BindingTest, DropsADelayedWriteBackWithItsElement) {
  double now = 0;
  Dispatcher::Current().SetClock([&] { return now; });
  auto data = Data("kept");
  {
    auto box = Make<TextBox>("TextBox", " Text=\"{Binding Text, UpdateSourceTrigger=PropertyChanged, Delay=200}\"/>");
    box->SetDataContext(data.Get());
    box->SetText("lost");
  }
  now = 1000;
  EXPECT_FALSE(Dispatcher::Current().RunDue());
  EXPECT_EQ(data->GetText(), "kept");
}

TEST_F(BindingTest, ReportsAPathThatNamesNothing) {
  auto block = Make<TextBlock>("TextBlock", " Text=\"{Binding Nonsense}\"/>");
  block->SetDataContext(Data("").Get());
  ASSERT_EQ(Reports().size(), 1u);
  EXPECT_NE(Reports()[0].find("'Nonsense' is no property of Tesselor.TestData (bound to Text)"), std::string::npos);
  Reports().clear();
}

TEST_F(BindingTest, OutlivesItsSource) {
  auto block = Make<TextBlock>("TextBlock", " Text=\"{Binding Next.Text}\"/>");
  auto data = Data("a");
  data->SetNext(Data("b").Get());
  block->SetDataContext(data.Get());
  data->SetNext(Data("c").Get());
  EXPECT_EQ(block->GetText(), "c");
}

} // namespace
} // namespace Toolkit
