#pragma once

#include "toolkit/visual/FrameworkElement.h"

#include <vector>

namespace Toolkit {

/// What layout is due. An element enters when its own layout became invalid below a root; running the queue measures
/// and arranges just these, outermost first, and their parents only if a wanted size changed.
class LayoutQueue {
public:
  static LayoutQueue& Current();
  void AddMeasure(UIElement& element);
  void AddArrange(UIElement& element);
  void AddLoaded(FrameworkElement& element);
  void Remove(UIElement& element);
  void Remove(FrameworkElement& element);
  bool IsEmpty() const { return measures.empty() && arranges.empty() && loaded.empty(); }
  /// Runs until nothing is due. Calls from inside a run do nothing.
  void Run();
  /// Raises `Loaded` for elements that have come below a root since the last call. Layout is run before.
  void RaiseLoaded();
  /// True once since the last call if anything was laid out or has to be drawn anew.
  bool TakeVisualChange();
  bool HasVisualChange() const { return visualChanged; }
  void VisualChanged() { visualChanged = true; }

private:
  std::vector<UIElement*> measures, arranges;
  std::vector<FrameworkElement*> loaded;
  bool running = false;
  bool visualChanged = false;
};

} // namespace Toolkit
