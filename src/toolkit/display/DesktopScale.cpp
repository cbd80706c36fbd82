#include "toolkit/display/DesktopScale.h"

#include <dlfcn.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace Toolkit {

namespace {

constexpr float SmallestScale = 0.5f, LargestScale = 4;

/// The X library is asked through its names alone: it is there exactly when the window system needs it.
float ReadXftDpi() {
  void* library = dlopen("libX11.so.6", RTLD_LAZY | RTLD_LOCAL);
  if (!library) return 0;
  using OpenDisplay = void* (*)(const char*);
  using GetDefault = char* (*)(void*, const char*, const char*);
  using CloseDisplay = int (*)(void*);
  const auto open = reinterpret_cast<OpenDisplay>(dlsym(library, "XOpenDisplay"));
  const auto get = reinterpret_cast<GetDefault>(dlsym(library, "XGetDefault"));
  const auto close = reinterpret_cast<CloseDisplay>(dlsym(library, "XCloseDisplay"));
  float dpi = 0;
  if (open && get && close) {
    if (void* display = open(nullptr)) {
      if (const char* text = get(display, "Xft", "dpi")) dpi = std::strtof(text, nullptr);
      close(display);
    }
  }
  dlclose(library);
  return dpi;
}

} // namespace

float DesktopScale() {
  if (const char* text = std::getenv("TESSELOR_SCALE")) {
    const float value = std::strtof(text, nullptr);
    if (value >= SmallestScale && value <= LargestScale) return value;
  }
  static const float desktop = [] {
    const float dpi = ReadXftDpi();
    if (!(dpi > 0)) return 1.0f;
    return std::clamp(std::round(dpi / 96 * 4) / 4, SmallestScale, LargestScale);
  }();
  return desktop;
}

} // namespace Toolkit
