#include "toolkit/visual/LayoutQueue.h"

#include "toolkit/base/Diagnostics.h"
#include "toolkit/visual/FrameworkElement.h"

#include <algorithm>
#include <utility>

namespace Toolkit {

namespace {
int DepthOf(const UIElement* element) {
  int depth = 0;
  for (const UIElement* e = element->VisualParent(); e; e = e->VisualParent()) ++depth;
  return depth;
}
} // namespace

void LayoutQueue::Elements::Add(UIElement& element) {
  if (!places.empty()) places[&element] = elements.size();
  elements.push_back(&element);
}

size_t LayoutQueue::Elements::Find(const UIElement& element) {
  // Elements mostly leave soon after they came; only one that is not among the last is worth a table of all.
  constexpr size_t Near = 8;
  for (size_t i = elements.size(), n = 0; i-- > 0 && n < Near; ++n)
    if (elements[i] == &element) return i;
  if (places.empty())
    for (size_t i = 0; i < elements.size(); ++i)
      if (elements[i]) places[elements[i]] = i;
  const auto found = places.find(&element);
  return found == places.end() ? elements.size() : found->second;
}

void LayoutQueue::Elements::Remove(const UIElement& element) {
  const size_t at = Find(element);
  // Of those that were taken, the bits hold until their turn comes.
  if (at == elements.size()) return;
  elements[at] = nullptr;
  while (!elements.empty() && !elements.back()) elements.pop_back();
}

std::vector<Ptr<UIElement>> LayoutQueue::Elements::Take() {
  std::vector<Ptr<UIElement>> result;
  result.reserve(elements.size());
  for (UIElement* element : elements)
    if (element) result.emplace_back(element);
  elements.clear();
  places.clear();
  return result;
}

std::vector<Ptr<UIElement>> LayoutQueue::Elements::TakeByDepth() {
  std::vector<std::pair<int, Ptr<UIElement>>> sorted;
  std::vector<Ptr<UIElement>> result = Take();
  sorted.reserve(result.size());
  for (Ptr<UIElement>& element : result) sorted.emplace_back(DepthOf(element.Get()), std::move(element));
  std::stable_sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  for (size_t i = 0; i < result.size(); ++i) result[i] = std::move(sorted[i].second);
  return result;
}

LayoutQueue& LayoutQueue::Current() {
  static auto* queue = new LayoutQueue();
  return *queue;
}

void LayoutQueue::AddMeasure(UIElement& element) {
  if (element.inMeasureQueue) return;
  element.inMeasureQueue = true;
  measures.Add(element);
  visualChanged = true;
}

void LayoutQueue::AddArrange(UIElement& element) {
  if (element.inArrangeQueue) return;
  element.inArrangeQueue = true;
  arranges.Add(element);
  visualChanged = true;
}

void LayoutQueue::AddNotice(UIElement& element) {
  if (element.inNoticeQueue) return;
  element.inNoticeQueue = true;
  notices.Add(element);
}

void LayoutQueue::AddLoaded(UIElement& element) {
  if (element.inLoadedQueue) return;
  element.inLoadedQueue = true;
  loaded.Add(element);
}

void LayoutQueue::Remove(UIElement& element) {
  if (element.inMeasureQueue) measures.Remove(element);
  if (element.inArrangeQueue) arranges.Remove(element);
  if (element.inNoticeQueue) notices.Remove(element);
  if (element.inLoadedQueue) loaded.Remove(element);
  element.inMeasureQueue = element.inArrangeQueue = element.inNoticeQueue = element.inLoadedQueue = false;
  element.noticedChange = LayoutChange::PlaceOnly;
}

void LayoutQueue::Run() {
  if (running) return;
  running = true;
  // Layout that keeps invalidating itself is cut off rather than hanging the program.
  for (int pass = 0; pass < 200 && !IsDone(); ++pass) {
    if (pass == 199) TOOLKIT_WARN("Layout", "layout does not settle; giving up for now");
    if (!measures.IsEmpty()) {
      for (const Ptr<UIElement>& element : measures.TakeByDepth()) {
        element->inMeasureQueue = false;
        if (!element->attached || !element->measureDirty) continue;
        element->Measure(element->neverMeasured ? Size{Infinity, Infinity} : element->previousAvailable);
        if (!element->arrangeDirty) continue;
        AddArrange(*element);
      }
      continue;
    }
    if (arranges.IsEmpty()) {
      if (notices.IsEmpty())
        RunTasks();
      else
        TellOfChanges();
      continue;
    }
    for (const Ptr<UIElement>& element : arranges.TakeByDepth()) {
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

void LayoutQueue::Add(LayoutTask& task) {
  if (task.isDue) return;
  task.isDue = true;
  tasks.push_back(&task);
}

void LayoutQueue::Remove(LayoutTask& task) {
  if (task.isDue) std::erase(tasks, &task);
  task.isDue = false;
}

void LayoutQueue::RunTasks() {
  for (LayoutTask* task : std::exchange(tasks, {})) {
    task->isDue = false;
    task->AfterLayout();
  }
}

void LayoutQueue::TellOfChanges() {
  const std::vector<Ptr<UIElement>> changed = notices.Take();
  // What one of them moves by itself counts anew for all, those included that are still to be told.
  std::vector<LayoutChange> changes;
  changes.reserve(changed.size());
  for (const Ptr<UIElement>& element : changed) {
    element->inNoticeQueue = false;
    changes.push_back(element->noticedChange);
    element->noticedChange = LayoutChange::PlaceOnly;
  }
  for (size_t i = 0; i < changed.size(); ++i)
    if (changed[i]->attached) changed[i]->OnLayoutChanged(changes[i]);
}

void LayoutQueue::RaiseLoaded() {
  Run();
  while (!loaded.IsEmpty()) {
    for (const Ptr<UIElement>& element : loaded.Take()) {
      element->inLoadedQueue = false;
      if (!element->IsAttached()) continue;
      element->RaiseEvent(RoutedEventArgs(FrameworkElement::LoadedEvent, element.Get()));
    }
    Run();
  }
}

bool LayoutQueue::TakeVisualChange() { return std::exchange(visualChanged, false); }

} // namespace Toolkit
