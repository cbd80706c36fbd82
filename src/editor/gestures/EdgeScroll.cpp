#include "editor/gestures/EdgeScroll.h"

#include "editor/NodeEditorCanvas.h"
#include "toolkit/visual/Input.h"

#include <algorithm>
#include <cmath>

namespace Tesselor {

using Toolkit::Dispatcher;
using Toolkit::Point;

namespace {

/// The strip along the edges, in view pixels.
constexpr float StripWidth = 40;
/// View pixels per second for each pixel that the mouse is within the strip or beyond the edge, up to so many.
constexpr float SpeedPerPixel = 15, GreatestDepth = 120;
/// Milliseconds between two steps, and the longest time that one makes up for if the window was busy.
constexpr double TurnTime = 16, LongestTurn = 50;

float DepthOf(float distance) { return std::clamp(StripWidth - distance, 0.0f, GreatestDepth); }

} // namespace

EdgeScroll::Depths EdgeScroll::DepthsNow() const {
  const Point mouse = Toolkit::Mouse::GetPosition(&canvas);
  return {DepthOf(mouse.x), DepthOf(mouse.y), DepthOf(canvas.ActualWidth() - mouse.x),
          DepthOf(canvas.ActualHeight() - mouse.y)};
}

Point EdgeScroll::Speed() const {
  const Depths now = DepthsNow();
  return {SpeedPerPixel * ((now.left - least.left) - (now.right - least.right)),
          SpeedPerPixel * ((now.top - least.top) - (now.bottom - least.bottom))};
}

void EdgeScroll::Begin() {
  End();
  least = DepthsNow();
  due = {};
}

void EdgeScroll::MouseMoved() {
  const Depths now = DepthsNow();
  least = {std::min(least.left, now.left), std::min(least.top, now.top), std::min(least.right, now.right),
           std::min(least.bottom, now.bottom)};
  if (timer || Speed() == Point()) return;
  lastTurn = Dispatcher::Current().Now();
  StartTimer();
}

void EdgeScroll::End() {
  if (timer) Dispatcher::Current().Cancel(timer);
  timer = 0;
}

void EdgeScroll::StartTimer() {
  timer = Dispatcher::Current().StartTimer(TurnTime, [this] { Turn(); });
}

void EdgeScroll::Turn() {
  timer = 0;
  const Point speed = Speed();
  if (speed == Point()) return;
  StartTimer();
  const double now = Dispatcher::Current().Now();
  const auto seconds = static_cast<float>(std::min(now - lastTurn, LongestTurn) / 1000);
  lastTurn = now;
  const Point wanted{due.x + speed.x * seconds, due.y + speed.y * seconds};
  const Point step{std::trunc(wanted.x), std::trunc(wanted.y)};
  due = wanted - step;
  const Point before = canvas.GetTranslation();
  canvas.SetTranslationClamped(before.x + step.x, before.y + step.y);
  if (!(canvas.GetTranslation() == before)) onScrolled();
}

} // namespace Tesselor
