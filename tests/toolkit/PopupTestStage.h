#pragma once

#include "toolkit/MarkupTestSupport.h"
#include "toolkit/application/Window.h"
#include "toolkit/base/ObservableCollection.h"
#include "toolkit/controls/Popup.h"
#include "toolkit/controls/PopupLayer.h"
#include "toolkit/render/FrameRecorder.h"
#include "toolkit/text/TextLayout.h"

namespace Toolkit {

/// A window of 400 by 300 that takes raw input and is drawn after each of it, with a clock that only `Wait` moves.
class PopupTest : public MarkupTest {
protected:
  static constexpr float Width = 400, Height = 300;

  void SetUp() override {
    MarkupTest::SetUp();
    Dispatcher::Current().SetClock([this] { return now; });
  }
  void TearDown() override {
    if (window) {
      const WeakPtr<Window> observed(window);
      // In the order in which the launcher does it.
      input.reset();
      window->DetachAsRoot();
      window.Reset();
      EXPECT_FALSE(observed) << "something still holds the window";
    }
    Dispatcher::Current().Clear();
    MarkupTest::TearDown();
  }

  void Show(const std::string& content) {
    window = Make<Window>("Window", ">" + content + "</Window>");
    ASSERT_TRUE(window);
    input = std::make_unique<InputState>(*window);
    window->SetClientSize({Width, Height});
    Settle();
  }
  /// What a turn of the launcher's loop does.
  void Settle() {
    for (int turn = 0; turn < 3; ++turn) {
      Dispatcher::Current().RunDue();
      LayoutQueue::Current().RaiseLoaded();
      input->UpdateHover();
      frame = frames.Record(*window, {Width, Height}, 1).list;
    }
  }
  void Wait(double milliseconds) {
    now += milliseconds;
    Settle();
  }

  template <class T> T& Find(const char* name) { return *window->FindName<T>(name); }
  Point MiddleOf(const UIElement& element) {
    return element.TransformToAncestor(nullptr).Map({element.ActualWidth() * 0.5f, element.ActualHeight() * 0.5f});
  }
  Rect BoxOf(const UIElement& element) {
    return element.TransformToAncestor(nullptr).MapBounds({0, 0, element.ActualWidth(), element.ActualHeight()});
  }
  void MoveTo(Point point) {
    input->MouseMove(point);
    Settle();
  }
  void Press(Point point, MouseButton button = MouseButton::Left) {
    MoveTo(point);
    input->MouseDown(button, point, 1);
    Settle();
  }
  void Release(Point point, MouseButton button = MouseButton::Left) {
    input->MouseUp(button, point);
    Settle();
  }
  void Click(Point point, MouseButton button = MouseButton::Left) {
    Press(point, button);
    Release(point, button);
  }
  /// True if the key was taken.
  bool Type(Key key) {
    const bool taken = input->KeyDown(key);
    Settle();
    input->KeyUp(key);
    return taken;
  }
  /// The texts of the last frame, in drawing order.
  std::vector<std::string> TextsShown() const {
    std::vector<std::string> texts;
    for (const DisplayEntry& entry : frame->Entries())
      if (entry.kind == DisplayEntry::Kind::Text) texts.push_back(frame->TextAt(entry.payload).layout->Text());
    return texts;
  }
  bool Shows(const std::string& text) const {
    for (const std::string& shown : TextsShown())
      if (shown == text) return true;
    return false;
  }
  size_t OpenPopups() const { return window->Popups().PopupCount(); }

  Ptr<Window> window;
  std::unique_ptr<InputState> input;
  FrameRecorder frames{[](std::string_view) { return std::shared_ptr<const Bitmap>(); }};
  std::shared_ptr<const DisplayList> frame;
  double now = 1000;
};

} // namespace Toolkit
