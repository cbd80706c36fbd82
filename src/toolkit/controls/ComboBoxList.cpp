#include "toolkit/controls/ComboBoxList.h"

#include "toolkit/controls/ComboBox.h"
#include "toolkit/controls/Popup.h"
#include "toolkit/controls/TextElement.h"
#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"
#include "toolkit/visual/Input.h"

#include <algorithm>
#include <cmath>

namespace Toolkit {

namespace {
constexpr float RowPaddingX = 4, RowPaddingY = 3;
/// Of a longer list, only so many rows are asked for their width.
constexpr size_t MeasuredRows = 200;
constexpr float WheelRows = 3;
constexpr CornerRadius Round{3, 3, 3, 3};
} // namespace

TOOLKIT_TYPE_IMPL(ComboBoxList, Control, "ComboBoxList")
void ComboBoxList::Describe(TypeBuilder<ComboBoxList>& type) {
  const uint32_t renders = DependencyProperty::AffectsRender;
  HighlightBrushProperty = type.Property<Brush*>("HighlightBrush", nullptr, renders);
  SelectionBrushProperty = type.Property<Brush*>("SelectionBrush", nullptr, renders);
  ScrollBarBrushProperty = type.Property<Brush*>("ScrollBarBrush", nullptr, renders);
}

ComboBoxList::ComboBoxList(ComboBox& owner) : box(&owner) {}

void ComboBoxList::Begin() {
  current = box ? box->GetSelectedIndex() : -1;
  bar.Release();
  centresCurrent = true;
  InvalidateMeasure();
}

void ComboBoxList::OnItemsChanged() {
  if (box) current = box->GetSelectedIndex();
  InvalidateMeasure();
  InvalidateVisual();
}

void ComboBoxList::SetCurrent(int32_t row) {
  if (row != current) {
    current = row;
    InvalidateVisual();
  }
  if (row >= 0 && bar.Show(static_cast<float>(row) * rowHeight, rowHeight)) InvalidateVisual();
}

int32_t ComboBoxList::RowsOfPage() const {
  return std::max(1, static_cast<int32_t>(bar.viewport.height / std::max(1.0f, rowHeight)));
}

Rect ComboBoxList::RowBox(int32_t row) const {
  return {bar.viewport.x, bar.viewport.y + static_cast<float>(row) * rowHeight - bar.offset,
          bar.viewport.width - (bar.IsNeeded() ? ScrollThumb::Width : 0), rowHeight};
}

int32_t ComboBoxList::RowAt(Point point) const {
  if (!box || !bar.viewport.Contains(point) || bar.Track().Contains(point)) return -1;
  const auto row = static_cast<int32_t>((point.y - bar.viewport.y + bar.offset) / rowHeight);
  return static_cast<size_t>(row) < box->ItemCount() ? row : -1;
}

float ComboBoxList::WidthOfRows() const {
  const TextStyle style = TextElement::StyleOf(*this);
  float width = 0;
  const size_t count = std::min(box->ItemCount(), MeasuredRows);
  for (size_t i = 0; i < count; ++i)
    width = std::max(width, TextCache::Instance().MeasureText(box->TextOf(box->ItemAt(i)).View(), style).width);
  return width + 2 * RowPaddingX;
}

Size ComboBoxList::MeasureOverride(Size available) {
  if (!box) return {};
  const Thickness chrome = Chrome();
  rowHeight = std::ceil(TextCache::Instance().MeasureText(" ", TextElement::StyleOf(*this)).height + 2 * RowPaddingY);
  // An empty list still shows that there is nothing in it.
  bar.extent = rowHeight * static_cast<float>(std::max<size_t>(1, box->ItemCount()));
  const float height = std::min(
      {available.height, box->Get<float>(ComboBox::MaxDropDownHeightProperty), bar.extent + chrome.Vertical()});
  const bool scrolls = bar.extent + chrome.Vertical() > height;
  return {WidthOfRows() + chrome.Horizontal() + (scrolls ? ScrollThumb::Width : 0), height};
}

Size ComboBoxList::ArrangeOverride(Size finalSize) {
  const Thickness chrome = Chrome();
  bar.viewport = {chrome.left, chrome.top, std::max(0.0f, finalSize.width - chrome.Horizontal()),
                  std::max(0.0f, finalSize.height - chrome.Vertical())};
  if (centresCurrent) {
    centresCurrent = false;
    bar.ScrollTo(static_cast<float>(current) * rowHeight - (bar.viewport.height - rowHeight) * 0.5f);
  }
  bar.ScrollTo(bar.offset);
  return finalSize;
}

void ComboBoxList::OnRender(Painter& painter) {
  Control::OnRender(painter);
  if (!box) return;
  painter.PushClip(bar.viewport);
  const TextStyle style = TextElement::StyleOf(*this);
  const auto* ink = Get<Brush*>(TextElement::ForegroundProperty);
  const auto count = static_cast<int32_t>(box->ItemCount());
  const auto first = static_cast<int32_t>(bar.offset / rowHeight);
  const auto end = static_cast<int32_t>(std::ceil((bar.offset + bar.viewport.height) / rowHeight));
  for (int32_t row = std::max(0, first); row < std::min(count, end); ++row) {
    const Rect area = RowBox(row);
    if (row == box->GetSelectedIndex())
      painter.DrawRectangle(area, Round, Get<Brush*>(SelectionBrushProperty), nullptr, {});
    if (row == current) painter.DrawRectangle(area, Round, Get<Brush*>(HighlightBrushProperty), nullptr, {});
    TextLayoutOptions options;
    options.maxWidth = std::max(0.0f, area.width - 2 * RowPaddingX);
    options.trimming = TextTrimming::CharacterEllipsis;
    painter.DrawText(
        TextCache::Instance().Layout(box->TextOf(box->ItemAt(static_cast<size_t>(row))).View(), style, options),
        {area.x + RowPaddingX, area.y + RowPaddingY}, ink);
  }
  painter.Pop();
  bar.Draw(painter, Get<Brush*>(ScrollBarBrushProperty));
}

void ComboBoxList::OnRoutedEvent(const RoutedEventArgs& args) {
  Control::OnRoutedEvent(args);
  InputState* input = InputState::Current();
  if (!input || !box) return;
  const Point mouse = Mouse::GetPosition(this);
  if (args.event == &MouseWheelEvent) {
    if (bar.ScrollTo(bar.offset - static_cast<const MouseWheelEventArgs&>(args).wheelRotation * WheelRows * rowHeight))
      InvalidateVisual();
    args.handled = true;
  } else if (args.event == &MouseLeaveEvent) {
    if (bar.SetHovered(false)) InvalidateVisual();
  } else if (args.event == &MouseMoveEvent) {
    args.handled = true;
    if (bar.Hover(mouse)) InvalidateVisual();
    if (bar.IsPressed()) {
      if (bar.DragTo(mouse)) InvalidateVisual();
    } else if (const int32_t row = RowAt(mouse); row >= 0 && row != current) {
      // Not through `SetCurrent`: a row that is cut off must not move away under the mouse.
      current = row;
      InvalidateVisual();
    }
  } else if (args.event == &MouseLeftButtonDownEvent) {
    args.handled = true;
    if (!bar.Press(mouse)) return;
    input->Capture(this);
    InvalidateVisual();
  } else if (args.event == &MouseLeftButtonUpEvent) {
    args.handled = true;
    if (bar.IsPressed()) {
      bar.Release();
      InvalidateVisual();
      if (input->Captured() == this) input->Capture(nullptr);
      return;
    }
    const auto* popup = DynamicCast<Popup>(VisualParent());
    const int32_t row = RowAt(mouse);
    if (row < 0 || !popup || !popup->TakesRelease()) return;
    Ptr<ComboBoxList> alive(this);
    box->Choose(row);
  }
}

} // namespace Toolkit
