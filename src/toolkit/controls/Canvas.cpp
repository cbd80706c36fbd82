#include "toolkit/controls/Canvas.h"

#include "toolkit/controls/CanvasScene.h"
#include "toolkit/visual/LayoutQueue.h"

#include <utility>

namespace Toolkit {

namespace {
/// The element to which the second of two coordinates is still to come.
const DependencyObject* beingPlaced = nullptr;
} // namespace

void PlaceOnCanvas(DependencyObject& object, const PropertyChange&) {
  if (&object == beingPlaced) return;
  auto* element = DynamicCast<UIElement>(&object);
  if (!element) return;
  auto* canvas = DynamicCast<Canvas>(element->VisualParent());
  // Only the place changes, so the arrangement inside stays.
  if (canvas && element->IsMeasureValid()) canvas->ArrangeChild(*element);
}

TOOLKIT_TYPE_IMPL(Canvas, Panel, "Canvas")
void Canvas::Describe(TypeBuilder<Canvas>& type) {
  LeftProperty = type.Property<float>("Left", Auto, 0, &PlaceOnCanvas);
  TopProperty = type.Property<float>("Top", Auto, 0, &PlaceOnCanvas);
  RightProperty = type.Property<float>("Right", Auto, 0, &PlaceOnCanvas);
  BottomProperty = type.Property<float>("Bottom", Auto, 0, &PlaceOnCanvas);
}

void Canvas::SetPlace(UIElement& element, Point place) {
  const DependencyObject* outer = std::exchange(beingPlaced, &element);
  SetLeft(&element, place.x);
  SetTop(&element, place.y);
  beingPlaced = outer;
  auto* canvas = DynamicCast<Canvas>(element.VisualParent());
  if (canvas && element.IsMeasureValid()) canvas->ArrangeChild(element);
}

Canvas::Canvas() = default;
Canvas::~Canvas() = default;

void Canvas::KeepDrawings() {
  scene = std::make_unique<CanvasScene>();
  tracksChildren = true;
  for (size_t i = 0; i < ChildCount(); ++i) scene->Add(*Child(i));
}

Size Canvas::MeasureOverride(Size) {
  for (size_t i = 0; i < ChildCount(); ++i) Child(i)->Measure({Infinity, Infinity});
  return {};
}

Size Canvas::ArrangeOverride(Size finalSize) {
  size = finalSize;
  for (size_t i = 0; i < ChildCount(); ++i) ArrangeChild(*Child(i));
  return finalSize;
}

void Canvas::ArrangeDirtyChild(UIElement& child) { ArrangeChild(child); }

void Canvas::ArrangeChild(UIElement& child) {
  const Size wanted = child.DesiredSize();
  float x = GetLeft(&child), y = GetTop(&child);
  if (IsAuto(x)) {
    const float right = child.Get<float>(RightProperty);
    x = IsAuto(right) ? 0 : size.width - right - wanted.width;
  }
  if (IsAuto(y)) {
    const float bottom = child.Get<float>(BottomProperty);
    y = IsAuto(bottom) ? 0 : size.height - bottom - wanted.height;
  }
  child.Arrange({x, y, wanted.width, wanted.height});
  // Around a canvas that keeps drawings nobody asks for its bounds.
  if (!scene) InvalidateBounds();
}

void Canvas::OnChildrenChanged() {}

void Canvas::OnChildAdded(UIElement* child) {
  if (scene) scene->Add(*child);
  // One that was on a canvas before may have been given another place meanwhile.
  child->InvalidateArrange();
  if (IsAttached()) LayoutQueue::Current().AddMeasure(*child);
}

void Canvas::OnChildRemoved(UIElement* child) {
  if (scene) scene->Remove(*child);
}

void Canvas::OnChildDrawingChanged(UIElement& child) {
  if (scene) scene->ChildChanged(child);
}

void Canvas::OnZOrderChanged() {
  if (scene) scene->OrderChanged();
}

void Canvas::RenderChildren(Painter& painter) {
  if (!scene)
    Panel::RenderChildren(painter);
  else if (scene->Render(painter, ZOrderedChildren()))
    InvalidateVisual();
}

UIElement* Canvas::HitTest(Point point) {
  if (!scene) return Panel::HitTest(point);
  if (GetVisibility() != Visibility::Visible || !Get<bool>(IsHitTestVisibleProperty)) return nullptr;
  if (Get<bool>(ClipToBoundsProperty) && !Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point)) return nullptr;
  if (UIElement* hit = scene->HitTest(point, ZOrderedChildren())) return hit;
  return HitTestSelf(point) ? this : nullptr;
}

Rect Canvas::DrawnBounds() const {
  Rect bounds = Panel::DrawnBounds();
  for (size_t i = 0; i < ChildCount(); ++i)
    bounds = bounds.Union(Child(i)->TransformToParent().MapBounds(Child(i)->DrawnBounds()));
  return bounds;
}

void Canvas::OnChildDesiredSizeChanged(UIElement* child) {
  if (IsAttached()) LayoutQueue::Current().AddArrange(*child);
}

} // namespace Toolkit
