#pragma once

#include "ToolkitEnvironment.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/base/Dispatcher.h"
#include "toolkit/controls/UserControl.h"
#include "toolkit/markup/DocumentCompiler.h"
#include "toolkit/visual/Input.h"
#include "toolkit/visual/LayoutQueue.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace Toolkit {

/// A data object for bindings: a text, a number and a further object of its kind.
class TestData : public NotifyPropertyChangedBase {
  TOOLKIT_TYPE(TestData)
public:
  std::string_view GetText() const { return text.View(); }
  void SetText(std::string_view value) {
    if (text.View() == value) return;
    text = SharedString(value);
    ++changes;
    OnPropertyChanged("Text");
  }
  int32_t GetNumber() const { return number; }
  void SetNumber(int32_t value) {
    if (number == value) return;
    number = value;
    OnPropertyChanged("Number");
  }
  TestData* GetNext() const { return next.Get(); }
  void SetNext(TestData* value) {
    next = Ptr<TestData>(value);
    OnPropertyChanged("Next");
  }
  int changes = 0;

private:
  SharedString text;
  int32_t number = 0;
  Ptr<TestData> next;
};

/// Loads markup, keeps what is reported, and checks that nothing stays behind.
class MarkupTest : public testing::Test {
protected:
  void SetUp() override {
    TestSupport::ToolkitEnvironment::Start([] { TestData::StaticType(); });
    Reports().clear();
    SetLogHandler([](const char*, uint32_t line, LogLevel level, const char*, const char* message) {
      if (level >= LogLevel::Warning) Reports().push_back(std::to_string(line) + ": " + message);
    });
    liveBefore = Object::LiveCount();
  }
  void TearDown() override {
    SetLogHandler(nullptr);
    EXPECT_EQ(Reports(), expectedReports);
    Dispatcher::Current().SetClock({});
  }

  /// An element from markup whose root has the usual namespaces. Plans live as long as the test program.
  template <class T = FrameworkElement> Ptr<T> Make(const std::string& root, const std::string& rest) {
    const std::string text =
        "<" + root + " xmlns=\"p\" xmlns:x=\"x\" xmlns:local=\"clr-namespace:Tesselor\" xmlns:b=\"b\"" + rest;
    texts.push_back(std::make_unique<std::string>(text));
    std::unique_ptr<ElementPlan> plan = DocumentCompiler("test.xaml", *texts.back(), [](std::string_view) {
                                          return Ptr<ResourceDictionary>();
                                        }).Compile();
    if (!plan) return nullptr;
    Ptr<Object> made = Instantiation(nullptr, nullptr, false).Create(*plan);
    plans.push_back(std::move(plan));
    return Ptr<T>(DynamicCast<T>(made));
  }

  static std::vector<std::string>& Reports() {
    static std::vector<std::string> reports;
    return reports;
  }
  std::vector<std::string> expectedReports;
  size_t liveBefore = 0;

private:
  std::vector<std::unique_ptr<std::string>> texts;
  std::vector<std::unique_ptr<ElementPlan>> plans;
};

} // namespace Toolkit
