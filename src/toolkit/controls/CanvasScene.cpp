#include "toolkit/controls/CanvasScene.h"

#include "toolkit/render/Painter.h"
#include "toolkit/visual/LayoutQueue.h"
#include "toolkit/visual/UIElement.h"

#include <algorithm>
#include <cmath>

namespace Toolkit {

namespace {

/// Drawings are kept for details that are powers of two: a zoom within one of them records nothing anew.
float DetailStep(float detail) { return std::exp2(std::ceil(std::log2(std::clamp(detail, 1.0f / 256, 8.0f)))); }

/// A drawing with no more steps than this is not worth recording anew to leave out some.
constexpr size_t FewSteps = 4;

Rect BoxOf(const UIElement& element) { return element.TransformToParent().MapBounds(element.DrawnBounds()); }

/// Some milliseconds' worth.
constexpr int RefinementsPerFrame = 400;

/// Edges count: what is hit or drawn there is for the element to tell, and far from the origin a float has no room for
/// an area around a point.
bool Touch(const Rect& a, const Rect& b) {
  return a.x <= b.Right() && b.x <= a.Right() && a.y <= b.Bottom() && b.y <= a.Bottom();
}

void Prepare(UIElement& element, float detail) {
  element.PrepareToRender(detail);
  LayoutQueue::Current().Run();
}

bool HasTransform(const UIElement& element) { return !element.GetValue(UIElement::RenderTransformProperty).IsNone(); }

} // namespace

void CanvasScene::Add(UIElement& child) {
  uint32_t id;
  if (freeItems.empty()) {
    id = static_cast<uint32_t>(items.size());
    items.emplace_back();
  } else {
    id = freeItems.back();
    freeItems.pop_back();
    items[id] = {};
  }
  items[id].element = &child;
  byElement[&child] = id;
  isOrderStale = true;
  items[id].isMoved = true;
  moved.push_back(id);
}

void CanvasScene::Remove(UIElement& child) {
  const auto entry = byElement.find(&child);
  if (entry == byElement.end()) return;
  const uint32_t id = entry->second;
  byElement.erase(entry);
  Item& item = items[id];
  if (item.isIndexed) index.Remove(id, item.box);
  SetTransformed(id, false);
  if (!item.isMoved) freeItems.push_back(id);
  item = {};
  isOrderStale = true;
}

void CanvasScene::SetTransformed(uint32_t id, bool isTransformed) {
  uint32_t& at = items[id].transformedAt;
  if ((at != NotTransformed) == isTransformed) return;
  if (isTransformed) {
    at = static_cast<uint32_t>(transformed.size());
    transformed.push_back(id);
    return;
  }
  items[transformed.back()].transformedAt = at;
  transformed[at] = transformed.back();
  transformed.pop_back();
  at = NotTransformed;
}

void CanvasScene::ChildChanged(UIElement& child) {
  const auto entry = byElement.find(&child);
  if (entry == byElement.end() || items[entry->second].isMoved) return;
  items[entry->second].isMoved = true;
  moved.push_back(entry->second);
}

void CanvasScene::UpdateIndex() {
  for (const uint32_t id : moved) {
    Item& item = items[id];
    item.isMoved = false;
    if (!item.element) {
      freeItems.push_back(id);
      continue;
    }
    if (item.element->IsDrawingStale()) item.list.reset();
    const bool isTransformed = HasTransform(*item.element);
    SetTransformed(id, isTransformed);
    if (isTransformed) {
      if (item.isIndexed) index.Remove(id, item.box);
      item.isIndexed = false;
      continue;
    }
    const Rect box = BoxOf(*item.element);
    if (item.isIndexed && box == item.box) continue;
    if (item.isIndexed) index.Remove(id, item.box);
    item.box = box;
    index.Insert(id, box);
    item.isIndexed = true;
  }
  moved.clear();
}

void CanvasScene::UpdateOrder(const std::vector<UIElement*>& ordered) {
  if (!isOrderStale) return;
  isOrderStale = false;
  for (uint32_t i = 0; i < ordered.size(); ++i)
    if (const auto entry = byElement.find(ordered[i]); entry != byElement.end()) items[entry->second].order = i;
}

const std::vector<uint32_t>& CanvasScene::Find(const Rect& area, const std::vector<UIElement*>& ordered) {
  UpdateIndex();
  UpdateOrder(ordered);
  found.clear();
  index.Find(area, found);
  std::erase_if(found, [&](uint32_t id) { return !Touch(items[id].box, area); });
  found.insert(found.end(), transformed.begin(), transformed.end());
  // Sorted by numbers that hold the order and the item, so that the items themselves are not fetched again and again.
  orders.clear();
  for (const uint32_t id : found) orders.push_back(static_cast<uint64_t>(items[id].order) << 32 | id);
  std::sort(orders.begin(), orders.end());
  for (size_t i = 0; i < found.size(); ++i) found[i] = static_cast<uint32_t>(orders[i]);
  return found;
}

bool CanvasScene::Render(Painter& painter, const std::vector<UIElement*>& ordered) {
  const float detail = DetailStep(painter.Detail());
  refinements = RefinementsPerFrame;
  isCoarse = false;
  for (const uint32_t id : Find(painter.VisibleArea(), ordered)) RenderItem(painter, items[id], detail);
  return isCoarse;
}

void CanvasScene::RenderItem(Painter& painter, Item& item, float detail) {
  UIElement& element = *item.element;
  if (element.GetVisibility() != Visibility::Visible) return;
  // A transform may change the detail by itself: such children are drawn as they come.
  if (!item.isIndexed) {
    Prepare(element, painter.Detail());
    element.Render(painter);
    return;
  }
  const Size size{item.box.width, item.box.height};
  if (size.width > 0 && size.height > 0 && painter.IsTooSmall(size)) return;
  bool isDue = !item.list || element.IsDrawingStale();
  if (!isDue && item.detail != detail && !item.isComplete) {
    isDue = refinements-- > 0;
    isCoarse |= !isDue;
  }
  if (isDue) {
    Prepare(element, detail);
    Painter own = painter.Nested(detail);
    element.RenderContent(own);
    item.isComplete = !own.HasLeftOut();
    item.list = own.Finish();
    // What was left out at this detail is all that a lower one needs, if there is little of the rest.
    item.isComplete = item.isComplete && item.list->Entries().size() <= FewSteps;
    item.detail = detail;
  }
  painter.DrawList(item.list, element.Offset());
}

UIElement* CanvasScene::HitTest(Point point, const std::vector<UIElement*>& ordered) {
  const std::vector<uint32_t>& candidates = Find({point.x, point.y, 0, 0}, ordered);
  for (size_t i = candidates.size(); i-- > 0;) {
    UIElement& element = *items[candidates[i]].element;
    if (UIElement* hit = element.HitTest(element.TransformToParent().Inverse().Map(point))) return hit;
  }
  return nullptr;
}

} // namespace Toolkit
