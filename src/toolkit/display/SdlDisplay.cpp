#include "toolkit/display/SdlDisplay.h"

#include "toolkit/base/Diagnostics.h"
#include "toolkit/base/Dispatcher.h"
#include "toolkit/display/DesktopScale.h"
#include "toolkit/visual/Input.h"

#include <SDL.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <dlfcn.h>
#include <unordered_map>
#include <utility>

namespace Toolkit {

namespace {
Key KeyOf(SDL_Keycode code) {
  if (code >= SDLK_a && code <= SDLK_z) return static_cast<Key>(static_cast<int>(Key::A) + (code - SDLK_a));
  if (code >= SDLK_0 && code <= SDLK_9) return static_cast<Key>(static_cast<int>(Key::D0) + (code - SDLK_0));
  if (code >= SDLK_F1 && code <= SDLK_F12) return static_cast<Key>(static_cast<int>(Key::F1) + (code - SDLK_F1));
  static const std::unordered_map<SDL_Keycode, Key> keys{
      {SDLK_BACKSPACE, Key::Back},   {SDLK_TAB, Key::Tab},           {SDLK_RETURN, Key::Return},
      {SDLK_KP_ENTER, Key::Return},  {SDLK_ESCAPE, Key::Escape},     {SDLK_SPACE, Key::Space},
      {SDLK_PAGEUP, Key::PageUp},    {SDLK_PAGEDOWN, Key::PageDown}, {SDLK_END, Key::End},
      {SDLK_HOME, Key::Home},        {SDLK_LEFT, Key::Left},         {SDLK_UP, Key::Up},
      {SDLK_RIGHT, Key::Right},      {SDLK_DOWN, Key::Down},         {SDLK_INSERT, Key::Insert},
      {SDLK_DELETE, Key::Delete},    {SDLK_LSHIFT, Key::LeftShift},  {SDLK_RSHIFT, Key::RightShift},
      {SDLK_LCTRL, Key::LeftCtrl},   {SDLK_RCTRL, Key::RightCtrl},   {SDLK_LALT, Key::LeftAlt},
      {SDLK_RALT, Key::RightAlt},    {SDLK_LGUI, Key::LeftWin},      {SDLK_RGUI, Key::RightWin},
      {SDLK_APPLICATION, Key::Apps}, {SDLK_PLUS, Key::Plus},         {SDLK_EQUALS, Key::Plus},
      {SDLK_KP_PLUS, Key::Plus},     {SDLK_MINUS, Key::Minus},       {SDLK_KP_MINUS, Key::Minus}};
  auto found = keys.find(code);
  return found == keys.end() ? Key::None : found->second;
}

bool ButtonOf(uint8_t button, MouseButton& result) {
  if (button == SDL_BUTTON_LEFT)
    result = MouseButton::Left;
  else if (button == SDL_BUTTON_MIDDLE)
    result = MouseButton::Middle;
  else if (button == SDL_BUTTON_RIGHT)
    result = MouseButton::Right;
  else
    return false;
  return true;
}

/// The client size of a new window, in device-independent pixels.
constexpr float StartWidth = 1600, StartHeight = 900;
/// What shows until the window's own background is drawn.
constexpr Pixel WindowColor = 0xFF24242A;

int CursorOf(std::string_view name) {
  static const std::unordered_map<std::string_view, SDL_SystemCursor> kinds{
      {"IBeam", SDL_SYSTEM_CURSOR_IBEAM},       {"Hand", SDL_SYSTEM_CURSOR_HAND},
      {"SizeNS", SDL_SYSTEM_CURSOR_SIZENS},     {"SizeWE", SDL_SYSTEM_CURSOR_SIZEWE},
      {"SizeNWSE", SDL_SYSTEM_CURSOR_SIZENWSE}, {"SizeNESW", SDL_SYSTEM_CURSOR_SIZENESW},
      {"SizeAll", SDL_SYSTEM_CURSOR_SIZEALL},   {"Wait", SDL_SYSTEM_CURSOR_WAIT},
      {"Cross", SDL_SYSTEM_CURSOR_CROSSHAIR},   {"No", SDL_SYSTEM_CURSOR_NO}};
  const auto found = kinds.find(name);
  return found == kinds.end() ? SDL_SYSTEM_CURSOR_ARROW : found->second;
}

/// An X server takes requests of up to 16 MB, and the library sends all of a text in one: beyond that the server's
/// error would end the program.
constexpr size_t LongestX11Text = 16'000'000;

bool IsSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value && *value;
}
} // namespace

bool SdlDisplay::IsAvailable() { return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY"); }

SdlDisplay::~SdlDisplay() {
  Dispatcher::Current().SetWake(nullptr);
  if (input) Clipboard::SetBackend(nullptr);
  for (const auto& entry : cursors) SDL_FreeCursor(entry.second);
  if (window) SDL_DestroyWindow(window);
  if (started) SDL_Quit();
}

/// The window of another program may go just when it is asked for something: Xlib would end this one for that. The
/// client library is the one that SDL has loaded; without it there is nothing to do.
static void OutliveX11Errors() {
  using Handler = int (*)(void* display, void* event);
  void* xlib = dlopen("libX11.so.6", RTLD_NOW | RTLD_NOLOAD);
  if (!xlib) return;
  if (const auto set = reinterpret_cast<Handler (*)(Handler)>(dlsym(xlib, "XSetErrorHandler")))
    set([](void*, void*) {
      TOOLKIT_WARN("Display", "The X server has refused a request");
      return 0;
    });
  dlclose(xlib);
}

bool SdlDisplay::Open(UIElement&, InputState& inputState, const std::string& title, std::string& error) {
  // A plain pixel buffer that is shared with the window system: the accelerated kind costs a copy through a texture.
  SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
  SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
  SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
  SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
  SDL_SetHint(SDL_HINT_IME_SHOW_UI, "1");
  SDL_SetHint(SDL_HINT_IME_SUPPORT_EXTENDED_TEXT, "1");
  if (SDL_Init(SDL_INIT_VIDEO) != 0) {
    error = SDL_GetError();
    return false;
  }
  started = true;
  scale = DesktopScale();
  SDL_Rect usable{0, 0, 1600, 900};
  if (SDL_GetDisplayUsableBounds(0, &usable) != 0 || usable.w <= 0 || usable.h <= 0) usable = {0, 0, 1600, 900};
  const int width = std::min(static_cast<int>(StartWidth * scale), usable.w);
  const int height = std::min(static_cast<int>(StartHeight * scale), usable.h);
  window = SDL_CreateWindow(title.c_str(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, width, height,
                            SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI);
  if (!window) {
    error = SDL_GetError();
    return false;
  }
  OutliveX11Errors();
  ReadScale();
  rasterizer = std::make_unique<TileRasterizer>();
  input = &inputState;
  SDL_StopTextInput();
  Clipboard::SetBackend(this);
  Dispatcher::Current().SetWake([] {
    SDL_Event nothing{};
    nothing.type = SDL_USEREVENT;
    SDL_PushEvent(&nothing);
  });
  return true;
}

void SdlDisplay::ReadScale() {
  int points = 1, pixels = 1, unused = 0;
  SDL_GetWindowSize(window, &points, &unused);
  SDL_GetWindowSizeInPixels(window, &pixels, &unused);
  pixelsPerPoint = points > 0 && pixels > 0 ? static_cast<float>(pixels) / static_cast<float>(points) : 1;
  // A window system that scales by itself tells so here; else the desktop's setting counts.
  scale = pixelsPerPoint != 1 ? pixelsPerPoint : DesktopScale();
}

Size SdlDisplay::ClientSize() const {
  int width = 1, height = 1;
  SDL_GetWindowSizeInPixels(window, &width, &height);
  return {static_cast<float>(width) / scale, static_cast<float>(height) / scale};
}

Point SdlDisplay::ToUnits(int x, int y) const {
  const float factor = pixelsPerPoint / scale;
  return {static_cast<float>(x) * factor, static_cast<float>(y) * factor};
}

void SdlDisplay::SetTitle(const std::string& title) { SDL_SetWindowTitle(window, title.c_str()); }

void SdlDisplay::SetCursor(std::string_view name) {
  if (name == cursorName) return;
  cursorName = name;
  const int kind = CursorOf(name);
  auto [entry, isNew] = cursors.try_emplace(kind, nullptr);
  if (isNew) entry->second = SDL_CreateSystemCursor(static_cast<SDL_SystemCursor>(kind));
  // Not every video driver has cursors.
  if (entry->second) SDL_SetCursor(entry->second);
}

void SdlDisplay::SetTextInput(const Rect& caret) {
  if (caret == caretRectangle) return;
  const bool wasOn = caretRectangle.width > 0, isOn = caret.width > 0;
  caretRectangle = caret;
  if (isOn) {
    const float factor = scale / pixelsPerPoint;
    const SDL_Rect rect{static_cast<int>(caret.x * factor), static_cast<int>(caret.y * factor),
                        std::max(1, static_cast<int>(caret.width * factor)),
                        std::max(1, static_cast<int>(caret.height * factor))};
    SDL_SetTextInputRect(&rect);
  }
  if (isOn && !wasOn) SDL_StartTextInput();
  if (!isOn && wasOn) SDL_StopTextInput();
}

bool SdlDisplay::SetText(const std::string& text) {
  const char* driver = SDL_GetCurrentVideoDriver();
  const bool isTooLong = driver && std::string_view(driver) == "x11" && text.size() > LongestX11Text;
  if (SDL_SetClipboardText(isTooLong ? "" : text.c_str()) != 0) return false;
  longText = isTooLong ? text : std::string();
  return true;
}

std::optional<std::string> SdlDisplay::GetText() {
  if (!SDL_HasClipboardText()) return longText.empty() ? std::nullopt : std::optional(longText);
  longText.clear();
  char* text = SDL_GetClipboardText();
  if (!text) return std::nullopt;
  std::string result = text;
  SDL_free(text);
  return result;
}

void SdlDisplay::Present(const FrameRecorder::Frame& frame) {
  lastFrame = frame.list;
  if (!frame.damage.empty()) Draw(frame.damage);
}

void SdlDisplay::Draw(std::span<const PixelRect> damage) {
  SDL_Surface* surface = SDL_GetWindowSurface(window);
  // While the window has no pixels (it is being resized, or minimised) there is nothing to show; an event follows.
  if (!surface || !lastFrame || surface->format->BytesPerPixel != 4 || surface->w <= 0 || surface->h <= 0) return;
  const PixelRect all{0, 0, surface->w, surface->h};
  if (surface->pixels != drawnPixels || surface->w != drawnWidth || surface->h != drawnHeight) damage = {&all, 1};
  drawnPixels = surface->pixels;
  drawnWidth = surface->w;
  drawnHeight = surface->h;
  const PixelBuffer target{static_cast<Pixel*>(surface->pixels), surface->w, surface->h, surface->pitch / 4};
  rasterizer->Draw(*lastFrame, target, Matrix::Scale(scale, scale), damage, WindowColor);
  std::vector<SDL_Rect> shown;
  for (PixelRect rect : damage) {
    rect = rect.Intersect(all);
    if (!rect.IsEmpty()) shown.push_back({rect.left, rect.top, rect.Width(), rect.Height()});
  }
  if (!shown.empty()) SDL_UpdateWindowSurfaceRects(window, shown.data(), static_cast<int>(shown.size()));
}

bool SdlDisplay::TakeCloseRequest() { return std::exchange(closeRequested, false); }
bool SdlDisplay::TakeSizeChange() { return std::exchange(sizeChanged, false); }

void SdlDisplay::WaitForInput(double milliseconds) {
  SDL_Event event, motion;
  bool hasMotion = false;
  const int timeout = milliseconds < 0 ? -1 : static_cast<int>(std::ceil(std::min(milliseconds, 1e6)));
  if (!(timeout < 0 ? SDL_WaitEvent(&event) : SDL_WaitEventTimeout(&event, timeout))) return;
  // Of moves that follow each other only the last one counts.
  do {
    if (hasMotion && event.type != SDL_MOUSEMOTION) {
      Handle(motion);
      hasMotion = false;
    }
    if (event.type == SDL_MOUSEMOTION) {
      motion = event;
      hasMotion = true;
    } else {
      Handle(event);
    }
  } while (SDL_PollEvent(&event));
  if (hasMotion) Handle(motion);
}

void SdlDisplay::DropInput() {
  SDL_Event event;
  while (SDL_PollEvent(&event)) {
    if (event.type == SDL_WINDOWEVENT) HandleWindow(event.window.event);
    if (event.type == SDL_TEXTEDITING_EXT) SDL_free(event.editExt.text);
  }
  closeRequested = false;
  // Nobody hears of a key or a button that is let go meanwhile.
  input->ReleaseAll();
  SDL_CaptureMouse(SDL_FALSE);
}

void SdlDisplay::HandleWindow(uint8_t kind) {
  switch (kind) {
  case SDL_WINDOWEVENT_CLOSE: closeRequested = true; break;
  case SDL_WINDOWEVENT_SIZE_CHANGED:
  case SDL_WINDOWEVENT_DISPLAY_CHANGED:
    ReadScale();
    sizeChanged = true;
    break;
  case SDL_WINDOWEVENT_SHOWN:
  case SDL_WINDOWEVENT_RESTORED:
  case SDL_WINDOWEVENT_EXPOSED:
    // What the system may have forgotten is drawn anew.
    drawnPixels = nullptr;
    Draw({});
    break;
  case SDL_WINDOWEVENT_LEAVE: input->MouseLeave(); break;
  case SDL_WINDOWEVENT_FOCUS_LOST: input->ReleaseAll(); break;
  default: break;
  }
}

void SdlDisplay::Compose(const char* text, int caret) {
  const std::string_view composed = text ? text : "";
  // The system counts characters.
  size_t offset = 0;
  while (caret-- > 0 && offset < composed.size()) {
    ++offset;
    while (offset < composed.size() && (static_cast<unsigned char>(composed[offset]) & 0xC0) == 0x80) ++offset;
  }
  input->Composition(composed, offset);
}

void SdlDisplay::Handle(const SDL_Event& event) {
  MouseButton button;
  switch (event.type) {
  case SDL_QUIT: closeRequested = true; break;
  case SDL_WINDOWEVENT: HandleWindow(event.window.event); break;
  case SDL_MOUSEMOTION: input->MouseMove(ToUnits(event.motion.x, event.motion.y)); break;
  case SDL_MOUSEBUTTONDOWN:
    // A button that is held goes on to be told of outside of the window.
    SDL_CaptureMouse(SDL_TRUE);
    if (ButtonOf(event.button.button, button))
      input->MouseDown(button, ToUnits(event.button.x, event.button.y), event.button.clicks);
    break;
  case SDL_MOUSEBUTTONUP:
    if (SDL_GetMouseState(nullptr, nullptr) == 0) SDL_CaptureMouse(SDL_FALSE);
    if (ButtonOf(event.button.button, button)) input->MouseUp(button, ToUnits(event.button.x, event.button.y));
    break;
  case SDL_MOUSEWHEEL: {
    float notches = event.wheel.preciseY;
    if (event.wheel.direction == SDL_MOUSEWHEEL_FLIPPED) notches = -notches;
    if (notches != 0) input->MouseWheel(input->MousePosition(), notches);
    break;
  }
  case SDL_KEYDOWN:
    if (const Key key = KeyOf(event.key.keysym.sym); key != Key::None) input->KeyDown(key, event.key.repeat != 0);
    break;
  case SDL_KEYUP:
    if (const Key key = KeyOf(event.key.keysym.sym); key != Key::None) input->KeyUp(key);
    break;
  case SDL_TEXTINPUT: input->TextInput(event.text.text); break;
  case SDL_TEXTEDITING: Compose(event.edit.text, event.edit.start); break;
  case SDL_TEXTEDITING_EXT:
    Compose(event.editExt.text, event.editExt.start);
    SDL_free(event.editExt.text);
    break;
  default: break;
  }
}

} // namespace Toolkit
