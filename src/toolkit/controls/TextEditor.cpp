#include "toolkit/controls/TextEditor.h"

#include "toolkit/text/TextBoundaries.h"
#include "toolkit/visual/Input.h"

#include <algorithm>
#include <string>

namespace Toolkit {

std::shared_ptr<const TextLayout> TextEditor::Layout() const {
  TextLayoutOptions options;
  options.wrapping = box.Get<TextWrapping>(TextBox::TextWrappingProperty);
  if (options.wrapping == TextWrapping::Wrap) {
    const Thickness padding = box.Get<Thickness>(Control::PaddingProperty);
    const Thickness border = box.Get<Thickness>(Control::BorderThicknessProperty);
    options.maxWidth = std::max(0.0f, box.ActualWidth() - padding.Horizontal() - border.Horizontal());
  }
  return TextCache::Instance().Layout(box.GetText(), TextElement::StyleOf(box), options);
}

void TextEditor::Select(size_t start, size_t end) {
  const size_t length = box.GetText().size();
  anchor = std::min(start, length);
  caret = std::min(end, length);
  box.RaiseEvent(RoutedEventArgs(TextBox::SelectionChangedEvent, &box));
  box.InvalidateVisual();
}

void TextEditor::TextReplaced() {
  const size_t length = box.GetText().size();
  caret = std::min(caret, length);
  anchor = std::min(anchor, length);
}

void TextEditor::Erase(size_t start, size_t end) {
  std::string text(box.GetText());
  text.erase(start, end - start);
  caret = anchor = start;
  box.SetText(text);
}

void TextEditor::Insert(std::string_view inserted) {
  std::string text(box.GetText());
  const size_t start = SelectionStart();
  text.replace(start, SelectionEnd() - start, inserted);
  const int32_t limit = box.Get<int32_t>(TextBox::MaxLengthProperty);
  if (limit > 0 && text.size() > static_cast<size_t>(limit)) return;
  // The caret moves before the text does, so that a handler of the change that sets the text finds it in place.
  caret = anchor = start + inserted.size();
  box.SetText(text);
  TextReplaced();
}

void TextEditor::MoveTo(size_t index, bool extend) { Select(extend ? anchor : index, index); }

bool TextEditor::HandleText(std::string_view text) {
  if (box.Get<bool>(TextBox::IsReadOnlyProperty) || text.empty()) return false;
  if (static_cast<unsigned char>(text[0]) < 0x20 || text[0] == 0x7F) return false;
  Insert(text);
  return true;
}

bool TextEditor::HandleKey(Key key) {
  const bool shift = Keyboard::IsKeyDown(Key::LeftShift) || Keyboard::IsKeyDown(Key::RightShift);
  const bool ctrl = Keyboard::IsKeyDown(Key::LeftCtrl) || Keyboard::IsKeyDown(Key::RightCtrl);
  const bool readOnly = box.Get<bool>(TextBox::IsReadOnlyProperty);
  const std::string_view text = box.GetText();
  const bool selected = caret != anchor;
  switch (key) {
  case Key::Left:
    if (selected && !shift)
      MoveTo(SelectionStart(), false);
    else
      MoveTo(ctrl ? PreviousWord(text, caret) : PreviousGrapheme(text, caret), shift);
    return true;
  case Key::Right:
    if (selected && !shift)
      MoveTo(SelectionEnd(), false);
    else
      MoveTo(ctrl ? NextWord(text, caret) : NextGrapheme(text, caret), shift);
    return true;
  case Key::Home: MoveTo(ctrl ? 0 : Layout()->LineStart(caret), shift); return true;
  case Key::End: MoveTo(ctrl ? text.size() : Layout()->LineEnd(caret), shift); return true;
  case Key::Up:
  case Key::Down: {
    const auto layout = Layout();
    const CaretGeometry at = layout->CaretPosition(caret);
    const float y = key == Key::Up ? at.y - at.height * 0.5f : at.y + at.height * 1.5f;
    if (y < 0 || y > layout->Size().height) return false;
    MoveTo(layout->HitTest(at.x, y), shift);
    return true;
  }
  case Key::Back:
    if (readOnly) return false;
    if (selected)
      Erase(SelectionStart(), SelectionEnd());
    else if (caret > 0)
      Erase(ctrl ? PreviousWord(text, caret) : PreviousGrapheme(text, caret), caret);
    return true;
  case Key::Delete:
    if (readOnly) return false;
    if (selected)
      Erase(SelectionStart(), SelectionEnd());
    else if (caret < text.size())
      Erase(caret, ctrl ? NextWord(text, caret) : NextGrapheme(text, caret));
    return true;
  case Key::Return:
    if (readOnly || !box.Get<bool>(TextBox::AcceptsReturnProperty)) return false;
    Insert("\n");
    return true;
  case Key::A:
    if (!ctrl) return false;
    Select(0, text.size());
    return true;
  default: return false;
  }
}

size_t TextEditor::IndexAt(Point point) const {
  const Thickness padding = box.Get<Thickness>(Control::PaddingProperty);
  const Thickness border = box.Get<Thickness>(Control::BorderThicknessProperty);
  return Layout()->HitTest(point.x - padding.left - border.left, point.y - padding.top - border.top);
}

void TextEditor::PressAt(Point point, uint32_t clickCount, bool extend) {
  const size_t index = IndexAt(point);
  if (clickCount == 2) {
    const TextRange word = WordAt(box.GetText(), index);
    Select(word.start, word.end);
  } else if (clickCount >= 3) {
    Select(0, box.GetText().size());
  } else {
    MoveTo(index, extend);
  }
}

void TextEditor::DragTo(Point point) { MoveTo(IndexAt(point), true); }

} // namespace Toolkit
