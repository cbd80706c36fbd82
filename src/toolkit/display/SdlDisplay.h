#pragma once

#include "toolkit/display/Display.h"

struct SDL_Window;
union SDL_Event;

namespace Toolkit {

/// A window of the desktop, its mouse and its keyboard. Lengths are device-independent: the window's scale divides
/// them.
class SdlDisplay : public Display {
public:
  ~SdlDisplay() override;
  bool Open(UIElement& root, InputState& input, const std::string& title, std::string& error) override;
  Size ClientSize() const override;
  void WaitForInput(double milliseconds) override;
  bool HasUser() const override { return true; }
  bool TakeCloseRequest() override;
  bool TakeSizeChange() override;
  void SetTitle(const std::string& title) override;
  void Present() override;
  /// True if the environment names a display to connect to.
  static bool IsAvailable();

private:
  void Handle(const SDL_Event& event);
  SDL_Window* window = nullptr;
  InputState* input = nullptr;
  bool started = false;
  bool closeRequested = false;
  bool sizeChanged = false;
};

} // namespace Toolkit
