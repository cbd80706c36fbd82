#pragma once

#include "CapturedBoxes.h"
#include "CapturedLog.h"
#include "TemporaryDirectory.h"
#include "editor/MainView.h"
#include "toolkit/RenderPicture.h"
#include "toolkit/render/FrameRecorder.h"
#include "toolkit/visual/Input.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace TestSupport {

/// The editor's window on a display in memory, for pictures of what a user sees. With the environment variable
/// TESSELOR_WRITE_PICTURES set, each picture that is compared is written as the expected one instead.
class PictureTest : public testing::Test {
protected:
  static constexpr int Width = 1280, Height = 800;

  PictureTest();
  ~PictureTest() override;

  /// Opens the window with one of the samples, by its name, or with the default document.
  void Open(const std::string& sample);
  /// Shows what the canvas has at an element's middle, at a zoom near the one given.
  void LookAt(const Toolkit::UIElement& element, float zoom = 1);
  /// Puts the mouse over an element's middle.
  void Hover(const Toolkit::UIElement& element);
  void HoverAt(Toolkit::Point point);
  void Click(const Toolkit::UIElement& element, Toolkit::MouseButton button = Toolkit::MouseButton::Left,
             uint32_t count = 1);
  void Press(Toolkit::Key key);
  void Type(const std::string& text);
  void Wait(double milliseconds);
  /// Runs layout and what it leads to, and draws until nothing is left to draw.
  void Settle();

  /// Compares the window, or what is around an element with a margin, with the expected picture of that name. Channels
  /// may differ by a little: another compiler may round the last bit another way.
  void Expect(const std::string& name);
  void Expect(const std::string& name, const Toolkit::UIElement& element, float margin = 4);
  void Expect(const std::string& name, const Toolkit::Rect& part);
  /// Boxes show in the window from now on, in place of being an error.
  void ShowBoxes();

  template <class T> static T* Find(Toolkit::UIElement& root, const std::function<bool(T&)>& fits) {
    if (T* found = Toolkit::DynamicCast<T>(&root); found && fits(*found)) return found;
    for (size_t i = 0; i < root.VisualChildCount(); ++i)
      if (Toolkit::UIElement* child = root.VisualChild(i))
        if (T* found = Find<T>(*child, fits)) return found;
    return nullptr;
  }
  template <class T> T& First(Toolkit::UIElement& root) {
    T* found = Find<T>(root, [](T& element) { return element.IsVisible() && element.ActualWidth() > 0; });
    if (!found) throw std::runtime_error("there is no " + T::StaticType().Name());
    return *found;
  }
  /// The node with that title, without its array index.
  Tesselor::ContentNode& Node(const std::string& title);

  Toolkit::Ptr<Tesselor::MainView> view;
  std::unique_ptr<Toolkit::InputState> input;

  /// Compares a picture that the test has drawn itself.
  void Compare(const std::string& name, const RenderTest::Picture& actual);

private:
  CurrentDirectoryScope directory;
  CapturedLog log;
  CapturedBoxes boxes;
  Toolkit::FrameRecorder recorder;
  Toolkit::TileRasterizer rasterizer{1};
  RenderTest::Picture picture{Width, Height};
  double now = 1000;
};

} // namespace TestSupport
