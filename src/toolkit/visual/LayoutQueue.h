#pragma once

#include "toolkit/visual/UIElement.h"

#include <unordered_map>
#include <vector>

namespace Toolkit {

/// Something that follows from where layout has put elements, such as the lines between them. Whoever owns it removes
/// it from the queue before it goes.
class LayoutTask {
public:
  /// At the end of a layout, when nothing else is due. What it makes due is laid out in the same run.
  virtual void AfterLayout() = 0;

protected:
  ~LayoutTask() = default;

private:
  friend class LayoutQueue;
  bool isDue = false;
};

/// What layout is due. An element enters when its own layout became invalid below a root; running the queue measures
/// and arranges just these, outermost first, and their parents only if a wanted size changed. Then it tells the
/// elements that note changes of their arrangement.
class LayoutQueue {
public:
  static LayoutQueue& Current();
  void AddMeasure(UIElement& element);
  void AddArrange(UIElement& element);
  /// The element's `OnLayoutChanged` is due.
  void AddNotice(UIElement& element);
  /// The element's `Loaded` is due.
  void AddLoaded(UIElement& element);
  /// The task runs once at the end of the next layout, however often it is added before.
  void Add(LayoutTask& task);
  void Remove(LayoutTask& task);
  /// Nothing is due for the element any more.
  void Remove(UIElement& element);
  bool IsEmpty() const {
    return measures.IsEmpty() && arranges.IsEmpty() && notices.IsEmpty() && loaded.IsEmpty() && tasks.empty();
  }
  /// Lays out and tells until nothing is due. Calls from inside a run do nothing.
  void Run();
  /// Raises `Loaded` for elements that have come below a root since the last call. Layout is run before.
  void RaiseLoaded();
  /// True once since the last call if anything was laid out or has to be drawn anew.
  bool TakeVisualChange();
  bool HasVisualChange() const { return visualChanged; }
  void VisualChanged() { visualChanged = true; }

private:
  /// Elements in the order in which they came. Whether one is in it is a bit of the element.
  class Elements {
  public:
    bool IsEmpty() const { return elements.empty(); }
    void Add(UIElement& element);
    /// In constant time, taken over the elements that were added.
    void Remove(const UIElement& element);
    std::vector<Ptr<UIElement>> Take();
    /// Outermost first, so that an element whose ancestor is due too is laid out once.
    std::vector<Ptr<UIElement>> TakeByDepth();

  private:
    size_t Find(const UIElement& element);
    /// Null where one was removed; the last is never null.
    std::vector<UIElement*> elements;
    /// Where each is, as soon as a removal has asked for that; else empty. Those that were removed may stand in it.
    std::unordered_map<const UIElement*, size_t> places;
  };

  bool IsDone() const { return measures.IsEmpty() && arranges.IsEmpty() && notices.IsEmpty() && tasks.empty(); }
  void TellOfChanges();
  void RunTasks();

  Elements measures, arranges, notices, loaded;
  std::vector<LayoutTask*> tasks;
  bool running = false;
  bool visualChanged = false;
};

} // namespace Toolkit
