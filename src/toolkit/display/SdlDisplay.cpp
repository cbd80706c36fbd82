#include "toolkit/display/SdlDisplay.h"

#include "toolkit/visual/Input.h"

#include <SDL.h>

#include <cstdlib>
#include <unordered_map>

namespace Toolkit {

namespace {
Key KeyOf(SDL_Keycode code) {
  if (code >= SDLK_a && code <= SDLK_z) return static_cast<Key>(static_cast<int>(Key::A) + (code - SDLK_a));
  if (code >= SDLK_0 && code <= SDLK_9) return static_cast<Key>(static_cast<int>(Key::D0) + (code - SDLK_0));
  if (code >= SDLK_F1 && code <= SDLK_F12) return static_cast<Key>(static_cast<int>(Key::F1) + (code - SDLK_F1));
  static const std::unordered_map<SDL_Keycode, Key> keys{
      {SDLK_BACKSPACE, Key::Back},  {SDLK_TAB, Key::Tab},           {SDLK_RETURN, Key::Return},
      {SDLK_KP_ENTER, Key::Return}, {SDLK_ESCAPE, Key::Escape},     {SDLK_SPACE, Key::Space},
      {SDLK_PAGEUP, Key::PageUp},   {SDLK_PAGEDOWN, Key::PageDown}, {SDLK_END, Key::End},
      {SDLK_HOME, Key::Home},       {SDLK_LEFT, Key::Left},         {SDLK_UP, Key::Up},
      {SDLK_RIGHT, Key::Right},     {SDLK_DOWN, Key::Down},         {SDLK_INSERT, Key::Insert},
      {SDLK_DELETE, Key::Delete},   {SDLK_LSHIFT, Key::LeftShift},  {SDLK_RSHIFT, Key::RightShift},
      {SDLK_LCTRL, Key::LeftCtrl},  {SDLK_RCTRL, Key::RightCtrl},   {SDLK_LALT, Key::LeftAlt},
      {SDLK_RALT, Key::RightAlt},   {SDLK_LGUI, Key::LeftWin},      {SDLK_RGUI, Key::RightWin},
      {SDLK_APPLICATION, Key::Apps}};
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

bool IsSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value && *value;
}
} // namespace

bool SdlDisplay::IsAvailable() { return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY"); }

SdlDisplay::~SdlDisplay() {
  if (window) SDL_DestroyWindow(window);
  if (started) SDL_Quit();
}

bool SdlDisplay::Open(UIElement&, InputState& inputState, const std::string& title, std::string& error) {
  SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
  SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
  SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
  if (SDL_Init(SDL_INIT_VIDEO) != 0) {
    error = SDL_GetError();
    return false;
  }
  started = true;
  window = SDL_CreateWindow(title.c_str(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, 1600, 900,
                            SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI);
  if (!window) {
    error = SDL_GetError();
    return false;
  }
  input = &inputState;
  return true;
}

Size SdlDisplay::ClientSize() const {
  int width = 1, height = 1;
  SDL_GetWindowSize(window, &width, &height);
  return {static_cast<float>(width), static_cast<float>(height)};
}

void SdlDisplay::SetTitle(const std::string& title) { SDL_SetWindowTitle(window, title.c_str()); }

bool SdlDisplay::TakeCloseRequest() { return std::exchange(closeRequested, false); }
bool SdlDisplay::TakeSizeChange() { return std::exchange(sizeChanged, false); }

void SdlDisplay::Present() {
  SDL_Surface* surface = SDL_GetWindowSurface(window);
  if (!surface) return;
  SDL_FillRect(surface, nullptr, SDL_MapRGB(surface->format, 0x24, 0x24, 0x2A));
  SDL_UpdateWindowSurface(window);
}

void SdlDisplay::WaitForInput(double milliseconds) {
  SDL_Event event;
  const int timeout = milliseconds < 0 ? -1 : static_cast<int>(milliseconds);
  if (!(timeout < 0 ? SDL_WaitEvent(&event) : SDL_WaitEventTimeout(&event, timeout))) return;
  do {
    Handle(event);
  } while (SDL_PollEvent(&event));
}

void SdlDisplay::Handle(const SDL_Event& event) {
  MouseButton button;
  switch (event.type) {
  case SDL_QUIT: closeRequested = true; break;
  case SDL_WINDOWEVENT:
    if (event.window.event == SDL_WINDOWEVENT_CLOSE)
      closeRequested = true;
    else if (event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED)
      sizeChanged = true;
    else if (event.window.event == SDL_WINDOWEVENT_EXPOSED)
      Present();
    else if (event.window.event == SDL_WINDOWEVENT_LEAVE)
      input->MouseLeave();
    else if (event.window.event == SDL_WINDOWEVENT_FOCUS_LOST)
      input->ReleaseAll();
    break;
  case SDL_MOUSEMOTION:
    input->MouseMove({static_cast<float>(event.motion.x), static_cast<float>(event.motion.y)});
    break;
  case SDL_MOUSEBUTTONDOWN:
    if (ButtonOf(event.button.button, button))
      input->MouseDown(button, {static_cast<float>(event.button.x), static_cast<float>(event.button.y)},
                       event.button.clicks);
    break;
  case SDL_MOUSEBUTTONUP:
    if (ButtonOf(event.button.button, button))
      input->MouseUp(button, {static_cast<float>(event.button.x), static_cast<float>(event.button.y)});
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
  default: break;
  }
}

} // namespace Toolkit
