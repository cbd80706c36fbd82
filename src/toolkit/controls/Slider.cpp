#include "toolkit/controls/Slider.h"

#include "toolkit/controls/TextElement.h"
#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"
#include "toolkit/visual/Input.h"

#include <algorithm>
#include <cmath>

namespace Toolkit {

namespace {
constexpr float ThumbWidth = 12;
constexpr float TrackHeight = 24;
constexpr float TickHeight = 8;
} // namespace

const EnumDescription& DescribeEnum(TickPlacement) {
  static const EnumDescription description{{{"None", 0}, {"TopLeft", 1}, {"BottomRight", 2}, {"Both", 3}}};
  return description;
}

const RoutedEvent Slider::ValueChangedEvent("ValueChanged", RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(Slider, Control, "Slider")
void Slider::Describe(TypeBuilder<Slider>& type) {
  using P = DependencyProperty;
  ValueProperty = type.Property<float>("Value", 0, P::BindsTwoWay | P::AffectsRender);
  MinimumProperty = type.Property<float>("Minimum", 0, P::AffectsRender);
  MaximumProperty = type.Property<float>("Maximum", 10, P::AffectsRender);
  TickFrequencyProperty = type.Property<float>("TickFrequency", 1, P::AffectsRender);
  SmallChangeProperty = type.Property<float>("SmallChange", 1);
  LargeChangeProperty = type.Property<float>("LargeChange", 10);
  TickPlacementProperty = type.Property<TickPlacement>("TickPlacement", TickPlacement::None, P::AffectsMeasure);
  IsSnapToTickEnabledProperty = type.Property<bool>("IsSnapToTickEnabled");
  IsDraggingProperty = type.Property<bool>("IsDragging", false, P::AffectsRender);
  ThumbBrushProperty = type.Property<Brush*>("ThumbBrush", nullptr, P::AffectsRender);
  type.Event(&ValueChangedEvent);
}

void Slider::SetValueNumber(float value) {
  const float low = Get<float>(MinimumProperty), high = std::max(low, Get<float>(MaximumProperty));
  SetValue(ValueProperty, std::clamp(value, low, high));
}

void Slider::OnPropertyChanged(const PropertyChange& change) {
  Control::OnPropertyChanged(change);
  if (&change.property == ValueProperty) RaiseEvent(RoutedEventArgs(ValueChangedEvent, this));
}

Size Slider::MeasureOverride(Size) {
  const auto ticks = Get<TickPlacement>(TickPlacementProperty);
  const float sides = ticks == TickPlacement::None ? 0 : ticks == TickPlacement::Both ? 2 : 1;
  return {ThumbWidth * 2, TrackHeight + sides * TickHeight};
}

void Slider::OnRender(Painter& painter) {
  const auto ticks = Get<TickPlacement>(TickPlacementProperty);
  const bool above = ticks == TickPlacement::TopLeft || ticks == TickPlacement::Both;
  const bool below = ticks == TickPlacement::BottomRight || ticks == TickPlacement::Both;
  const float low = Get<float>(MinimumProperty), high = std::max(low, Get<float>(MaximumProperty));
  const float way = std::max(0.0f, ActualWidth() - ThumbWidth), start = ThumbWidth * 0.5f;
  const float middle = (ActualHeight() + (above ? TickHeight : 0) - (below ? TickHeight : 0)) * 0.5f;
  const float at = ThumbPosition();
  const auto* accent = Get<Brush*>(TextElement::ForegroundProperty);
  const auto* line = Get<Brush*>(BorderBrushProperty);
  constexpr CornerRadius round{2, 2, 2, 2};
  painter.DrawRectangle({start, middle - 2, way, 4}, round, Get<Brush*>(BackgroundProperty), nullptr, {});
  painter.DrawRectangle({start, middle - 2, at - start, 4}, round, accent, nullptr, {});
  // Ticks that would stand closer than this are a grey band.
  constexpr float ClosestTicks = 4;
  const float frequency = Get<float>(TickFrequencyProperty);
  if (ticks != TickPlacement::None && frequency > 0 && high > low && way * frequency / (high - low) >= ClosestTicks) {
    for (float tick = low; tick <= high + frequency * 0.01f; tick += frequency) {
      const float x = std::round(start + way * (tick - low) / (high - low));
      if (above) painter.DrawRectangle({x, middle - 14, 1, 4}, line);
      if (below) painter.DrawRectangle({x, middle + 10, 1, 4}, line);
    }
  }
  const bool isLit = Get<bool>(IsMouseOverProperty) || Get<bool>(IsDraggingProperty);
  const float radius = start + (isLit ? 1 : 0);
  painter.DrawEllipse({at - radius, middle - radius, 2 * radius, 2 * radius}, Get<Brush*>(ThumbBrushProperty), nullptr,
                      0);
  constexpr float Ring = 3;
  const float reach = radius + Ring;
  DrawFocus(painter, {at - reach, middle - reach, 2 * reach, 2 * reach}, {reach, reach, reach, reach});
}

bool Slider::HitTestSelf(Point point) const { return Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point); }

float Slider::ThumbPosition() const {
  const float low = Get<float>(MinimumProperty), high = std::max(low, Get<float>(MaximumProperty));
  const float share = high > low ? std::clamp((GetValueNumber() - low) / (high - low), 0.0f, 1.0f) : 0;
  return ThumbWidth * 0.5f + std::max(0.0f, ActualWidth() - ThumbWidth) * share;
}

void Slider::MoveTo(float x) {
  const float low = Get<float>(MinimumProperty), high = std::max(low, Get<float>(MaximumProperty));
  const float track = std::max(1.0f, ActualWidth() - ThumbWidth);
  float value = low + (high - low) * std::clamp((x - ThumbWidth * 0.5f) / track, 0.0f, 1.0f);
  const float tick = Get<float>(TickFrequencyProperty);
  if (Get<bool>(IsSnapToTickEnabledProperty) && tick > 0) value = low + std::round((value - low) / tick) * tick;
  SetValueNumber(value);
}

void Slider::OnRoutedEvent(const RoutedEventArgs& args) {
  Control::OnRoutedEvent(args);
  if (args.event == &LostMouseCaptureEvent) SetValue(IsDraggingProperty, false);
  if (!IsEnabled()) return;
  if (args.event == &MouseLeftButtonDownEvent) {
    Focus();
    SetValue(IsDraggingProperty, CaptureMouse());
    const float x = Mouse::GetPosition(this).x, thumb = ThumbPosition();
    // A press on the thumb itself does not move it; beside it, it comes to the mouse.
    grip = std::abs(x - thumb) <= ThumbWidth * 0.5f ? x - thumb : 0;
    if (grip == 0) MoveTo(x);
    args.handled = true;
  } else if (args.event == &MouseMoveEvent && HasMouseCapture()) {
    MoveTo(Mouse::GetPosition(this).x - grip);
    args.handled = true;
  } else if (args.event == &MouseLeftButtonUpEvent && HasMouseCapture()) {
    ReleaseMouseCapture();
    args.handled = true;
  } else if (args.event == &KeyDownEvent && IsFocused()) {
    const float small = Get<float>(SmallChangeProperty), large = Get<float>(LargeChangeProperty);
    float value = GetValueNumber();
    switch (static_cast<const KeyEventArgs&>(args).key) {
    case Key::Left:
    case Key::Down: value -= small; break;
    case Key::Right:
    case Key::Up: value += small; break;
    case Key::PageDown: value -= large; break;
    case Key::PageUp: value += large; break;
    case Key::Home: value = Get<float>(MinimumProperty); break;
    case Key::End: value = Get<float>(MaximumProperty); break;
    default: return;
    }
    SetValueNumber(value);
    args.handled = true;
  }
}

} // namespace Toolkit
