#include "toolkit/controls/HeaderedContentControl.h"

#include "toolkit/controls/ContentPresenter.h"
#include "toolkit/controls/TextElement.h"
#include "toolkit/markup/Template.h"
#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"
#include "toolkit/visual/Input.h"

#include <algorithm>

namespace Toolkit {

namespace {
constexpr float ArrowWidth = 22;
constexpr float HeaderInset = 8;
} // namespace

TOOLKIT_TYPE_IMPL(HeaderedContentControl, ContentControl, "HeaderedContentControl")
void HeaderedContentControl::Describe(TypeBuilder<HeaderedContentControl>& type) {
  using P = DependencyProperty;
  HeaderProperty = type.Property<Value>("Header", Value(), P::AffectsMeasure);
  HeaderTemplateProperty = type.Property<DataTemplate*>("HeaderTemplate", nullptr, P::AffectsMeasure);
}

HeaderedContentControl::~HeaderedContentControl() {
  if (!headerElement || headerElement->VisualParent() != this) return;
  ReleaseVisualChild(headerElement.Get(), GetHeader().AsObject() == headerElement.Get() ? 2 : 1);
}

void HeaderedContentControl::OnPropertyChanged(const PropertyChange& change) {
  ContentControl::OnPropertyChanged(change);
  if (&change.property != HeaderProperty && &change.property != HeaderTemplateProperty) return;
  if (headerElement) {
    if (headerElement->VisualParent() == this) RemoveVisualChild(headerElement.Get());
    headerElement.Reset();
  }
  headerDue = true;
  if (auto* element = DynamicCast<FrameworkElement>(GetHeader().AsObject()); element && !element->VisualParent()) {
    headerElement = Ptr<UIElement>(element);
    headerDue = false;
    AddVisualChild(element);
  }
}

void HeaderedContentControl::PrepareForMeasure() {
  ContentControl::PrepareForMeasure();
  if (!headerDue) return;
  headerDue = false;
  ContentPresenter::MakeElement(GetHeader(), GetValue(HeaderTemplateProperty).AsObject(), this,
                                [this](UIElement& made) {
                                  headerElement = Ptr<UIElement>(&made);
                                  AddVisualChild(&made);
                                });
}

size_t HeaderedContentControl::VisualChildCount() const {
  return ContentControl::VisualChildCount() + (headerElement ? 1 : 0);
}

UIElement* HeaderedContentControl::VisualChild(size_t index) const {
  if (headerElement && index == 0) return headerElement.Get();
  return ContentControl::VisualChild(0);
}

TOOLKIT_TYPE_IMPL(GroupBox, HeaderedContentControl, "GroupBox")
void GroupBox::Describe(TypeBuilder<GroupBox>&) {}

Size GroupBox::MeasureOverride(Size available) {
  const Thickness chrome = Chrome();
  Size header, content;
  if (HeaderElement()) {
    HeaderElement()->Measure({std::max(0.0f, available.width - 2 * HeaderInset), available.height});
    header = HeaderElement()->DesiredSize();
  }
  if (ContentElement()) {
    ContentElement()->Measure({std::max(0.0f, available.width - chrome.Horizontal()),
                               std::max(0.0f, available.height - chrome.Vertical() - header.height)});
    content = ContentElement()->DesiredSize();
  }
  return {std::max(header.width + 2 * HeaderInset, content.width + chrome.Horizontal()),
          header.height + content.height + chrome.Vertical()};
}

Size GroupBox::ArrangeOverride(Size finalSize) {
  const Thickness chrome = Chrome();
  float headerHeight = 0;
  if (HeaderElement()) {
    const Size header = HeaderElement()->DesiredSize();
    headerHeight = header.height;
    HeaderElement()->Arrange(
        {HeaderInset, 0, std::max(0.0f, std::min(header.width, finalSize.width - HeaderInset)), header.height});
  }
  if (ContentElement())
    ContentElement()->Arrange({chrome.left, headerHeight + chrome.top,
                               std::max(0.0f, finalSize.width - chrome.Horizontal()),
                               std::max(0.0f, finalSize.height - headerHeight - chrome.Vertical())});
  return finalSize;
}

void GroupBox::OnRender(Painter& painter) {
  // The frame's upper line runs behind the middle of the header, which stands in a gap of it.
  const float top = HeaderElement() ? HeaderElement()->DesiredSize().height * 0.5f : 0;
  const Rect frame{0, top, ActualWidth(), ActualHeight() - top};
  if (!HeaderElement() || HeaderElement()->ActualWidth() <= 0) {
    DrawChrome(painter, frame);
    return;
  }
  const float gapStart = HeaderInset - 3, gapEnd = HeaderInset + HeaderElement()->ActualWidth() + 3;
  const float below = top + Get<Thickness>(BorderThicknessProperty).top;
  for (const Rect& part : {Rect{0, 0, gapStart, below}, Rect{gapEnd, 0, ActualWidth() - gapEnd, below},
                           Rect{0, below, ActualWidth(), ActualHeight() - below}}) {
    painter.PushClip(part);
    DrawChrome(painter, frame);
    painter.Pop();
  }
}

const RoutedEvent Expander::ExpandedEvent("Expanded", RoutingStrategy::Bubble);
const RoutedEvent Expander::CollapsedEvent("Collapsed", RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(Expander, HeaderedContentControl, "Expander")
void Expander::Describe(TypeBuilder<Expander>& type) {
  using P = DependencyProperty;
  IsExpandedProperty = type.Property<bool>("IsExpanded", false, P::BindsTwoWay | P::AffectsMeasure);
  HighlightBrushProperty = type.Property<Brush*>("HighlightBrush", nullptr, P::AffectsRender);
  type.Event(&ExpandedEvent);
  type.Event(&CollapsedEvent);
}

size_t Expander::VisualChildCount() const {
  const size_t all = HeaderedContentControl::VisualChildCount();
  // A closed expander's content takes no part in layout, drawing and input.
  return IsExpanded() || !ContentElement() ? all : all - 1;
}

void Expander::OnPropertyChanged(const PropertyChange& change) {
  HeaderedContentControl::OnPropertyChanged(change);
  if (&change.property != IsExpandedProperty && &change.property != ContentProperty) return;
  // Closed content is out of reach of what the tree hands down, so it joins and leaves by itself.
  if (UIElement* content = ContentElement(); content && content->VisualParent() == this) {
    if (IsExpanded()) {
      content->RefreshInheritance(0);
      if (IsAttached()) content->AttachAsRoot();
    } else if (content->IsAttached()) {
      if (InputState* input = InputState::Current()) input->ElementGone(*content);
      content->DetachAsRoot();
    }
  }
  if (&change.property == IsExpandedProperty)
    RaiseEvent(RoutedEventArgs(IsExpanded() ? ExpandedEvent : CollapsedEvent, this));
}

float Expander::HeaderHeight() const {
  return HeaderElement() ? std::max(HeaderElement()->DesiredSize().height, ArrowWidth) : ArrowWidth;
}

Size Expander::MeasureOverride(Size available) {
  const Thickness chrome = Chrome();
  Size wanted{ArrowWidth, 0};
  if (HeaderElement()) {
    HeaderElement()->Measure({std::max(0.0f, available.width - ArrowWidth), available.height});
    wanted.width += HeaderElement()->DesiredSize().width;
  }
  wanted.height = HeaderHeight();
  if (IsExpanded() && ContentElement()) {
    ContentElement()->Measure({std::max(0.0f, available.width - chrome.Horizontal()), Infinity});
    wanted.width = std::max(wanted.width, ContentElement()->DesiredSize().width + chrome.Horizontal());
    wanted.height += ContentElement()->DesiredSize().height + chrome.Vertical();
  }
  return wanted;
}

Size Expander::ArrangeOverride(Size finalSize) {
  const float header = HeaderHeight();
  if (HeaderElement()) {
    const float height = HeaderElement()->DesiredSize().height;
    HeaderElement()->Arrange(
        {ArrowWidth, (header - height) * 0.5f, std::max(0.0f, finalSize.width - ArrowWidth), height});
  }
  if (IsExpanded() && ContentElement()) {
    const Thickness chrome = Chrome();
    ContentElement()->Arrange({chrome.left, header + chrome.top, std::max(0.0f, finalSize.width - chrome.Horizontal()),
                               std::max(0.0f, finalSize.height - header - chrome.Vertical())});
  }
  return finalSize;
}

void Expander::OnRender(Painter& painter) {
  DrawChrome(painter, {0, 0, ActualWidth(), ActualHeight()});
  const CornerRadius radii = Get<CornerRadius>(CornerRadiusProperty);
  if (isHeaderHovered && IsEnabled())
    painter.DrawRectangle(HeaderBox(), radii, Get<Brush*>(HighlightBrushProperty), nullptr, {});
  DrawFocus(painter, HeaderBox(), radii);
  const float x = ArrowWidth * 0.5f, y = HeaderHeight() * 0.5f;
  PathOutline arrow;
  if (IsExpanded()) {
    arrow.MoveTo({x - 4, y - 2});
    arrow.LineTo({x, y + 2});
    arrow.LineTo({x + 4, y - 2});
  } else {
    arrow.MoveTo({x - 2, y - 4});
    arrow.LineTo({x + 2, y});
    arrow.LineTo({x - 2, y + 4});
  }
  painter.DrawPath(std::move(arrow), nullptr, Get<Brush*>(TextElement::ForegroundProperty), 1.5f);
}

bool Expander::HitTestSelf(Point point) const { return HeaderBox().Contains(point); }

void Expander::OnRoutedEvent(const RoutedEventArgs& args) {
  HeaderedContentControl::OnRoutedEvent(args);
  if (!IsEnabled()) return;
  if (args.event == &MouseMoveEvent || args.event == &MouseLeaveEvent) {
    const bool isOver = args.event == &MouseMoveEvent && HeaderBox().Contains(Mouse::GetPosition(this));
    if (isOver != isHeaderHovered) InvalidateVisual();
    isHeaderHovered = isOver;
    return;
  }
  bool toggles = false;
  if (args.event == &MouseLeftButtonDownEvent) {
    toggles = Mouse::GetPosition(this).y < HeaderHeight();
    if (toggles) Focus();
  } else if (args.event == &KeyDownEvent && IsFocused()) {
    const auto& key = static_cast<const KeyEventArgs&>(args);
    toggles = (key.key == Key::Space || key.key == Key::Return) && !key.isRepeat;
  }
  if (!toggles) return;
  args.handled = true;
  SetIsExpanded(!IsExpanded());
}

} // namespace Toolkit
