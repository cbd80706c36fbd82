#include "toolkit/visual/Animation.h"

#include "toolkit/visual/FrameworkElement.h"

#include <cmath>

namespace Toolkit {

namespace {
/// Milliseconds between two values: as often as most screens show one.
constexpr double FrameTime = 1000.0 / 60;
} // namespace

bool DoubleAnimation::HasEnded(double elapsed) const {
  return elapsed >= (isReversing ? 2 * duration : duration) * repeatCount;
}

float DoubleAnimation::ValueAt(double elapsed) const {
  if (HasEnded(elapsed) || duration <= 0) return isReversing ? from : to;
  double progress = std::fmod(elapsed / duration, isReversing ? 2.0 : 1.0);
  if (progress > 1) progress = 2 - progress;
  return from + (to - from) * static_cast<float>(progress);
}

RunningAnimation::RunningAnimation(FrameworkElement& element, const DoubleAnimation& animation)
    : element(element), animation(animation), start(Dispatcher::Current().Now()) {
  Step();
}

RunningAnimation::~RunningAnimation() {
  Dispatcher::Current().Cancel(timer);
  element.ClearValueAt(ValueLevel::Animation, animation.property);
}

void RunningAnimation::Step() {
  const double elapsed = Dispatcher::Current().Now() - start;
  // The timer comes first: the new value may lead to this animation's end.
  timer = animation.HasEnded(elapsed) ? 0 : Dispatcher::Current().StartTimer(FrameTime, [this] { Step(); });
  element.SetValueAt(ValueLevel::Animation, animation.property, Value(animation.ValueAt(elapsed)));
}

} // namespace Toolkit
