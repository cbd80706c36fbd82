#include "editor/ViewGlide.h"

#include "editor/NodeEditorCanvas.h"

#include <algorithm>

namespace Tesselor {

using Toolkit::Dispatcher;
using Toolkit::Point;

namespace {
/// Milliseconds.
constexpr double Duration = 160, BetweenFrames = 16;
} // namespace

void ViewGlide::ToShow(const Toolkit::Rect& area) {
  Stop();
  const float zoom = canvas.GetZoom();
  start = last = canvas.GetTranslation();
  end = canvas.TranslationToShow(
      {area.x * zoom + start.x, area.y * zoom + start.y, area.width * zoom, area.height * zoom});
  if (end == start) return;
  began = Dispatcher::Current().Now();
  Step();
}

void ViewGlide::Step() {
  timer = 0;
  if (!(canvas.GetTranslation() == last)) return;
  const double passed = std::min((Dispatcher::Current().Now() - began) / Duration, 1.0);
  // Fast at first, and at rest when it arrives.
  const auto part = static_cast<float>(1 - (1 - passed) * (1 - passed));
  canvas.SetTranslationClamped(start.x + (end.x - start.x) * part, start.y + (end.y - start.y) * part);
  last = canvas.GetTranslation();
  if (passed < 1) timer = Dispatcher::Current().StartTimer(BetweenFrames, [this] { Step(); });
}

void ViewGlide::Stop() {
  if (timer) Dispatcher::Current().Cancel(timer);
  timer = 0;
}

} // namespace Tesselor
