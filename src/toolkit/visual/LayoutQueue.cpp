#include "toolkit/visual/LayoutQueue.h"

#include "toolkit/base/Diagnostics.h"

#include <algorithm>

namespace Toolkit {

namespace {
int DepthOf(const UIElement* element) {
  int depth = 0;
  for (const UIElement* e = element->VisualParent(); e; e = e->VisualParent()) ++depth;
  return depth;
}

// Outermost first, so that an element whose ancestor is due too is laid out once.
std::vector<Ptr<UIElement>> TakeByDepth(std::vector<UIElement*>& queue) {
  std::vector<std::pair<int, UIElement*>> sorted;
  sorted.reserve(queue.size());
  for (UIElement* element : queue) sorted.emplace_back(DepthOf(element), element);
  queue.clear();
  std::stable_sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<Ptr<UIElement>> result;
  result.reserve(sorted.size());
  for (const auto& entry : sorted) result.emplace_back(entry.second);
  return result;
}
} // namespace

LayoutQueue& LayoutQueue::Current() {
  static auto* queue = new LayoutQueue();
  return *queue;
}

void LayoutQueue::AddMeasure(UIElement& element) {
  if (element.inMeasureQueue) return;
  element.inMeasureQueue = true;
  measures.push_back(&element);
  visualChanged = true;
}

void LayoutQueue::AddArrange(UIElement& element) {
  if (element.inArrangeQueue) return;
  element.inArrangeQueue = true;
  arranges.push_back(&element);
  visualChanged = true;
}

void LayoutQueue::AddLoaded(FrameworkElement& element) { loaded.push_back(&element); }

void LayoutQueue::Remove(UIElement& element) {
  // Elements mostly leave soon after they came, so the search starts at the end.
  auto drop = [&element](std::vector<UIElement*>& queue) {
    for (size_t i = queue.size(); i-- > 0;) {
      if (queue[i] == &element) {
        queue.erase(queue.begin() + static_cast<std::ptrdiff_t>(i));
        return;
      }
    }
  };
  if (element.inMeasureQueue) drop(measures);
  if (element.inArrangeQueue) drop(arranges);
  element.inMeasureQueue = element.inArrangeQueue = false;
}

void LayoutQueue::Remove(FrameworkElement& element) { std::erase(loaded, &element); }

void LayoutQueue::Run() {
  if (running) return;
  running = true;
  // Layout that keeps invalidating itself is cut off rather than hanging the program.
  for (int pass = 0; pass < 200 && !(measures.empty() && arranges.empty()); ++pass) {
    if (pass == 199) TOOLKIT_WARN("Layout", "layout does not settle; giving up for now");
    if (!measures.empty()) {
      for (const Ptr<UIElement>& element : TakeByDepth(measures)) {
        element->inMeasureQueue = false;
        if (!element->attached || !element->measureDirty) continue;
        element->Measure(element->neverMeasured ? Size{Infinity, Infinity} : element->previousAvailable);
        if (!element->arrangeDirty) continue;
        AddArrange(*element);
      }
      continue;
    }
    for (const Ptr<UIElement>& element : TakeByDepth(arranges)) {
      element->inArrangeQueue = false;
      if (!element->attached || !element->arrangeDirty) continue;
      if (element->visualParent) {
        element->visualParent->ArrangeDirtyChild(*element);
      } else if (element->neverArranged) {
        element->Arrange({0, 0, element->desiredSize.width, element->desiredSize.height});
      } else {
        element->Arrange(element->finalRect);
      }
    }
  }
  running = false;
}

void LayoutQueue::RaiseLoaded() {
  Run();
  while (!loaded.empty()) {
    std::vector<Ptr<FrameworkElement>> current;
    for (FrameworkElement* element : loaded) current.emplace_back(element);
    loaded.clear();
    for (const Ptr<FrameworkElement>& element : current) {
      if (!element->IsAttached()) continue;
      element->RaiseEvent(RoutedEventArgs(FrameworkElement::LoadedEvent, element.Get()));
    }
    Run();
  }
}

bool LayoutQueue::TakeVisualChange() { return std::exchange(visualChanged, false); }

} // namespace Toolkit
