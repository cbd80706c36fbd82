#include "toolkit/MarkupTest.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/ContentPresenter.h"
#include "toolkit/controls/MenuItem.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/UserControl.h"
#include "toolkit/markup/DocumentCompiler.h"
#include "toolkit/markup/GUI.h"

namespace Toolkit {
namespace {

/// A control with handlers that its document may name.
class Counter : public UserControl {
  TOOLKIT_TYPE(Counter)
public:
  std::string heard;

private:
  void OnAny(Object*, const RoutedEventArgs& args) { heard += args.event->name.Text() + ";"; }
  virtual void OnPress(Object*, const MouseButtonEventArgs& args) {
    heard += "press at " + std::to_string(static_cast<int>(args.position.y)) + ";";
  }
};

TOOLKIT_TYPE_IMPL(Counter, UserControl, "Tesselor.Counter")
void Counter::Describe(TypeBuilder<Counter>& type) {
  type.Handler<&Counter::OnAny>("OnAny", ButtonBase::ClickEvent);
  type.Handler<&Counter::OnAny>("OnAny", MouseUpEvent);
  type.Handler<&Counter::OnPress>("OnPress", PreviewMouseDownEvent);
}

/// One that has a document of its own, and answers a press in its own way.
class LoudCounter : public Counter {
  TOOLKIT_TYPE(LoudCounter)
private:
  void OnPress(Object*, const MouseButtonEventArgs&) override { heard += "loud press;"; }
  void OnLeave(Object*, const MouseEventArgs&) { heard += "left;"; }
};

TOOLKIT_TYPE_IMPL(LoudCounter, Counter, "Tesselor.LoudCounter")
void LoudCounter::Describe(TypeBuilder<LoudCounter>& type) {
  type.Handler<&LoudCounter::OnLeave>("OnLeave", MouseLeaveEvent);
}

class EventHandlersTest : public StageTest {
protected:
  EventHandlersTest() {
    Counter::StaticType();
    LoudCounter::StaticType();
  }
  // Before the plans go, to whose tables elements point.
  ~EventHandlersTest() override { TakeWindowDown(); }
  /// A counter of that class under a root that takes input, filled from a document of its class.
  Ptr<Counter> ShowCounter(const std::string& className, const std::string& content) {
    const std::string text = "<UserControl xmlns=\"p\" xmlns:x=\"x\" x:Class=\"" + className + "\" Height=\"40\">" +
                             content + "</UserControl>";
    texts.push_back(std::make_unique<std::string>(text));
    plans.push_back(DocumentCompiler("test.xaml", *texts.back(), [](std::string_view) {
                      return Ptr<ResourceDictionary>();
                    }).Compile());
    if (!plans.back()) return nullptr;
    const Ptr<Object> made = Ptr<Object>::Adopt(plans.back()->type->Create());
    Ptr<Counter> counter(DynamicCast<Counter>(made));
    Instantiation(counter.Get(), nullptr, false).Apply(*plans.back(), *counter);
    Show("<StackPanel x:Name=\"Root\"/>");
    Find<StackPanel>("Root").AddChild(counter.Get());
    Settle();
    return counter;
  }

private:
  std::vector<std::unique_ptr<std::string>> texts;
  std::vector<std::unique_ptr<ElementPlan>> plans;
};

TEST_F(EventHandlersTest, AnswerTheEventsThatTheyAreDescribedFor) {
  const Ptr<Counter> counter =
      ShowCounter("Tesselor.Counter", R"(<StackPanel PreviewMouseDown="OnPress" ButtonBase.Click="OnAny">
    <Button Height="20"/><Border Height="20" Background="Red" MouseUp="OnAny"/></StackPanel>)");
  ASSERT_TRUE(counter);
  Click({10, 5});
  EXPECT_EQ(counter->heard, "press at 5;Click;") << "the button's events reach the panel around it";
  counter->heard.clear();
  Click({10, 25});
  EXPECT_EQ(counter->heard, "press at 25;MouseUp;");
}

TEST_F(EventHandlersTest, AreInheritedAndMayBeOverridden) {
  const Ptr<Counter> counter =
      ShowCounter("Tesselor.LoudCounter", R"(<Border Background="Red" PreviewMouseDown="OnPress" MouseUp="OnAny"
    MouseLeave="OnLeave"/>)");
  ASSERT_TRUE(counter);
  Click({10, 5});
  MoveTo({10, 90});
  EXPECT_EQ(counter->heard, "loud press;MouseUp;left;");
}

TEST_F(EventHandlersTest, ReachFromATemplateToTheNearestObjectOfTheDocumentsClass) {
  const Ptr<Counter> counter =
      ShowCounter("Tesselor.Counter", R"(<ContentControl Content="x"><ContentControl.ContentTemplate>
    <DataTemplate><Button Height="20" Click="OnAny"/></DataTemplate></ContentControl.ContentTemplate></ContentControl>)");
  ASSERT_TRUE(counter);
  Click({10, 5});
  EXPECT_EQ(counter->heard, "Click;");
}

TEST_F(EventHandlersTest, AreReportedOncePerDocumentIfNobodyDescribesThem) {
  struct Case {
    const char* content;
    const char* report;
  };
  for (const Case& c : {
           Case{"\n<Button Click=\"OnNothing\"/>", "2: no handler 'OnNothing' for 'Click' of Button"},
           Case{"\n\n<Button MouseDown=\"OnAny\"/>", "3: no handler 'OnAny' for 'MouseDown' of Button"},
           Case{"\n<MenuItem Click=\"OnAny\"/>", "2: no handler 'OnAny' for 'Click' of MenuItem"},
           Case{"\n<Border><Border.Background><SolidColorBrush "
                "ButtonBase.Click=\"OnAny\"/></Border.Background></Border>",
                "2: no handler 'OnAny' for 'Click' of SolidColorBrush"},
           Case{"\n<Border MouseLeave=\"OnLeave\"/>", "2: no handler 'OnLeave' for 'MouseLeave' of Border"},
       }) {
    warnings.Take();
    const Ptr<Counter> counter = ShowCounter("Tesselor.Counter", c.content);
    ASSERT_TRUE(counter);
    EXPECT_EQ(warnings.Take(), std::vector<std::string>{c.report})
        << "a click of a menu is another event than a button's";
    Click({10, 5});
    EXPECT_EQ(counter->heard, "");
  }
  // A document without a class has nobody to answer.
  warnings.Take();
  Make("StackPanel", "><Button Click=\"OnAny\"/></StackPanel>");
  EXPECT_EQ(warnings.Take(), std::vector<std::string>{"1: no handler 'OnAny' for 'Click' of Button"});
  warnings.Take();
}

TEST_F(EventHandlersTest, NeedADocumentOfTheirOwnClass) {
  static std::string error;
  error.clear();
  const ErrorHandler former =
      SetErrorHandler([](const char*, uint32_t, const char* message, bool) { error = message; });
  EXPECT_FALSE(GUI::LoadComponent(*MakePtr<Counter>(), "App.xaml"));
  SetErrorHandler(former);
  EXPECT_EQ(error, "'App.xaml' is no document of Tesselor.Counter");
}

} // namespace
} // namespace Toolkit
