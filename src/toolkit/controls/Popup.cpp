#include "toolkit/controls/Popup.h"

#include "toolkit/controls/PopupLayer.h"
#include "toolkit/visual/Input.h"

#include <algorithm>

namespace Toolkit {

TOOLKIT_TYPE_IMPL(Popup, FrameworkElement, "Popup")
void Popup::Describe(TypeBuilder<Popup>&) {}

Popup::Popup(UIElement& owner, UIElement& content, PopupKind kind, PopupPlacement placement)
    : owner(&owner), content(&content), kind(kind), placement(placement) {
  if (kind == PopupKind::Passive) SetValue(IsHitTestVisibleProperty, false);
}

Popup::~Popup() {
  if (content->VisualParent() == this) ReleaseVisualChild(content.Get(), content->ReferenceCount());
}

void Popup::Close() {
  if (layer) layer->Close(*this);
}

Rect Popup::Anchor() const {
  if (anchor) return *anchor;
  return owner->TransformToAncestor(nullptr).MapBounds({0, 0, owner->ActualWidth(), owner->ActualHeight()});
}

Size Popup::MeasureOverride(Size available) {
  content->Measure(available);
  return {std::min(available.width, std::max(minWidth, content->DesiredSize().width)), content->DesiredSize().height};
}

Size Popup::ArrangeOverride(Size finalSize) {
  content->Arrange({0, 0, finalSize.width, finalSize.height});
  return finalSize;
}

void Popup::OnRoutedEvent(const RoutedEventArgs& args) {
  FrameworkElement::OnRoutedEvent(args);
  // What the content did not take is of no concern to the owner and those around it.
  for (const RoutedEvent* event :
       {&MouseDownEvent, &MouseUpEvent, &MouseLeftButtonDownEvent, &MouseLeftButtonUpEvent, &MouseRightButtonDownEvent,
        &MouseRightButtonUpEvent, &MouseMoveEvent, &MouseWheelEvent})
    if (args.event == event) args.handled = true;
  if (kind == PopupKind::Modal && (args.event == &KeyDownEvent || args.event == &KeyUpEvent)) {
    InputState* input = InputState::Current();
    if (args.event == &KeyDownEvent && static_cast<const KeyEventArgs&>(args).key == Key::Tab && input)
      input->MoveFocusByTab();
    args.handled = true;
  }
}

void Popup::OnOwnerUnloaded(Object*, const RoutedEventArgs&) { Close(); }

} // namespace Toolkit
