#include "toolkit/controls/TextBox.h"

#include "toolkit/controls/TextEditor.h"
#include "toolkit/render/Brush.h"
#include "toolkit/visual/Input.h"

#include <algorithm>

namespace Toolkit {

const EnumDescription& DescribeEnum(ScrollBarVisibility) {
  static const EnumDescription description{{{"Disabled", 0}, {"Auto", 1}, {"Hidden", 2}, {"Visible", 3}}};
  return description;
}

const RoutedEvent TextBox::TextChangedEvent("TextChanged", RoutingStrategy::Bubble);
const RoutedEvent TextBox::SelectionChangedEvent("SelectionChanged", RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(TextBox, Control, "TextBox")
void TextBox::Describe(TypeBuilder<TextBox>& type) {
  using P = DependencyProperty;
  TextProperty =
      type.Property<SharedString>("Text", SharedString(), P::BindsTwoWay | P::AffectsMeasure | P::AffectsRender);
  TextWrappingProperty = type.Property<TextWrapping>("TextWrapping", TextWrapping::NoWrap, P::AffectsMeasure);
  TextAlignmentProperty = type.Property<TextAlignment>("TextAlignment", TextAlignment::Left, P::AffectsRender);
  AcceptsReturnProperty = type.Property<bool>("AcceptsReturn");
  IsReadOnlyProperty = type.Property<bool>("IsReadOnly", false, P::AffectsRender);
  MaxLengthProperty = type.Property<int32_t>("MaxLength");
  PlaceholderProperty = type.Property<SharedString>("Placeholder", SharedString(), P::AffectsRender);
  CaretBrushProperty = type.Property<Brush*>("CaretBrush");
  SelectionBrushProperty = type.Property<Brush*>("SelectionBrush");
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

Size TextBox::MeasureOverride(Size available) {
  const Thickness chrome = Chrome();
  const bool sized = !IsAuto(GetWidth()) && !IsAuto(GetHeight());
  // Both lengths given: the text does not matter.
  if (sized) return {};
  const TextStyle style = TextElement::StyleOf(*this);
  TextLayoutOptions options;
  options.wrapping = Get<TextWrapping>(TextWrappingProperty);
  if (options.wrapping == TextWrapping::Wrap) options.maxWidth = std::max(0.0f, available.width - chrome.Horizontal());
  const std::string_view text = GetText();
  TextSize size;
  if (!IsAuto(GetWidth()) && options.wrapping == TextWrapping::NoWrap && !Get<bool>(AcceptsReturnProperty)) {
    // One line of a given width: any text is as high as any other.
    size = TextCache::Instance().MeasureText(" ", style);
  } else {
    size = TextCache::Instance().MeasureText(text.empty() ? std::string_view(" ") : text, style, options);
  }
  return {size.width + chrome.Horizontal(), size.height + chrome.Vertical()};
}

Size TextBox::ArrangeOverride(Size finalSize) { return finalSize; }

void TextBox::OnRoutedEvent(const RoutedEventArgs& args) {
  Control::OnRoutedEvent(args);
  InputState* input = InputState::Current();
  if (!input || !IsEnabled()) return;
  if (args.event == &MouseLeftButtonDownEvent) {
    Focus();
    const auto& mouse = static_cast<const MouseButtonEventArgs&>(args);
    Editor().PressAt(Mouse::GetPosition(this), mouse.clickCount,
                     Keyboard::IsKeyDown(Key::LeftShift) || Keyboard::IsKeyDown(Key::RightShift));
    input->Capture(this);
    args.handled = true;
  } else if (args.event == &MouseMoveEvent && input->Captured() == this) {
    Editor().DragTo(Mouse::GetPosition(this));
    args.handled = true;
  } else if (args.event == &MouseLeftButtonUpEvent && input->Captured() == this) {
    input->Capture(nullptr);
    args.handled = true;
  } else if (args.event == &KeyDownEvent && IsFocused()) {
    if (Editor().HandleKey(static_cast<const KeyEventArgs&>(args).key)) args.handled = true;
  } else if (args.event == &TextInputEvent && IsFocused()) {
    if (Editor().HandleText(static_cast<const TextCompositionEventArgs&>(args).text)) args.handled = true;
  }
}

} // namespace Toolkit
