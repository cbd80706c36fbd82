#include "toolkit/controls/TextBox.h"

#include "toolkit/controls/ContextMenu.h"
#include "toolkit/controls/ScrollThumb.h"
#include "toolkit/controls/TextBoxMenu.h"
#include "toolkit/controls/TextEditor.h"
#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"
#include "toolkit/visual/Input.h"

#include <algorithm>
#include <cmath>

namespace Toolkit {

namespace {

/// What a scroll bar takes at the right edge, instead of padding.
constexpr float BarRoom = 12;
constexpr float CaretWidth = 1.25f;
constexpr float PlaceholderOpacity = 0.5f;
/// Lines that one notch of the wheel scrolls.
constexpr float WheelLines = 3;

} // namespace

const EnumDescription& DescribeEnum(ScrollBarVisibility) {
  static const EnumDescription description{{{"Disabled", 0}, {"Auto", 1}, {"Hidden", 2}, {"Visible", 3}}};
  return description;
}

const RoutedEvent TextBox::TextChangedEvent("TextChanged", RoutingStrategy::Bubble);
const RoutedEvent TextBox::SelectionChangedEvent("SelectionChanged", RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(TextBox, Control, "TextBox")
void TextBox::Describe(TypeBuilder<TextBox>& type) {
  using P = DependencyProperty;
  TextProperty = type.Property<SharedString>(
      "Text", SharedString(), P::BindsTwoWay | P::BindsUntilFocusIsLost | P::AffectsMeasure | P::AffectsRender);
  TextWrappingProperty = type.Property<TextWrapping>("TextWrapping", TextWrapping::NoWrap, P::AffectsMeasure);
  TextAlignmentProperty = type.Property<TextAlignment>("TextAlignment", TextAlignment::Left, P::AffectsRender);
  AcceptsReturnProperty = type.Property<bool>("AcceptsReturn");
  IsReadOnlyProperty = type.Property<bool>("IsReadOnly", false, P::AffectsRender);
  MaxLengthProperty = type.Property<int32_t>("MaxLength");
  PlaceholderProperty = type.Property<SharedString>("Placeholder", SharedString(), P::AffectsRender);
  CaretBrushProperty = type.Property<Brush*>("CaretBrush");
  SelectionBrushProperty = type.Property<Brush*>("SelectionBrush");
  ScrollBarBrushProperty = type.Property<Brush*>("ScrollBarBrush");
  VerticalScrollBarVisibilityProperty =
      type.Property<ScrollBarVisibility>("VerticalScrollBarVisibility", ScrollBarVisibility::Hidden);
  HorizontalScrollBarVisibilityProperty =
      type.Property<ScrollBarVisibility>("HorizontalScrollBarVisibility", ScrollBarVisibility::Hidden);
  type.Event(&TextChangedEvent);
  type.Event(&SelectionChangedEvent);
}

TextBox::TextBox() = default;
TextBox::~TextBox() = default;

TextEditor& TextBox::Editor() const {
  if (!editor) editor = std::make_unique<TextEditor>(const_cast<TextBox&>(*this));
  return *editor;
}

std::optional<std::string> TextBox::UndoneText() const { return editor ? editor->UndoneText() : std::nullopt; }

size_t TextBox::CaretIndex() const { return editor ? editor->Caret() : 0; }
size_t TextBox::SelectionStart() const { return editor ? editor->SelectionStart() : 0; }
size_t TextBox::SelectionLength() const { return editor ? editor->SelectionEnd() - editor->SelectionStart() : 0; }
void TextBox::Select(size_t start, size_t length) { Editor().Select(start, start + length); }
void TextBox::SelectAll() { Editor().Select(0, GetText().size()); }

size_t TextBox::LineLength(size_t line) const {
  const auto layout = Editor().Layout();
  if (line >= layout->Lines().size()) return 0;
  const LayoutLine& entry = layout->Lines()[line];
  return std::max(entry.nextStart, entry.textEnd) - entry.textStart;
}

void TextBox::OnPropertyChanged(const PropertyChange& change) {
  Control::OnPropertyChanged(change);
  if (&change.property != TextProperty) return;
  if (editor) editor->TextReplaced();
  // Without handlers on the way there is nobody to tell; tens of thousands of boxes are filled by a load.
  if (IsAttached() || HasHandler(TextChangedEvent)) RaiseEvent(RoutedEventArgs(TextChangedEvent, this));
}

bool TextBox::HasScrollBar() const {
  const auto visibility = Get<ScrollBarVisibility>(VerticalScrollBarVisibilityProperty);
  return visibility == ScrollBarVisibility::Auto || visibility == ScrollBarVisibility::Visible;
}

Thickness TextBox::Surround() const {
  Thickness surround = Chrome();
  if (HasScrollBar()) surround.right = std::max(surround.right, BarRoom);
  return surround;
}

Rect TextBox::ContentBox() const {
  const Thickness surround = Surround();
  return {surround.left, surround.top, std::max(0.0f, ActualWidth() - surround.Horizontal()),
          std::max(0.0f, ActualHeight() - surround.Vertical())};
}

std::shared_ptr<const TextLayout> TextBox::LayoutOf(std::string_view text) const {
  TextLayoutOptions options;
  options.wrapping = Get<TextWrapping>(TextWrappingProperty);
  options.alignment = Get<TextAlignment>(TextAlignmentProperty);
  // A text that is laid out without a width shares its layout with all that are.
  if (options != TextLayoutOptions()) options.maxWidth = ContentBox().width;
  return TextCache::Instance().Layout(text, TextElement::StyleOf(*this), options);
}

Point TextBox::TextOrigin(const TextLayout& layout) const {
  const Rect content = ContentBox();
  const Point scroll = editor ? editor->ScrollOffset() : Point();
  // One line stands in the middle of the box, several begin at its top.
  const bool isOneLine =
      !Get<bool>(AcceptsReturnProperty) && Get<TextWrapping>(TextWrappingProperty) == TextWrapping::NoWrap;
  const float room = isOneLine ? std::max(0.0f, content.height - layout.Size().height) : 0;
  return {content.x - scroll.x, content.y - scroll.y + std::floor(room * 0.5f)};
}

Size TextBox::MeasureOverride(Size available) {
  const Thickness surround = Surround();
  const bool sized = !IsAuto(GetWidth()) && !IsAuto(GetHeight());
  // Both lengths given: the text does not matter.
  if (sized) return {};
  const TextStyle style = TextElement::StyleOf(*this);
  TextLayoutOptions options;
  options.wrapping = Get<TextWrapping>(TextWrappingProperty);
  if (options.wrapping == TextWrapping::Wrap)
    options.maxWidth = std::max(0.0f, available.width - surround.Horizontal());
  const std::string_view text = GetText();
  TextSize size;
  if (!IsAuto(GetWidth()) && options.wrapping == TextWrapping::NoWrap && !Get<bool>(AcceptsReturnProperty)) {
    // One line of a given width: any text is as high as any other.
    size = TextCache::Instance().MeasureText(" ", style);
  } else {
    size = TextCache::Instance().MeasureText(text.empty() ? std::string_view(" ") : text, style, options);
  }
  return {size.width + surround.Horizontal(), size.height + surround.Vertical()};
}

Size TextBox::ArrangeOverride(Size finalSize) {
  if (!editor) return finalSize;
  // A box that grows with its text has room again for what was scrolled out of sight.
  SetRenderSize(finalSize, Offset());
  editor->ScrollTo(editor->ScrollOffset());
  return finalSize;
}

Rect TextBox::CaretRectangle() const {
  if (!editor || Get<bool>(IsReadOnlyProperty)) return {};
  const CaretGeometry at = editor->CaretGeometryNow();
  const Point origin = TextOrigin(*editor->Layout());
  return {origin.x + at.x, origin.y + at.y, CaretWidth, at.height};
}

void TextBox::SetComposition(std::string_view text, size_t caret) { Editor().SetComposition(text, caret); }

void TextBox::OnRender(Painter& painter) {
  DrawChrome(painter, {0, 0, ActualWidth(), ActualHeight()});
  const Rect content = ContentBox();
  if (content.width <= 0 || content.height <= 0) return;
  const Brush* foreground = Get<Brush*>(TextElement::ForegroundProperty);
  const bool isComposing = editor && !editor->Composition().empty();
  const SharedString placeholder = Get<SharedString>(PlaceholderProperty);
  if (GetText().empty() && !isComposing && !placeholder.IsEmpty()) {
    painter.PushOpacity(PlaceholderOpacity);
    const auto layout = LayoutOf(placeholder.View());
    painter.PushClip(content);
    painter.DrawText(layout, TextOrigin(*layout), foreground);
    painter.Pop();
    painter.Pop();
  }
  const auto layout = editor ? editor->Layout() : LayoutOf(GetText());
  const Point origin = TextOrigin(*layout);
  const bool isCut = origin.x < content.x || origin.y < content.y ||
                     origin.x + layout->Size().width > content.Right() ||
                     origin.y + layout->Size().height > content.Bottom();
  // The caret at the end of a text stands a little outside of it.
  if (isCut) painter.PushClip({content.x - CaretWidth, content.y, content.width + 2 * CaretWidth, content.height});
  if (IsFocused() && editor && editor->SelectionStart() < editor->SelectionEnd() && !isComposing)
    for (const TextRectangle& r : layout->SelectionRectangles(editor->SelectionStart(), editor->SelectionEnd()))
      painter.DrawRectangle({origin.x + r.x, origin.y + r.y, r.width, r.height}, Get<Brush*>(SelectionBrushProperty));
  if (!layout->Text().empty()) painter.DrawText(layout, origin, foreground);
  if (isComposing) {
    const size_t start = editor->Caret();
    for (const TextRectangle& r : layout->SelectionRectangles(start, start + editor->Composition().size()))
      painter.DrawRectangle({origin.x + r.x, origin.y + r.y + r.height - 1, r.width, 1}, foreground);
  }
  if (IsFocused() && editor && editor->IsCaretShown() && !Get<bool>(IsReadOnlyProperty))
    painter.DrawRectangle(CaretRectangle(), Get<Brush*>(CaretBrushProperty));
  if (isCut) painter.Pop();
  if (!HasScrollBar()) return;
  ScrollThumb bar;
  if (!editor) PlaceBar(bar, *layout);
  (editor ? editor->Bar() : bar).Draw(painter, Get<Brush*>(ScrollBarBrushProperty));
}

void TextBox::PlaceBar(ScrollThumb& bar, const TextLayout& layout) const {
  const Rect content = ContentBox();
  bar.viewport = content;
  bar.viewport.width = ActualWidth() - Get<Thickness>(BorderThicknessProperty).right - content.x;
  bar.extent = HasScrollBar() ? layout.Size().height : 0;
  bar.offset = editor ? editor->ScrollOffset().y : 0;
}

bool TextBox::OnBar(const RoutedEventArgs& args, InputState& input) {
  if (!HasScrollBar()) return false;
  if (!editor) {
    ScrollThumb needed;
    PlaceBar(needed, *LayoutOf(GetText()));
    if (!needed.IsNeeded()) return false;
  }
  ScrollThumb& bar = Editor().Bar();
  const Point mouse = Mouse::GetPosition(this);
  const bool isCaptured = input.Captured() == this;
  if (!isCaptured) bar.Release();
  bool isTaken = false;
  if (args.event == &MouseLeftButtonDownEvent) {
    isTaken = bar.Press(mouse);
    if (isTaken) input.Capture(this);
  } else if (bar.IsPressed() && args.event == &MouseMoveEvent) {
    isTaken = true;
    bar.DragTo(mouse);
  } else if (bar.IsPressed() && args.event == &MouseLeftButtonUpEvent) {
    isTaken = true;
    bar.Release();
    input.Capture(nullptr);
  }
  // A drag that selects text does not light the bar.
  const bool isOver = args.event != &MouseLeaveEvent && (!isCaptured || isTaken) && bar.Track().Contains(mouse);
  if (bar.SetHovered(isOver)) {
    if (isOver)
      SetValue(CursorProperty, "Arrow");
    else
      ClearValue(CursorProperty);
    InvalidateVisual();
  }
  if (!isTaken) return false;
  Editor().ScrollTo({Editor().ScrollOffset().x, bar.offset});
  InvalidateVisual();
  args.handled = true;
  return true;
}

void TextBox::OnRightButton(const RoutedEventArgs& args) {
  if (args.event == &PreviewMouseRightButtonDownEvent) {
    // Before those around hear of the press: whoever wants it, as a canvas does that is panned by it, takes the focus
    // back, and then there is no menu.
    isRightPressed = Focus();
  } else if (!isRightPressed || !IsFocused()) {
    isRightPressed = false;
  } else if (args.event == &MouseRightButtonDownEvent) {
    Editor().PressRightAt(Mouse::GetPosition(this));
  } else {
    isRightPressed = false;
    if (!GetValue(ContextMenuProperty).IsNone()) return;
    const Point mouse = Mouse::GetPosition(nullptr);
    args.handled = TextBoxMenu::Open(*this, {mouse.x, mouse.y, 0, 0});
  }
}

bool TextBox::OnKey(Key key) {
  const bool shift = Keyboard::IsKeyDown(Key::LeftShift) || Keyboard::IsKeyDown(Key::RightShift);
  if (key != Key::Apps && !(key == Key::F10 && shift)) return Editor().HandleKey(key);
  if (!GetValue(ContextMenuProperty).IsNone()) return ContextMenu::OpenFor(this);
  Rect caret = CaretRectangle();
  if (caret.height <= 0) caret = ContentBox();
  return TextBoxMenu::Open(*this, TransformToAncestor(nullptr).MapBounds(caret));
}

void TextBox::OnMouse(const RoutedEventArgs& args, InputState& input) {
  if (OnBar(args, input)) return;
  if (args.event == &MouseLeftButtonDownEvent) {
    Focus();
    const auto& mouse = static_cast<const MouseButtonEventArgs&>(args);
    Editor().PressAt(Mouse::GetPosition(this), mouse.clickCount,
                     Keyboard::IsKeyDown(Key::LeftShift) || Keyboard::IsKeyDown(Key::RightShift));
    input.Capture(this);
    args.handled = true;
  } else if (args.event == &MouseMoveEvent && input.Captured() == this) {
    Editor().DragTo(Mouse::GetPosition(this));
    args.handled = true;
  } else if (args.event == &MouseLeftButtonUpEvent && input.Captured() == this) {
    input.Capture(nullptr);
    args.handled = true;
  } else if (args.event == &MouseWheelEvent && Get<bool>(AcceptsReturnProperty) && IsFocused()) {
    // Without the focus the wheel belongs to what lies around: on a canvas full of boxes it zooms.
    const bool sideways = Keyboard::IsKeyDown(Key::LeftShift) || Keyboard::IsKeyDown(Key::RightShift);
    const float distance =
        -static_cast<const MouseWheelEventArgs&>(args).wheelRotation * WheelLines * Editor().Layout()->LineHeight();
    const Point from = Editor().ScrollOffset();
    Editor().ScrollTo(sideways ? Point{from.x + distance, from.y} : Point{from.x, from.y + distance});
    // A text that is at its end must not send the wheel on, where it would zoom.
    const Rect content = ContentBox();
    const TextSize size = Editor().Layout()->Size();
    args.handled = sideways ? size.width > content.width : size.height > content.height;
  }
}

void TextBox::OnRoutedEvent(const RoutedEventArgs& args) {
  Control::OnRoutedEvent(args);
  // The box may lose the focus because it was disabled.
  if (args.event == &LostFocusEvent) {
    Editor().EndSession();
    Editor().ScrollTo({});
  }
  InputState* input = InputState::Current();
  if (!input || !IsEnabled()) return;
  if (args.event == &GotFocusEvent) {
    Editor().BeginSession();
    if (input->IsKeyDown(Key::Tab) && !Get<bool>(AcceptsReturnProperty)) SelectAll();
  } else if (args.event == &KeyDownEvent && IsFocused()) {
    if (OnKey(static_cast<const KeyEventArgs&>(args).key)) args.handled = true;
  } else if (args.event == &TextInputEvent && IsFocused()) {
    if (Editor().HandleText(static_cast<const TextCompositionEventArgs&>(args).text)) args.handled = true;
  } else if (args.event == &PreviewMouseRightButtonDownEvent || args.event == &MouseRightButtonDownEvent ||
             args.event == &MouseRightButtonUpEvent) {
    OnRightButton(args);
  } else if (args.event == &MouseLeftButtonDownEvent || args.event == &MouseMoveEvent ||
             args.event == &MouseLeftButtonUpEvent || args.event == &MouseWheelEvent ||
             args.event == &MouseLeaveEvent) {
    OnMouse(args, *input);
  }
}

} // namespace Toolkit
