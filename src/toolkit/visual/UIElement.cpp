#include "toolkit/visual/UIElement.h"

#include "toolkit/base/Diagnostics.h"
#include "toolkit/visual/Input.h"
#include "toolkit/visual/LayoutQueue.h"
#include "toolkit/visual/Transform.h"

#include <algorithm>

namespace Toolkit {

const EnumDescription& DescribeEnum(Visibility) {
  static const EnumDescription description{{{"Collapsed", 0}, {"Hidden", 1}, {"Visible", 2}}};
  return description;
}

const RoutedEvent UIElement::PreviewMouseDownEvent("PreviewMouseDown", RoutingStrategy::Tunnel);
const RoutedEvent UIElement::MouseDownEvent("MouseDown", RoutingStrategy::Bubble);
const RoutedEvent UIElement::PreviewMouseUpEvent("PreviewMouseUp", RoutingStrategy::Tunnel);
const RoutedEvent UIElement::MouseUpEvent("MouseUp", RoutingStrategy::Bubble);
const RoutedEvent UIElement::PreviewMouseLeftButtonDownEvent("PreviewMouseLeftButtonDown", RoutingStrategy::Tunnel);
const RoutedEvent UIElement::MouseLeftButtonDownEvent("MouseLeftButtonDown", RoutingStrategy::Bubble);
const RoutedEvent UIElement::PreviewMouseLeftButtonUpEvent("PreviewMouseLeftButtonUp", RoutingStrategy::Tunnel);
const RoutedEvent UIElement::MouseLeftButtonUpEvent("MouseLeftButtonUp", RoutingStrategy::Bubble);
const RoutedEvent UIElement::PreviewMouseRightButtonDownEvent("PreviewMouseRightButtonDown", RoutingStrategy::Tunnel);
const RoutedEvent UIElement::MouseRightButtonDownEvent("MouseRightButtonDown", RoutingStrategy::Bubble);
const RoutedEvent UIElement::PreviewMouseRightButtonUpEvent("PreviewMouseRightButtonUp", RoutingStrategy::Tunnel);
const RoutedEvent UIElement::MouseRightButtonUpEvent("MouseRightButtonUp", RoutingStrategy::Bubble);
const RoutedEvent UIElement::PreviewMouseMoveEvent("PreviewMouseMove", RoutingStrategy::Tunnel);
const RoutedEvent UIElement::MouseMoveEvent("MouseMove", RoutingStrategy::Bubble);
const RoutedEvent UIElement::MouseEnterEvent("MouseEnter", RoutingStrategy::Direct);
const RoutedEvent UIElement::MouseLeaveEvent("MouseLeave", RoutingStrategy::Direct);
const RoutedEvent UIElement::PreviewMouseWheelEvent("PreviewMouseWheel", RoutingStrategy::Tunnel);
const RoutedEvent UIElement::MouseWheelEvent("MouseWheel", RoutingStrategy::Bubble);
const RoutedEvent UIElement::QueryCursorEvent("QueryCursor", RoutingStrategy::Tunnel);
const RoutedEvent UIElement::PreviewKeyDownEvent("PreviewKeyDown", RoutingStrategy::Tunnel);
const RoutedEvent UIElement::KeyDownEvent("KeyDown", RoutingStrategy::Bubble);
const RoutedEvent UIElement::PreviewKeyUpEvent("PreviewKeyUp", RoutingStrategy::Tunnel);
const RoutedEvent UIElement::KeyUpEvent("KeyUp", RoutingStrategy::Bubble);
const RoutedEvent UIElement::PreviewTextInputEvent("PreviewTextInput", RoutingStrategy::Tunnel);
const RoutedEvent UIElement::TextInputEvent("TextInput", RoutingStrategy::Bubble);
const RoutedEvent UIElement::GotFocusEvent("GotFocus", RoutingStrategy::Bubble);
const RoutedEvent UIElement::LostFocusEvent("LostFocus", RoutingStrategy::Bubble);
const RoutedEvent UIElement::LostMouseCaptureEvent("LostMouseCapture", RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(UIElement, DependencyObject, "UIElement")
void UIElement::Describe(TypeBuilder<UIElement>& type) {
  VisibilityProperty = type.Property<Visibility>("Visibility", Visibility::Visible);
  OpacityProperty = type.Property<float>("Opacity", 1.0f, DependencyProperty::AffectsRender);
  IsEnabledProperty = type.Property<bool>("IsEnabled", true, DependencyProperty::AffectsRender);
  IsHitTestVisibleProperty = type.Property<bool>("IsHitTestVisible", true);
  FocusableProperty = type.Property<bool>("Focusable", false);
  ClipToBoundsProperty = type.Property<bool>("ClipToBounds", false, DependencyProperty::AffectsRender);
  RenderTransformProperty = type.Property<Transform*>("RenderTransform", nullptr, DependencyProperty::AffectsRender);
  RenderTransformOriginProperty =
      type.Property<Point>("RenderTransformOrigin", Point(), DependencyProperty::AffectsRender);
  EffectProperty = type.Property<Object*>("Effect", nullptr, DependencyProperty::AffectsRender);
  IsMouseOverProperty = type.Property<bool>("IsMouseOver", false, DependencyProperty::AffectsRender);
  IsFocusedProperty = type.Property<bool>("IsFocused", false, DependencyProperty::AffectsRender);
  IsFocusVisibleProperty = type.Property<bool>("IsFocusVisible", false, DependencyProperty::AffectsRender);
  for (const RoutedEvent* event : {&PreviewMouseDownEvent,
                                   &MouseDownEvent,
                                   &PreviewMouseUpEvent,
                                   &MouseUpEvent,
                                   &PreviewMouseLeftButtonDownEvent,
                                   &MouseLeftButtonDownEvent,
                                   &PreviewMouseLeftButtonUpEvent,
                                   &MouseLeftButtonUpEvent,
                                   &PreviewMouseRightButtonDownEvent,
                                   &MouseRightButtonDownEvent,
                                   &PreviewMouseRightButtonUpEvent,
                                   &MouseRightButtonUpEvent,
                                   &PreviewMouseMoveEvent,
                                   &MouseMoveEvent,
                                   &MouseEnterEvent,
                                   &MouseLeaveEvent,
                                   &PreviewMouseWheelEvent,
                                   &MouseWheelEvent,
                                   &QueryCursorEvent,
                                   &PreviewKeyDownEvent,
                                   &KeyDownEvent,
                                   &PreviewKeyUpEvent,
                                   &KeyUpEvent,
                                   &PreviewTextInputEvent,
                                   &TextInputEvent,
                                   &GotFocusEvent,
                                   &LostFocusEvent,
                                   &LostMouseCaptureEvent})
    type.Event(event);
}

UIElement::UIElement() = default;

UIElement::~UIElement() { LayoutQueue::Current().Remove(*this); }

bool UIElement::IsEnabled() const {
  for (const UIElement* e = this; e; e = e->UIParent())
    if (!e->Get<bool>(IsEnabledProperty)) return false;
  return true;
}

bool UIElement::IsVisible() const {
  for (const UIElement* e = this; e; e = e->visualParent)
    if (e->GetVisibility() != Visibility::Visible) return false;
  return true;
}

bool UIElement::IsAncestorOf(const UIElement* element) const {
  for (; element; element = element->visualParent)
    if (element == this) return true;
  return false;
}

void UIElement::AttachAsRoot() { SetAttached(true); }
void UIElement::DetachAsRoot() { SetAttached(false); }

void UIElement::SetAttached(bool value) {
  if (attached == value) return;
  attached = value;
  if (value) {
    drawingStale = true;
    // What was never measured is measured by its parent; the rest may have changed while it was detached.
    if (measureDirty && (!visualParent || !neverMeasured)) LayoutQueue::Current().AddMeasure(*this);
    if (arrangeDirty && !neverArranged) LayoutQueue::Current().AddArrange(*this);
    if (wantsAttachment) OnAttached();
  } else {
    LayoutQueue::Current().Remove(*this);
    if (wantsAttachment) OnDetached();
  }
  for (size_t i = 0, n = VisualChildCount(); i < n; ++i)
    if (UIElement* child = VisualChild(i)) child->SetAttached(value);
}

void UIElement::AddVisualChild(UIElement* child) {
  TOOLKIT_ASSERT(!child->visualParent);
  child->visualParent = this;
  child->RefreshInheritance(0);
  if (!attached) return;
  child->SetAttached(true);
  InvalidateVisual();
}

void UIElement::RemoveVisualChild(UIElement* child) {
  if (child->attached) {
    if (InputState* input = InputState::Current()) input->ElementGone(*child);
    child->SetAttached(false);
  }
  child->visualParent = nullptr;
  child->RefreshInheritance(0);
  InvalidateVisual();
}

void UIElement::ReleaseVisualChild(UIElement* child, uint32_t ownReferences) {
  if (child->ReferenceCount() > ownReferences || child->attached)
    RemoveVisualChild(child);
  else
    child->visualParent = nullptr;
}

namespace {
/// True for a change that can keep the keyboard or the mouse from an element and from those below it.
bool MayEndInput(const PropertyChange& change) {
  if (&change.property == UIElement::VisibilityProperty) return change.newValue.As<Visibility>() != Visibility::Visible;
  return (&change.property == UIElement::IsEnabledProperty || &change.property == UIElement::FocusableProperty) &&
         !change.newValue.As<bool>();
}
} // namespace

void UIElement::OnPropertyChanged(const PropertyChange& change) {
  DependencyObject::OnPropertyChanged(change);
  const uint32_t flags = change.property.flags;
  if (&change.property == VisibilityProperty) {
    if (change.oldValue.As<Visibility>() == Visibility::Collapsed ||
        change.newValue.As<Visibility>() == Visibility::Collapsed) {
      InvalidateMeasure();
      if (visualParent) visualParent->OnChildDesiredSizeChanged(this);
    }
    InvalidateVisual();
  }
  if (MayEndInput(change))
    if (InputState* input = InputState::Current()) input->LeaveUnreachable();
  if (flags & DependencyProperty::AffectsMeasure) InvalidateMeasure();
  if (flags & DependencyProperty::AffectsArrange) InvalidateArrange();
  if (flags & (DependencyProperty::AffectsRender | DependencyProperty::AffectsMeasure)) {
    InvalidateVisual();
    // A transform moves the element on its parent.
    if (&change.property == RenderTransformProperty || &change.property == RenderTransformOriginProperty)
      InvalidatePlace();
  }
  if (visualParent) {
    if (flags & DependencyProperty::AffectsParentMeasure) visualParent->InvalidateMeasure();
    if (flags & DependencyProperty::AffectsParentArrange) visualParent->InvalidateArrange();
  }
}

void UIElement::OnInheritedChanged(uint16_t bits) {
  DependencyObject::OnInheritedChanged(bits);
  // Whether a class uses the value is not asked: text is what most elements are made for.
  if (!neverMeasured && (bits & DependencyProperty::InheritedBitsThatMeasure())) InvalidateMeasure();
  if (attached) InvalidateVisual();
}

void UIElement::RefreshInheritanceOfChildren(uint16_t changedBits) {
  for (size_t i = 0, n = VisualChildCount(); i < n; ++i)
    if (UIElement* child = VisualChild(i)) child->RefreshInheritance(changedBits);
}

void UIElement::Measure(Size available) {
  if (GetVisibility() == Visibility::Collapsed) {
    previousAvailable = available;
    neverMeasured = false;
    desiredSize = {};
    return;
  }
  if (!measureDirty && available == previousAvailable) return;
  previousAvailable = available;
  measuring = true;
  const Size before = desiredSize;
  Size wanted = MeasureCore(available);
  measuring = false;
  measureDirty = false;
  neverMeasured = false;
  arrangeDirty = true;
  desiredSize = wanted;
  if (!(before == wanted) && visualParent && !visualParent->measuring) visualParent->OnChildDesiredSizeChanged(this);
}

void UIElement::Arrange(const Rect& rect) {
  if (GetVisibility() == Visibility::Collapsed) {
    finalRect = rect;
    neverArranged = false;
    return;
  }
  if (measureDirty) Measure(neverMeasured ? Size{rect.width, rect.height} : previousAvailable);
  if (!arrangeDirty && finalRect == rect) return;
  finalRect = rect;
  arrangeDirty = false;
  const Size sizeBefore = renderSize;
  const Point placeBefore = offset;
  const bool isFirst = neverArranged;
  ArrangeCore(rect);
  // Only now, so that those below can tell that all of this is new.
  neverArranged = false;
  if (!attached) return;
  const bool isResized = !(sizeBefore == renderSize), isMoved = !(placeBefore == offset);
  if (isResized) InvalidateVisual();
  if (isMoved) InvalidatePlace();
  if (isFirst || isResized || isMoved)
    NoteLayoutChange(isFirst || isResized ? LayoutChange::Inside : LayoutChange::PlaceOnly, isFirst);
}

void UIElement::ArrangeCore(const Rect& rect) { SetRenderSize({rect.width, rect.height}, {rect.x, rect.y}); }

void UIElement::SetRenderSize(Size size, Point position) {
  renderSize = size;
  offset = position;
}

void UIElement::InvalidateMeasure() {
  if (measureDirty) {
    // Already due; one that was invalidated before it came below the root waits for its parent.
    if (!attached || inMeasureQueue || measuring || neverMeasured) return;
  }
  measureDirty = true;
  if (attached && !measuring) LayoutQueue::Current().AddMeasure(*this);
}

void UIElement::InvalidateArrange() {
  if (arrangeDirty) return;
  arrangeDirty = true;
  if (attached) LayoutQueue::Current().AddArrange(*this);
}

void UIElement::InvalidateVisual() {
  if (!attached) return;
  LayoutQueue::Current().VisualChanged();
  // The first step is always taken: what is hidden stays stale below ancestors that were drawn without it.
  UIElement* element = this;
  do {
    element->drawingStale = true;
    UIElement* parent = element->visualParent;
    if (parent && parent->tracksChildren) parent->OnChildDrawingChanged(*element);
    element = parent;
  } while (element && !element->drawingStale);
}

void UIElement::InvalidateBounds() {
  InvalidateVisual();
  // Unlike a drawing, bounds count even while nobody draws.
  for (UIElement* e = this; e->visualParent; e = e->visualParent)
    if (e->visualParent->tracksChildren) e->visualParent->OnChildDrawingChanged(*e);
}

void UIElement::InvalidatePlace() {
  if (!visualParent) return;
  if (visualParent->tracksChildren) visualParent->OnChildDrawingChanged(*this);
  visualParent->InvalidateVisual();
}

void UIElement::NoteLayoutChange(LayoutChange own, bool isFirst) {
  LayoutQueue& queue = LayoutQueue::Current();
  if (notesLayout && own == LayoutChange::Inside) noticedChange = own;
  // In a layout of new elements the outermost of them tells those above, for all.
  if (isFirst && visualParent && visualParent->neverArranged) {
    if (notesLayout) queue.AddNotice(*this);
    return;
  }
  for (UIElement* e = this; e; e = e->visualParent) {
    if (!e->notesLayout) continue;
    if (e != this) e->noticedChange = LayoutChange::Inside;
    // Those above one that is in the queue are in it as well, for a change inside.
    if (e->inNoticeQueue) return;
    queue.AddNotice(*e);
  }
}

void UIElement::UpdateLayout() { LayoutQueue::Current().Run(); }

Matrix UIElement::TransformToParent() const {
  const Matrix place = Matrix::Translation(offset.x, offset.y);
  if (const auto* transform = static_cast<const Transform*>(GetValue(RenderTransformProperty).AsObject())) {
    const Point origin = Get<Point>(RenderTransformOriginProperty);
    const float ox = origin.x * renderSize.width, oy = origin.y * renderSize.height;
    return Matrix::Translation(-ox, -oy).Then(transform->ToMatrix()).Then(Matrix::Translation(ox, oy)).Then(place);
  }
  return place;
}

Matrix UIElement::TransformToAncestor(const UIElement* ancestor) const {
  Matrix result;
  for (const UIElement* e = this; e && e != ancestor; e = e->visualParent) {
    if (e->HasOwnValue(RenderTransformProperty)) {
      result = result.Then(e->TransformToParent());
    } else {
      result.dx += e->offset.x;
      result.dy += e->offset.y;
    }
  }
  return result;
}

UIElement* UIElement::HitTest(Point point) {
  if (GetVisibility() != Visibility::Visible || !Get<bool>(IsHitTestVisibleProperty)) return nullptr;
  if (Get<bool>(ClipToBoundsProperty) && !Rect{0, 0, renderSize.width, renderSize.height}.Contains(point))
    return nullptr;
  for (size_t i = VisualChildCount(); i-- > 0;) {
    UIElement* child = VisualChild(i);
    if (!child) continue;
    if (UIElement* hit = child->HitTest(child->TransformToParent().Inverse().Map(point))) return hit;
  }
  return HitTestSelf(point) ? this : nullptr;
}

void UIElement::AddHandler(const RoutedEvent& event, RoutedEventHandler handler, bool handledEventsToo) {
  if (event.strategy == RoutingStrategy::Direct) wantsAttachment = true;
  if (!handlers) handlers = std::make_unique<std::vector<HandlerEntry>>();
  handlers->push_back({&event, handledEventsToo, std::move(handler)});
}

bool UIElement::HasHandler(const RoutedEvent& event) const {
  return handlers && std::any_of(handlers->begin(), handlers->end(),
                                 [&](const HandlerEntry& entry) { return entry.event == &event; });
}

void UIElement::RemoveHandler(const RoutedEvent& event, const RoutedEventHandler& handler) {
  if (!handlers) return;
  auto found = std::find_if(handlers->begin(), handlers->end(), [&](const HandlerEntry& entry) {
    return entry.event == &event && entry.handler == handler;
  });
  if (found != handlers->end()) handlers->erase(found);
}

void UIElement::InvokeHandlers(const RoutedEventArgs& args) {
  if (!args.handled) OnRoutedEvent(args);
  if (!handlers) return;
  // A handler may add or remove handlers: those present at the start are called, unless they have gone meanwhile.
  std::vector<HandlerEntry> current;
  for (const HandlerEntry& entry : *handlers)
    if (entry.event == args.event) current.push_back(entry);
  for (const HandlerEntry& entry : current) {
    if (args.handled && !entry.handledEventsToo) continue;
    const bool present = std::any_of(handlers->begin(), handlers->end(), [&](const HandlerEntry& now) {
      return now.event == entry.event && now.handler == entry.handler;
    });
    if (present) entry.handler(this, args);
  }
}

void UIElement::RaiseEvent(const RoutedEventArgs& args) {
  if (args.event->strategy == RoutingStrategy::Direct) {
    Ptr<UIElement> alive(this);
    InvokeHandlers(args);
    return;
  }
  std::vector<Ptr<UIElement>> route;
  for (UIElement* e = this; e; e = e->UIParent()) route.emplace_back(e);
  if (args.event->strategy == RoutingStrategy::Tunnel) std::reverse(route.begin(), route.end());
  const bool wasAttached = attached;
  for (const Ptr<UIElement>& element : route) {
    if (wasAttached && !element->attached) continue;
    element->InvokeHandlers(args);
  }
}

bool UIElement::Focus() {
  InputState* input = InputState::Current();
  return input && input->SetFocus(this);
}

bool UIElement::CaptureMouse() {
  InputState* input = InputState::Current();
  if (!input || !attached || !IsVisible() || !IsEnabled()) return false;
  input->Capture(this);
  return HasMouseCapture();
}

void UIElement::ReleaseMouseCapture() {
  if (HasMouseCapture()) InputState::Current()->Capture(nullptr);
}

bool UIElement::HasMouseCapture() const {
  const InputState* input = InputState::Current();
  return input && input->Captured() == this;
}

void UIElement::BringIntoView(const Rect& area) {
  Rect rect = area;
  for (UIElement* e = this; e; e = e->visualParent) rect = e->TransformToParent().MapBounds(e->Reveal(rect));
}

} // namespace Toolkit
