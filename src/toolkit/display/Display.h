#pragma once

#include "toolkit/base/Geometry.h"
#include "toolkit/render/FrameRecorder.h"

#include <memory>
#include <string>
#include <string_view>

namespace Toolkit {

class InputState;
class UIElement;

/// Where a window is shown and input comes from. The launcher drives one: it opens the root, then turns the loop.
class Display {
public:
  virtual ~Display() = default;
  /// Takes the root's input; the caller lays the root out in `ClientSize`. False, with `error` set, if the display
  /// cannot open.
  virtual bool Open(UIElement& root, InputState& input, const std::string& title, std::string& error) = 0;
  /// In device-independent pixels.
  virtual Size ClientSize() const = 0;
  /// Screen pixels for one device-independent pixel.
  virtual float Scale() const { return 1; }
  /// Waits at most `milliseconds` (negative: until something comes) and feeds what has come to the input state.
  virtual void WaitForInput(double milliseconds) = 0;
  /// Takes what has come for the window itself, such as that it was uncovered or has another size, without waiting.
  /// Input and requests to close it go nowhere.
  virtual void DropInput() {}
  /// True if a user may still act, so that a loop with nothing to do goes on waiting.
  virtual bool HasUser() const = 0;
  /// True once since the last call if the user asked to close the window.
  virtual bool TakeCloseRequest() = 0;
  /// True once since the last call if the client size changed.
  virtual bool TakeSizeChange() = 0;
  virtual void SetTitle(const std::string& title) = 0;
  /// False if nobody sees what is drawn, so that nothing need be.
  virtual bool ShowsFrames() const { return false; }
  /// Draws and shows what is damaged of a frame. The display keeps the frame until the next one comes, for when the
  /// system asks for it again.
  virtual void Present(const FrameRecorder::Frame& frame) {}
  /// The name of a cursor as documents have it; an unknown or empty one means the arrow.
  virtual void SetCursor(std::string_view name) {}
  /// Where typed text appears, in device-independent pixels, for the windows of input methods; without an extent while
  /// nothing takes text, which turns input methods off.
  virtual void SetTextInput(const Rect& caret) {}
};

/// A display without a screen: the same loop and layout, nothing shown, input only as injected.
class HeadlessDisplay : public Display {
public:
  explicit HeadlessDisplay(Size size = {1280, 720}) : size(size) {}
  bool Open(UIElement&, InputState&, const std::string&, std::string&) override { return true; }
  Size ClientSize() const override { return size; }
  void WaitForInput(double milliseconds) override;
  bool HasUser() const override { return false; }
  bool TakeCloseRequest() override { return false; }
  bool TakeSizeChange() override { return false; }
  void SetTitle(const std::string&) override {}

private:
  Size size;
};

} // namespace Toolkit
