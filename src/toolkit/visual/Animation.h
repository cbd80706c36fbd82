#pragma once

#include "toolkit/base/Dispatcher.h"

namespace Toolkit {

class DependencyProperty;
class FrameworkElement;

/// How a number property moves over time. Times in milliseconds.
struct DoubleAnimation {
  const DependencyProperty* property = nullptr;
  float from = 0;
  float to = 0;
  double duration = 0;
  /// The way back takes as long as the way there.
  bool isReversing = false;
  /// How often it runs through, both ways together being one; infinite if it never ends.
  double repeatCount = 1;

  /// True if it has come to rest by then.
  bool HasEnded(double elapsed) const;
  /// The value at a time since the start; after the end, the one that it came to rest at.
  float ValueAt(double elapsed) const;
};

/// One animation at work on one element, from construction to destruction: it sets the value frame by frame, and
/// leaves the property as it found it. The element and the animation outlive it.
class RunningAnimation {
public:
  RunningAnimation(FrameworkElement& element, const DoubleAnimation& animation);
  ~RunningAnimation();
  RunningAnimation(const RunningAnimation&) = delete;
  RunningAnimation& operator=(const RunningAnimation&) = delete;

  const DoubleAnimation& Animation() const { return animation; }

private:
  void Step();

  FrameworkElement& element;
  const DoubleAnimation& animation;
  const double start;
  Dispatcher::TimerId timer = 0;
};

} // namespace Toolkit
