#pragma once

#include "Stage.h"
#include "ToolkitWarnings.h"
#include "toolkit/application/Window.h"
#include "toolkit/base/ObservableCollection.h"
#include "toolkit/controls/PopupLayer.h"
#include "toolkit/markup/ElementPlan.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Toolkit {

/// A data object for bindings: a text, a number and a further object of its kind.
class TestData : public NotifyPropertyChangedBase {
  TOOLKIT_TYPE(TestData)
public:
  explicit TestData(std::string_view text = {}, int32_t number = 0) : text(text), number(number) {}
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
  int32_t number;
  Ptr<TestData> next;
};

using TestItems = ObservableCollection<TestData>;
Ptr<TestItems> MakeItems(const std::vector<std::string>& texts);

/// Lets `action` hear an event at an element.
inline void Listen(UIElement& element, const RoutedEvent& event, std::function<void(const RoutedEventArgs&)> action) {
  element.AddHandler(event, RoutedEventHandler::From(
                                [action = std::move(action)](Object*, const RoutedEventArgs& args) { action(args); }));
}

/// Loads markup, and makes warnings that a test does not take a failure.
class MarkupTest : public testing::Test {
protected:
  MarkupTest();

  /// An element from markup whose root has the usual namespaces. Plans live as long as the test.
  template <class T = FrameworkElement> Ptr<T> Make(const std::string& root, const std::string& rest) {
    return Ptr<T>(DynamicCast<T>(
        MakeObject("<" + root + " xmlns=\"p\" xmlns:x=\"x\" xmlns:local=\"clr-namespace:Tesselor\"" + rest).Get()));
  }

  TestSupport::ToolkitWarnings warnings;

private:
  Ptr<Object> MakeObject(const std::string& text);
  std::vector<std::unique_ptr<std::string>> texts;
  std::vector<std::unique_ptr<ElementPlan>> plans;
};

/// Markup in a window on a stage, which nothing may hold when the test is over.
class StageTest : public MarkupTest, protected TestSupport::Stage {
protected:
  explicit StageTest(Frames frames = Frames::Recorded) : Stage(frames) {}
  ~StageTest() override { TakeWindowDown(); }

  /// A window with this content in place of the one that is there.
  void Show(const std::string& content, Size size = {400, 300});
  void TakeWindowDown();
  template <class T = FrameworkElement> T& Find(const char* name) { return TestSupport::Named<T>(*window, name); }
  size_t OpenPopups() const { return window->Popups().PopupCount(); }
  /// Plays words, and tells whether the last key, text or wheel was taken: keys by name and chords as
  /// "Ctrl+Shift+Left"; 'a_b' types its letters, with "_" for a blank, each as a key and a text, as a display sends it;
  /// "move:Name", "press:", "release:", "click:", "double:" and "right:" use the mouse at a named element or at a point
  /// as "click:20,30"; "wheel:Name:-1"; "leave"; "wait:300" in milliseconds.
  bool Run(const std::string& script);

  Ptr<Window> window;

private:
  bool Play(const std::string& word);
  bool TypeLetters(const std::string& text);
};

} // namespace Toolkit
