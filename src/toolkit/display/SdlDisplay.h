#pragma once

#include "toolkit/display/Display.h"
#include "toolkit/render/TileRasterizer.h"
#include "toolkit/visual/Clipboard.h"

#include <map>
#include <memory>
#include <string>

struct SDL_Cursor;
struct SDL_Surface;
struct SDL_Window;
union SDL_Event;

namespace Toolkit {

/// A window of the desktop, its mouse, its keyboard and its clipboard. Lengths are device-independent: the window's
/// scale divides them.
class SdlDisplay : public Display, private ClipboardBackend {
public:
  ~SdlDisplay() override;
  bool Open(UIElement& root, InputState& input, const std::string& title, std::string& error) override;
  Size ClientSize() const override;
  float Scale() const override { return scale; }
  bool ShowsFrames() const override { return true; }
  void WaitForInput(double milliseconds) override;
  void DropInput() override;
  bool HasUser() const override { return true; }
  bool TakeCloseRequest() override;
  bool TakeSizeChange() override;
  void SetTitle(const std::string& title) override;
  void Present(const FrameRecorder::Frame& frame) override;
  void SetCursor(std::string_view name) override;
  void SetTextInput(const Rect& caret) override;
  /// True if the environment names a display to connect to.
  static bool IsAvailable();

private:
  bool SetText(const std::string& text) override;
  std::optional<std::string> GetText() override;
  void Handle(const SDL_Event& event);
  void HandleWindow(uint8_t kind);
  void Compose(const char* text, int caret);
  /// Device-independent from what the window system counts in.
  Point ToUnits(int x, int y) const;
  void ReadScale();
  /// Draws the last frame's parts into the window's pixels; all of them if the window has got new ones.
  void Draw(std::span<const PixelRect> damage);
  SDL_Window* window = nullptr;
  std::unique_ptr<TileRasterizer> rasterizer;
  std::shared_ptr<const DisplayList> lastFrame;
  /// The pixels that hold the last frame. Not owned.
  void* drawnPixels = nullptr;
  int drawnWidth = 0, drawnHeight = 0;
  /// Screen pixels for one device-independent pixel, and for one unit of the window system.
  float scale = 1, pixelsPerPoint = 1;
  /// What was copied but is too long for the desktop's clipboard, which is empty meanwhile: other programs get nothing
  /// of it.
  std::string longText;
  std::string cursorName;
  Rect caretRectangle;
  std::map<int, SDL_Cursor*> cursors;
  InputState* input = nullptr;
  bool started = false;
  bool closeRequested = false;
  bool sizeChanged = false;
};

} // namespace Toolkit
