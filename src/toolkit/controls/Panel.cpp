#include "toolkit/controls/Panel.h"

#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"

#include <algorithm>
#include <unordered_set>

namespace Toolkit {

TOOLKIT_TYPE_IMPL(Panel, FrameworkElement, "Panel")
void Panel::Describe(TypeBuilder<Panel>& type) {
  BackgroundProperty = type.Property<Brush*>("Background", nullptr, DependencyProperty::AffectsRender);
  ZIndexProperty = type.Property<int32_t>("ZIndex", 0, DependencyProperty::AffectsRender,
                                          [](DependencyObject& object, const PropertyChange&) {
                                            if (auto* element = DynamicCast<UIElement>(&object))
                                              if (auto* panel = DynamicCast<Panel>(element->VisualParent()))
                                                panel->InvalidateZOrder();
                                          });
  type.List<&Panel::AddChild>("Children");
  type.Content("Children");
}

Panel::~Panel() {
  for (const Ptr<UIElement>& child : children) ReleaseVisualChild(child.Get());
}

void Panel::AddChild(UIElement* child) { InsertChild(children.size(), child); }

void Panel::InsertChild(size_t index, UIElement* child) {
  children.insert(children.begin() + static_cast<std::ptrdiff_t>(index), Ptr<UIElement>(child));
  InvalidateZOrder();
  AddVisualChild(child);
  OnChildAdded(child);
  OnChildrenChanged();
}

bool Panel::RemoveChild(UIElement* child) {
  // The newest children are the likeliest to go.
  auto found = std::find(children.rbegin(), children.rend(), child);
  if (found == children.rend()) return false;
  Ptr<UIElement> removed = *found;
  children.erase(std::next(found).base());
  InvalidateZOrder();
  RemoveVisualChild(removed.Get());
  OnChildRemoved(removed.Get());
  OnChildrenChanged();
  return true;
}

void Panel::RemoveChildren(const std::vector<Ptr<UIElement>>& removed) {
  std::unordered_set<const UIElement*> leaving;
  for (const Ptr<UIElement>& child : removed)
    if (HasChild(child.Get())) leaving.insert(child.Get());
  if (leaving.empty()) return;
  std::erase_if(children, [&](const Ptr<UIElement>& child) { return leaving.contains(child.Get()); });
  InvalidateZOrder();
  for (const Ptr<UIElement>& child : removed) {
    if (!leaving.contains(child.Get()) || !HasChild(child.Get())) continue;
    RemoveVisualChild(child.Get());
    OnChildRemoved(child.Get());
  }
  OnChildrenChanged();
}

void Panel::ClearChildren() {
  std::vector<Ptr<UIElement>> removed = std::move(children);
  children.clear();
  InvalidateZOrder();
  for (const Ptr<UIElement>& child : removed) {
    RemoveVisualChild(child.Get());
    OnChildRemoved(child.Get());
  }
  OnChildrenChanged();
}

const std::vector<UIElement*>& Panel::ZOrderedChildren() const {
  if (!zOrdered) {
    zOrdered = std::make_unique<std::vector<UIElement*>>();
    zOrdered->reserve(children.size());
    for (const Ptr<UIElement>& child : children) zOrdered->push_back(child.Get());
    std::stable_sort(zOrdered->begin(), zOrdered->end(),
                     [](const UIElement* a, const UIElement* b) { return GetZIndex(a) < GetZIndex(b); });
  }
  return *zOrdered;
}

void Panel::InvalidateZOrder() {
  zOrdered.reset();
  OnZOrderChanged();
  InvalidateVisual();
}

void Panel::OnRender(Painter& painter) {
  painter.DrawRectangle({0, 0, ActualWidth(), ActualHeight()}, Get<Brush*>(BackgroundProperty));
}

void Panel::RenderChildren(Painter& painter) {
  for (UIElement* child : ZOrderedChildren()) child->Render(painter);
}

bool Panel::HitTestSelf(Point point) const {
  return !GetValue(BackgroundProperty).IsNone() && Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point);
}

UIElement* Panel::HitTest(Point point) {
  if (GetVisibility() != Visibility::Visible || !Get<bool>(IsHitTestVisibleProperty)) return nullptr;
  if (Get<bool>(ClipToBoundsProperty) && !Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point)) return nullptr;
  const std::vector<UIElement*>& ordered = ZOrderedChildren();
  for (size_t i = ordered.size(); i-- > 0;)
    if (UIElement* hit = ordered[i]->HitTest(ordered[i]->TransformToParent().Inverse().Map(point))) return hit;
  return HitTestSelf(point) ? this : nullptr;
}

} // namespace Toolkit
