#include "toolkit/controls/PopupLayer.h"

#include "toolkit/base/Dispatcher.h"
#include "toolkit/controls/ContextMenu.h"
#include "toolkit/controls/Menu.h"
#include "toolkit/controls/Popup.h"
#include "toolkit/controls/ToolTip.h"
#include "toolkit/visual/Input.h"

#include <algorithm>
#include <cmath>

namespace Toolkit {

namespace {

/// A popup with less room than this on both sides covers its anchor rather than shrinking further.
constexpr float SmallestHeight = 80;
/// Pixels that a hand moves without meaning to.
constexpr float RestRadius = 4;

/// Raises a copy of the event as one of the bubbling ones, from the same element.
template <class Args> void RaiseAs(const RoutedEventArgs& args, const RoutedEvent& event, UIElement& target) {
  Args copy = static_cast<const Args&>(args);
  copy.event = &event;
  copy.handled = false;
  target.RaiseEvent(copy);
}

float Within(float at, float length, float room) { return std::round(std::max(0.0f, std::min(at, room - length))); }

} // namespace

TOOLKIT_TYPE_IMPL(PopupLayer, FrameworkElement, "PopupLayer")
void PopupLayer::Describe(TypeBuilder<PopupLayer>&) {}

PopupLayer::PopupLayer() : toolTips(std::make_unique<ToolTipService>(*this)) { wantsAttachment = true; }

PopupLayer::~PopupLayer() {
  while (!popups.empty()) Remove(*popups.back());
}

PopupLayer* PopupLayer::Of(const UIElement& element) {
  // A popup's content hangs in the layer itself; content that is not shown yet is found through its holder.
  const UIElement* root = &element;
  while (const UIElement* parent = root->VisualParent() ? root->VisualParent() : root->UIParent()) root = parent;
  for (size_t i = root->VisualChildCount(); i-- > 0;)
    if (auto* layer = DynamicCast<PopupLayer>(root->VisualChild(i))) return layer;
  return nullptr;
}

void PopupLayer::SetMenuBar(Menu* menu) { menuBar = WeakPtr<Menu>(menu); }

UIElement* PopupLayer::VisualChild(size_t index) const { return popups[index].Get(); }

Popup* PopupLayer::Topmost() const {
  for (size_t i = popups.size(); i-- > 0;)
    if (popups[i]->kind != PopupKind::Passive) return popups[i].Get();
  return nullptr;
}

bool PopupLayer::HasLight() const {
  return std::any_of(popups.begin(), popups.end(),
                     [](const Ptr<Popup>& popup) { return popup->kind == PopupKind::Light; });
}

void PopupLayer::Open(Popup& popup) {
  if (popup.layer || popup.content->VisualParent()) return;
  if (popup.kind != PopupKind::Passive) toolTips->Hide();
  if (popup.kind == PopupKind::Modal) CloseLight();
  popup.layer = this;
  popup.takesRelease = false;
  if (const InputState* input = InputState::Current()) popup.mouseAtOpening = input->MousePosition();
  popup.owner->AddHandler(UnloadedEvent, RoutedEventHandler::From<&Popup::OnOwnerUnloaded>(&popup));
  popups.emplace_back(&popup);
  AddVisualChild(&popup);
  popup.AddVisualChild(popup.content.Get());
  InvalidateMeasure();
}

void PopupLayer::Remove(Popup& popup) {
  Ptr<Popup> alive(&popup);
  const auto found = std::find(popups.begin(), popups.end(), &popup);
  if (found == popups.end()) return;
  popups.erase(found);
  RemoveVisualChild(&popup);
  popup.RemoveVisualChild(popup.content.Get());
  popup.layer = nullptr;
  popup.owner->RemoveHandler(UnloadedEvent, RoutedEventHandler::From<&Popup::OnOwnerUnloaded>(&popup));
  if (popup.closed) popup.closed();
}

void PopupLayer::Close(Popup& popup) {
  Ptr<Popup> alive(&popup);
  while (popup.layer == this && popup.kind == PopupKind::Light) {
    Popup* top = Topmost();
    if (!top || top == &popup || top->kind != PopupKind::Light) break;
    Remove(*top);
  }
  Remove(popup);
}

void PopupLayer::CloseLight() {
  for (size_t i = popups.size(); i-- > 0;) {
    // A callback may have closed more than one.
    if (i < popups.size() && popups[i]->kind == PopupKind::Light) Remove(*popups[i]);
  }
}

void PopupLayer::OnDetached() {
  FrameworkElement::OnDetached();
  toolTips->Hide();
  while (!popups.empty()) Remove(*popups.back());
}

Size PopupLayer::MeasureOverride(Size available) {
  for (const Ptr<Popup>& popup : popups) popup->Measure(available);
  return {};
}

Size PopupLayer::ArrangeOverride(Size finalSize) {
  if (!(finalSize == room)) {
    room = finalSize;
    toolTips->Hide();
    // Closing changes the tree, which must not happen in the middle of a layout.
    if (HasLight()) Dispatcher::Current().Post([layer = Ptr<PopupLayer>(this)] { layer->CloseLight(); });
  }
  for (const Ptr<Popup>& popup : popups) Place(*popup);
  return finalSize;
}

void PopupLayer::ArrangeDirtyChild(UIElement& child) { Place(static_cast<Popup&>(child)); }

void PopupLayer::Place(Popup& popup) {
  if (popup.placement == PopupPlacement::Cover) {
    popup.Arrange({0, 0, room.width, room.height});
    return;
  }
  const Rect anchor = popup.Anchor();
  popup.placedAt = anchor;
  const Size wanted{std::ceil(std::min(popup.DesiredSize().width, room.width)),
                    std::ceil(std::min(popup.DesiredSize().height, room.height))};
  Rect place{anchor.x, anchor.Bottom(), wanted.width, wanted.height};
  if (popup.placement == PopupPlacement::Beside) {
    place.x = anchor.Right() + wanted.width <= room.width ? anchor.Right() : anchor.x - wanted.width;
    place.y = anchor.y;
  } else {
    const float below = room.height - anchor.Bottom(), above = anchor.y;
    if (wanted.height > below && wanted.height <= above) {
      place.y = anchor.y - wanted.height;
    } else if (wanted.height > below && anchor.height > 0 && std::max(below, above) >= SmallestHeight) {
      place.height = std::floor(std::max(below, above));
      if (above > below) place.y = anchor.y - place.height;
    }
  }
  place.x = Within(place.x, place.width, room.width);
  place.y = Within(place.y, place.height, room.height);
  popup.Arrange(place);
}

void PopupLayer::RenderChildren(Painter& painter) {
  for (const Ptr<Popup>& popup : popups) {
    if (popup->placement == PopupPlacement::Cover || followPosted) continue;
    if (popup->owner->IsVisible() && popup->Anchor() == popup->placedAt) continue;
    // Whatever moved the owner, its popup follows with the next frame.
    followPosted = true;
    Dispatcher::Current().Post([layer = Ptr<PopupLayer>(this)] { layer->FollowOwners(); });
  }
  FrameworkElement::RenderChildren(painter);
}

void PopupLayer::FollowOwners() {
  followPosted = false;
  for (size_t i = popups.size(); i-- > 0;)
    if (i < popups.size() && !popups[i]->owner->IsVisible()) Close(*Ptr<Popup>(popups[i]));
  InvalidateArrange();
}

UIElement* PopupLayer::HitTest(Point point) {
  for (size_t i = popups.size(); i-- > 0;) {
    Popup& popup = *popups[i];
    if (UIElement* hit = popup.HitTest(popup.TransformToParent().Inverse().Map(point))) return hit;
  }
  if (!HasLight()) return nullptr;
  for (const Ptr<Popup>& popup : popups) {
    const UIElement* behind = popup->mouseGoesTo;
    if (behind && Rect{0, 0, behind->ActualWidth(), behind->ActualHeight()}.Contains(behind->PointFromRoot(point)))
      return nullptr;
  }
  return this;
}

void PopupLayer::OnRoutedEvent(const RoutedEventArgs& args) {
  FrameworkElement::OnRoutedEvent(args);
  InputState* input = InputState::Current();
  if (!input) return;
  if (args.event == &MouseDownEvent) {
    // The release belongs to the press: it must not reach what lies behind either.
    input->Capture(this);
    CloseLight();
  } else if (args.event == &MouseWheelEvent) {
    CloseLight();
  } else if (args.event == &MouseUpEvent) {
    if (input->Captured() == this) input->Capture(nullptr);
  } else {
    return;
  }
  args.handled = true;
}

Popup* PopupLayer::PopupOf(Object* source) const {
  auto* element = DynamicCast<UIElement>(source);
  while (element && element->VisualParent() != this) element = element->VisualParent();
  return static_cast<Popup*>(element);
}

void PopupLayer::PassMouse(const RoutedEventArgs& args, Popup& popup) {
  Ptr<Popup> alive(&popup);
  Ptr<UIElement> target(static_cast<UIElement*>(args.source));
  args.handled = true;
  if (args.event == &PreviewMouseMoveEvent) {
    RaiseAs<MouseEventArgs>(args, MouseMoveEvent, *target);
  } else if (args.event == &PreviewMouseWheelEvent) {
    RaiseAs<MouseWheelEventArgs>(args, MouseWheelEvent, *target);
  } else if (args.event == &PreviewMouseLeftButtonDownEvent) {
    popup.takesRelease = true;
    RaiseAs<MouseButtonEventArgs>(args, MouseLeftButtonDownEvent, *target);
  } else if (args.event == &PreviewMouseLeftButtonUpEvent) {
    RaiseAs<MouseButtonEventArgs>(args, MouseLeftButtonUpEvent, *target);
  }
}

void PopupLayer::OnKey(const RoutedEventArgs& args) {
  const Ptr<Popup> top(Topmost());
  if (!top) return;
  const auto& key = static_cast<const KeyEventArgs&>(args);
  if (top->keyPressed && top->keyPressed(key)) {
    args.handled = true;
  } else if (top->kind == PopupKind::Light && key.key == Key::Escape) {
    Close(*top);
    args.handled = true;
  } else if (top->kind == PopupKind::Modal && key.key != Key::Tab) {
    // Keys for what lies behind a box that wants an answer.
    const InputState* input = InputState::Current();
    args.handled = !input || !input->Focused() || !top->IsAncestorOf(input->Focused());
  }
}

void PopupLayer::OnWindowEvent(const RoutedEventArgs& args) {
  toolTips->Observe(args);
  const RoutedEvent* event = args.event;
  if (popups.empty()) {
    if (event == &KeyDownEvent && static_cast<const KeyEventArgs&>(args).key == Key::F10 && menuBar &&
        !Keyboard::IsKeyDown(Key::LeftShift) && !Keyboard::IsKeyDown(Key::RightShift)) {
      menuBar->Toggle();
      args.handled = true;
    }
    if (event == &MouseRightButtonUpEvent) args.handled = ContextMenu::OpenFor(args.source);
    return;
  }
  if (event == &PreviewKeyDownEvent) return OnKey(args);
  if (event == &PreviewTextInputEvent) {
    const Popup* top = Topmost();
    if (top && top->takesText) args.handled = true;
    return;
  }
  if (event == &MouseRightButtonUpEvent && !PopupOf(args.source) && args.source != this) {
    args.handled = ContextMenu::OpenFor(args.source);
    return;
  }
  const bool isMouse = event == &PreviewMouseMoveEvent || event == &PreviewMouseWheelEvent ||
                       event == &PreviewMouseLeftButtonDownEvent || event == &PreviewMouseLeftButtonUpEvent ||
                       event == &PreviewMouseRightButtonDownEvent || event == &PreviewMouseRightButtonUpEvent ||
                       event == &PreviewMouseDownEvent || event == &PreviewMouseUpEvent;
  if (!isMouse) return;
  const Point moved = static_cast<const MouseEventArgs&>(args).position;
  for (const Ptr<Popup>& popup : popups) {
    const Point way = moved - popup->mouseAtOpening;
    if (std::hypot(way.x, way.y) > RestRadius) popup->takesRelease = true;
  }
  if (Popup* popup = PopupOf(args.source)) PassMouse(args, *popup);
}

} // namespace Toolkit
