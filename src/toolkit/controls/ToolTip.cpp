#include "toolkit/controls/ToolTip.h"

#include "toolkit/base/Dispatcher.h"
#include "toolkit/controls/Popup.h"
#include "toolkit/controls/PopupLayer.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/markup/ElementPlan.h"
#include "toolkit/markup/ValueConversion.h"
#include "toolkit/visual/Input.h"

#include <utility>

namespace Toolkit {

namespace {
// All in milliseconds.
constexpr double FirstDelay = 500;
/// For who goes from tip to tip.
constexpr double NextDelay = 100;
constexpr double NextWithin = 500;
constexpr double LongestStay = 10000;
/// What a cursor covers below and to the right of its tip, in pixels.
constexpr Rect CursorArea{-2, -4, 12, 26};

FrameworkElement* OwnerAt(Object* source) {
  for (auto* e = DynamicCast<UIElement>(source); e; e = e->UIParent()) {
    // What lies under the list or menu of a popup is not meant.
    if (DynamicCast<Popup>(e)) return nullptr;
    auto* element = DynamicCast<FrameworkElement>(e);
    if (element && !element->GetValue(FrameworkElement::ToolTipProperty).IsNone()) return element;
  }
  return nullptr;
}
} // namespace

TOOLKIT_TYPE_IMPL(ToolTip, ContentControl, "ToolTip")
void ToolTip::Describe(TypeBuilder<ToolTip>&) {}

bool ToolTip::HasContent() const {
  const Value& content = GetContent();
  if (content.IsNone() || (content.Kind() == ValueKind::String && content.AsStringView().empty())) return false;
  const auto* text = DynamicCast<TextBlock>(content.AsObject());
  return !text || !text->GetText().empty();
}

ToolTipService::ToolTipService(PopupLayer& layer) : layer(layer) {}
ToolTipService::~ToolTipService() { StopTimer(); }

void ToolTipService::StopTimer() {
  if (timer) Dispatcher::Current().Cancel(timer);
  timer = 0;
}

void ToolTipService::StartTimer(double milliseconds, void (ToolTipService::*task)()) {
  StopTimer();
  timer = Dispatcher::Current().StartTimer(milliseconds, [this, task] {
    timer = 0;
    (this->*task)();
  });
}

void ToolTipService::Hide() {
  StopTimer();
  owner.Reset();
  const Ptr<Popup> open = std::exchange(popup, nullptr);
  if (!open) return;
  shownAt = Dispatcher::Current().Now();
  open->Close();
}

void ToolTipService::StayAway() {
  const WeakPtr<FrameworkElement> former = owner;
  Hide();
  owner = former;
}

void ToolTipService::OnMouseMoved(const RoutedEventArgs& args) {
  FrameworkElement* now = OwnerAt(args.source);
  const auto& mouse = static_cast<const MouseEventArgs&>(args);
  const bool isDragging = mouse.leftButton == MouseButtonState::Pressed ||
                          mouse.middleButton == MouseButtonState::Pressed ||
                          mouse.rightButton == MouseButtonState::Pressed;
  if (!now || isDragging) return Hide();
  if (now == owner.Get()) {
    // The mouse does not rest yet. A tip that was seen and went does not come again before the mouse has left.
    if (timer && !popup) StartTimer(delay, &ToolTipService::Show);
    return;
  }
  Hide();
  owner = WeakPtr<FrameworkElement>(now);
  delay = Dispatcher::Current().Now() - shownAt < NextWithin ? NextDelay : FirstDelay;
  StartTimer(delay, &ToolTipService::Show);
}

Ptr<ToolTip> ToolTipService::MakeTip(FrameworkElement& element) const {
  const Value value = element.GetValue(FrameworkElement::ToolTipProperty);
  Ptr<FrameworkElement> made(DynamicCast<FrameworkElement>(value.AsObject()));
  if (const auto* factory = DynamicCast<ElementFactory>(value.AsObject())) made = factory->Create(element);
  if (auto* tip = DynamicCast<ToolTip>(made)) return Ptr<ToolTip>(tip);
  auto tip = MakePtr<ToolTip>();
  if (made) {
    tip->SetContent(Value(made));
  } else if (value.Kind() != ValueKind::Object) {
    auto text = MakePtr<TextBlock>();
    text->SetText(ValueConversion::ToText(value).View());
    text->SetValue(TextBlock::TextWrappingProperty, TextWrapping::Wrap);
    tip->SetContent(Value(text));
  }
  return tip;
}

void ToolTipService::Show() {
  const Ptr<FrameworkElement> element(owner.Get());
  if (!element || !element->IsAttached() || !element->IsVisible()) return;
  const Ptr<ToolTip> tip = MakeTip(*element);
  tip->SetLogicalParent(element.Get());
  tip->ApplyThemeStyle();
  if (tip->GetVisibility() != Visibility::Visible || !tip->HasContent()) return;
  popup = MakePtr<Popup>(*element, *tip, PopupKind::Passive, PopupPlacement::Below);
  const Point mouse = Mouse::GetPosition(nullptr);
  popup->anchor = Rect{mouse.x + CursorArea.x, mouse.y + CursorArea.y, CursorArea.width, CursorArea.height};
  popup->closed = [this] {
    if (!popup) return;
    popup.Reset();
    StopTimer();
  };
  layer.Open(*popup);
  StartTimer(LongestStay, &ToolTipService::StayAway);
}

void ToolTipService::Observe(const RoutedEventArgs& args) {
  if (args.event == &UIElement::PreviewMouseMoveEvent) {
    OnMouseMoved(args);
  } else if (args.event == &UIElement::MouseLeaveEvent || args.event == &UIElement::PreviewMouseDownEvent ||
             args.event == &UIElement::PreviewMouseLeftButtonDownEvent ||
             args.event == &UIElement::PreviewMouseRightButtonDownEvent ||
             args.event == &UIElement::PreviewMouseWheelEvent || args.event == &UIElement::PreviewKeyDownEvent) {
    if (args.event == &UIElement::MouseLeaveEvent)
      Hide();
    else
      StayAway();
  }
}

} // namespace Toolkit
