#pragma once

#include "toolkit/controls/SpatialIndex.h"
#include "toolkit/render/DisplayList.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace Toolkit {

class Painter;
class UIElement;

/// What a canvas with many children remembers of them: where each is, and its drawing. Drawing and hit testing then
/// cost what is in view, and a child is recorded again only when it has changed, or when the zoom asks for another
/// detail. Children that a transform of their own moves are few, and are looked at every time.
class CanvasScene {
public:
  void Add(UIElement& child);
  void Remove(UIElement& child);
  /// The child's place, drawing or transform has changed.
  void ChildChanged(UIElement& child);
  /// The order of the children has changed.
  void OrderChanged() { isOrderStale = true; }

  /// Draws what the painter's view shows. `ordered` holds all children, the undermost first. After a change of zoom
  /// only so many children are recorded anew as a frame has time for; the others show what was kept for the former
  /// zoom. True if such are left for the next frame.
  bool Render(Painter& painter, const std::vector<UIElement*>& ordered);
  /// The topmost element at a point of the canvas, or null.
  UIElement* HitTest(Point point, const std::vector<UIElement*>& ordered);

private:
  static constexpr uint32_t NotTransformed = UINT32_MAX;
  struct Item {
    /// Null after a removal.
    UIElement* element = nullptr;
    /// In the canvas's coordinates; valid while it is in the index.
    Rect box;
    /// Its place in drawing order.
    uint32_t order = 0;
    /// Its place in `transformed`, while it has a transform of its own.
    uint32_t transformedAt = NotTransformed;
    bool isIndexed = false;
    bool isMoved = false;
    /// Recorded for this many pixels per unit at most; see `list`.
    float detail = 0;
    bool isComplete = false;
    std::shared_ptr<const DisplayList> list;
  };

  void UpdateIndex();
  void SetTransformed(uint32_t id, bool isTransformed);
  void UpdateOrder(const std::vector<UIElement*>& ordered);
  /// The items that reach the area, in drawing order.
  const std::vector<uint32_t>& Find(const Rect& area, const std::vector<UIElement*>& ordered);
  void RenderItem(Painter& painter, Item& item, float detail);

  std::vector<Item> items;
  std::vector<uint32_t> freeItems;
  std::unordered_map<const UIElement*, uint32_t> byElement;
  SpatialIndex index;
  /// Those whose box may have changed, and removed ones, whose numbers are free again as soon as they are out of it.
  std::vector<uint32_t> moved;
  /// Those with a transform of their own.
  std::vector<uint32_t> transformed;
  std::vector<uint32_t> found;
  std::vector<uint64_t> orders;
  bool isOrderStale = true;
  /// In this frame: how many more may be recorded because of the zoom alone, and whether that was too few.
  int refinements = 0;
  bool isCoarse = false;
};

} // namespace Toolkit
