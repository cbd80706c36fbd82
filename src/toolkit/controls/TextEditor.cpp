#include "toolkit/controls/TextEditor.h"

#include "toolkit/text/DecodedText.h"
#include "toolkit/visual/Clipboard.h"
#include "toolkit/visual/Input.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace Toolkit {

namespace {

/// Milliseconds that the caret is shown and hidden in turn; after the second time without an action it stays.
constexpr double BlinkTime = 530, BlinkLimit = 20000;
/// Text that is scrolled to keeps this much in sight beside the caret.
constexpr float CaretRoom = 2;
/// Milliseconds between the steps of a drag that goes on by itself, and the lines that a step scrolls at most.
constexpr double DragTurn = 40;
constexpr float DragLines = 3;

bool IsDown(Key left, Key right) { return Keyboard::IsKeyDown(left) || Keyboard::IsKeyDown(right); }

/// Text from elsewhere as the box may hold it: valid, lines ended by a line feed or, in a box of one line, joined.
std::string Cleaned(std::string_view text, bool keepsLines) {
  std::string result;
  result.reserve(text.size());
  if (!keepsLines)
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.remove_suffix(1);
  for (size_t i = 0; i < text.size();) {
    const DecodedCharacter decoded = DecodeCharacter(text, i);
    if (text[i] == '\r' || text[i] == '\n') {
      if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
      result += keepsLines ? '\n' : ' ';
    } else if (decoded.character == ReplacementCharacter) {
      result += "\xEF\xBF\xBD";
    } else {
      result += text.substr(i, decoded.length);
    }
    i += text[i] == '\n' || text[i] == '\r' ? 1 : decoded.length;
  }
  return result;
}

size_t CountCharacters(std::string_view text) {
  return static_cast<size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

/// The first `limit` characters.
std::string_view FirstCharacters(std::string_view text, size_t limit) {
  size_t end = 0;
  while (limit-- > 0 && end < text.size()) end += DecodeCharacter(text, end).length;
  return text.substr(0, end);
}

} // namespace

TextEditor::~TextEditor() {
  EndDrag();
  if (blinkTimer) Dispatcher::Current().Cancel(blinkTimer);
}

std::shared_ptr<const TextLayout> TextEditor::Layout() const {
  if (composition.empty()) return box.LayoutOf(box.GetText());
  std::string shown(box.GetText());
  shown.insert(caret, composition);
  return box.LayoutOf(shown);
}

CaretGeometry TextEditor::CaretGeometryNow() const {
  return Layout()->CaretPosition(caret + (composition.empty() ? 0 : compositionCaret));
}

void TextEditor::Select(size_t start, size_t end) {
  const size_t length = box.GetText().size();
  anchor = std::min(start, length);
  caret = std::min(end, length);
  history.EndTyping();
  wishedX = -1;
  ShowCaret();
  box.RaiseEvent(RoutedEventArgs(TextBox::SelectionChangedEvent, &box));
}

void TextEditor::TextReplaced() {
  if (!isEditing) history.Clear();
  KeepInside();
}

void TextEditor::KeepInside() {
  const size_t length = box.GetText().size();
  caret = std::min(caret, length);
  anchor = std::min(anchor, length);
  wishedX = -1;
  ScrollTo(scroll);
}

void TextEditor::Replace(size_t start, size_t end, std::string_view inserted, bool isTyped) {
  Ptr<TextBox> alive(&box);
  const std::string before(box.GetText());
  const TextEditHistory::Selection selectionBefore = Selected();
  if (const int32_t limit = box.Get<int32_t>(TextBox::MaxLengthProperty); limit > 0) {
    const size_t kept = CountCharacters(before) - CountCharacters(std::string_view(before).substr(start, end - start));
    inserted = FirstCharacters(inserted, static_cast<size_t>(limit) > kept ? static_cast<size_t>(limit) - kept : 0);
  }
  std::string text = before;
  text.replace(start, end - start, inserted);
  // The caret moves before the text does, so that a handler of the change that sets the text finds it in place.
  const size_t behind = start + inserted.size();
  caret = anchor = behind;
  const bool isOutermost = !isEditing;
  isEditing = true;
  box.SetText(text);
  if (!isOutermost) return;
  isEditing = false;
  // A handler that took something out of the text, the typed letter perhaps, leaves the caret before the same rest.
  if (const size_t length = box.GetText().size(); length != text.size() && caret == std::min(behind, length))
    caret = anchor = length - std::min(length, text.size() - behind);
  KeepInside();
  history.Add(before, selectionBefore, box.GetText(), Selected(), isTyped);
  ShowCaret();
  box.RaiseEvent(RoutedEventArgs(TextBox::SelectionChangedEvent, &box));
}

void TextEditor::EraseTo(size_t index) {
  if (caret != anchor)
    Replace(SelectionStart(), SelectionEnd(), {}, false);
  else if (index != caret)
    Replace(std::min(index, caret), std::max(index, caret), {}, false);
}

void TextEditor::Restore(std::optional<TextEditHistory::State> state) {
  if (!state) return;
  Ptr<TextBox> alive(&box);
  anchor = state->selection.anchor;
  caret = state->selection.caret;
  isEditing = true;
  box.SetText(state->text);
  isEditing = false;
  KeepInside();
  ShowCaret();
  box.RaiseEvent(RoutedEventArgs(TextBox::SelectionChangedEvent, &box));
}

void TextEditor::MoveTo(size_t index, bool extend) { Select(extend ? anchor : index, index); }

bool TextEditor::MoveVertically(float distance, bool extend) {
  const auto layout = Layout();
  const CaretGeometry at = layout->CaretPosition(caret);
  const float x = wishedX >= 0 ? wishedX : at.x;
  const float height = layout->Size().height, middle = at.y + at.height * 0.5f;
  // Beyond the first and the last line the caret goes to the text's ends, if it is not there yet.
  if (middle + distance < 0 || middle + distance > height) {
    const size_t end = distance < 0 ? 0 : box.GetText().size();
    if (!AcceptsReturn() && layout->Lines().size() < 2) return false;
    if (end == caret) return false;
    MoveTo(end, extend);
  } else {
    MoveTo(layout->HitTest(x, middle + distance), extend);
  }
  wishedX = x;
  return true;
}

bool TextEditor::HandleText(std::string_view text) {
  if (IsReadOnly() || text.empty()) return false;
  if (static_cast<unsigned char>(text[0]) < 0x20 || text[0] == 0x7F) return false;
  composition.clear();
  Replace(SelectionStart(), SelectionEnd(), text, true);
  return true;
}

void TextEditor::Copy() const {
  if (caret == anchor) return;
  Clipboard::SetText(std::string(box.GetText().substr(SelectionStart(), SelectionEnd() - SelectionStart())));
}

void TextEditor::Cut() {
  Copy();
  if (!IsReadOnly()) EraseTo(caret);
}

void TextEditor::Paste() {
  if (IsReadOnly()) return;
  const std::optional<std::string> text = Clipboard::GetText();
  if (!text || text->empty()) return;
  Replace(SelectionStart(), SelectionEnd(), Cleaned(*text, AcceptsReturn()), false);
}

bool TextEditor::CanDo(Command command) const {
  switch (command) {
  case Command::Undo: return history.CanUndo();
  case Command::Redo: return history.CanRedo();
  case Command::Cut: return caret != anchor && !IsReadOnly();
  case Command::Copy: return caret != anchor;
  case Command::Paste: return !IsReadOnly() && !Clipboard::GetText().value_or("").empty();
  case Command::SelectAll: return !box.GetText().empty();
  }
  return false;
}

void TextEditor::Do(Command command) {
  switch (command) {
  case Command::Undo: return Restore(history.Undo(box.GetText()));
  case Command::Redo: return Restore(history.Redo(box.GetText()));
  case Command::Cut: return Cut();
  case Command::Copy: return Copy();
  case Command::Paste: return Paste();
  case Command::SelectAll: return Select(0, box.GetText().size());
  }
}

bool TextEditor::HandleChord(Key key, bool shift) {
  switch (key) {
  case Key::A: Do(Command::SelectAll); return true;
  case Key::C:
  case Key::Insert: Do(Command::Copy); return true;
  case Key::X: Do(Command::Cut); return true;
  case Key::V: Do(Command::Paste); return true;
  case Key::Z:
  case Key::Y: {
    // With nothing left of its own, the box leaves undo and redo to what lies around it.
    const Command command = shift || key == Key::Y ? Command::Redo : Command::Undo;
    if (!CanDo(command)) return false;
    Do(command);
    return true;
  }
  default: return false;
  }
}

bool TextEditor::HandleKey(Key key) {
  const bool shift = IsDown(Key::LeftShift, Key::RightShift);
  const bool ctrl = IsDown(Key::LeftCtrl, Key::RightCtrl);
  const std::string_view text = box.GetText();
  const bool selected = caret != anchor;
  if (ctrl && HandleChord(key, shift)) return true;
  switch (key) {
  case Key::Left:
    if (selected && !shift && !ctrl)
      MoveTo(SelectionStart(), false);
    else
      MoveTo(ctrl ? PreviousWord(text, caret) : PreviousGrapheme(text, caret), shift);
    return true;
  case Key::Right:
    if (selected && !shift && !ctrl)
      MoveTo(SelectionEnd(), false);
    else
      MoveTo(ctrl ? NextWord(text, caret) : NextGrapheme(text, caret), shift);
    return true;
  case Key::Home: MoveTo(ctrl ? 0 : Layout()->LineStart(caret), shift); return true;
  case Key::End: MoveTo(ctrl ? text.size() : Layout()->LineEnd(caret), shift); return true;
  case Key::Up: return MoveVertically(-Layout()->LineHeight(), shift);
  case Key::Down: return MoveVertically(Layout()->LineHeight(), shift);
  case Key::PageUp: return MoveVertically(-std::max(box.ContentBox().height, Layout()->LineHeight()), shift);
  case Key::PageDown: return MoveVertically(std::max(box.ContentBox().height, Layout()->LineHeight()), shift);
  case Key::Back:
    if (!IsReadOnly()) EraseTo(ctrl ? PreviousWord(text, caret) : PreviousGrapheme(text, caret));
    return true;
  case Key::Delete:
    if (shift)
      Cut();
    else if (!IsReadOnly())
      EraseTo(ctrl ? NextWord(text, caret) : NextGrapheme(text, caret));
    return true;
  case Key::Insert:
    if (shift) Paste();
    return shift;
  case Key::Return:
    // With Alt it is the window's.
    if (IsReadOnly() || !AcceptsReturn() || IsDown(Key::LeftAlt, Key::RightAlt)) return false;
    Replace(SelectionStart(), SelectionEnd(), "\n", false);
    return true;
  default: return false;
  }
}

size_t TextEditor::IndexAt(Point point) const {
  const Rect content = box.ContentBox();
  const Point origin = box.TextOrigin(*Layout());
  // What lies outside counts as the edge: text that is scrolled out of sight is not what the mouse points at.
  const float x = std::clamp(point.x, content.x, content.Right()), y = std::clamp(point.y, content.y, content.Bottom());
  return Layout()->HitTest(x - origin.x, y - origin.y);
}

TextRange TextEditor::UnitAt(size_t index) const {
  const std::string_view text = box.GetText();
  if (dragUnit == Unit::Word) return WordAt(text, index);
  if (dragUnit == Unit::Character) return {index, index};
  const size_t before = index > 0 ? text.rfind('\n', index - 1) : std::string_view::npos;
  const size_t behind = text.find('\n', index);
  return {before == std::string_view::npos ? 0 : before + 1, behind == std::string_view::npos ? text.size() : behind};
}

void TextEditor::PressAt(Point point, uint32_t clickCount, bool extend) {
  const size_t index = IndexAt(point);
  dragUnit = clickCount <= 1 ? Unit::Character : clickCount == 2 ? Unit::Word : Unit::Paragraph;
  if (extend && clickCount <= 1) {
    dragOrigin = {anchor, anchor};
    MoveTo(index, true);
    return;
  }
  dragOrigin = UnitAt(index);
  Select(dragOrigin.start, dragOrigin.end);
}

void TextEditor::PressRightAt(Point point) {
  const size_t index = IndexAt(point);
  if (index < SelectionStart() || index > SelectionEnd() || caret == anchor) Select(index, index);
}

Point TextEditor::Beyond(Point point) const {
  const Rect content = box.ContentBox();
  return {point.x - std::clamp(point.x, content.x, content.Right()),
          point.y - std::clamp(point.y, content.y, content.Bottom())};
}

void TextEditor::DragTo(Point point) {
  StretchTo(point);
  if (Beyond(point) == Point())
    EndDrag();
  else if (!dragTimer)
    dragTimer = Dispatcher::Current().StartTimer(DragTurn, [this] { GoOnDragging(); });
}

void TextEditor::EndDrag() {
  if (dragTimer) Dispatcher::Current().Cancel(dragTimer);
  dragTimer = 0;
}

void TextEditor::GoOnDragging() {
  dragTimer = 0;
  const InputState* input = InputState::Current();
  if (!input || input->Captured() != &box) return;
  Ptr<TextBox> alive(&box);
  const Point mouse = Mouse::GetPosition(&box), beyond = Beyond(mouse);
  // The farther the mouse is outside, the faster it goes.
  const float line = Layout()->LineHeight();
  const auto step = [line](float distance) {
    if (distance == 0) return 0.0f;
    return std::copysign(std::clamp(std::abs(distance), line * 0.5f, line * DragLines), distance);
  };
  ScrollTo({scroll.x + step(beyond.x), scroll.y + step(beyond.y)});
  DragTo(mouse);
}

void TextEditor::StretchTo(Point point) {
  const TextRange unit = UnitAt(IndexAt(point));
  if (unit.start < dragOrigin.start)
    Select(dragOrigin.end, unit.start);
  else
    Select(dragOrigin.start, std::max(unit.end, dragOrigin.end));
}

void TextEditor::BeginSession() {
  history.Clear();
  undoneText.reset();
  lastAction = Dispatcher::Current().Now();
  RestartBlinking();
}

void TextEditor::EndSession() {
  undoneText = history.Redone(box.GetText());
  history.Clear();
  composition.clear();
  EndDrag();
  if (blinkTimer) Dispatcher::Current().Cancel(blinkTimer);
  blinkTimer = 0;
  isCaretShown = false;
  box.InvalidateVisual();
}

void TextEditor::SetComposition(std::string_view text, size_t caretInside) {
  if (IsReadOnly()) return;
  // What is selected goes when the composition begins, as with a typed letter.
  if (!text.empty() && composition.empty() && caret != anchor) Replace(SelectionStart(), SelectionEnd(), {}, false);
  composition = text;
  compositionCaret = std::min(caretInside, composition.size());
  ShowCaret();
}

void TextEditor::ShowCaret() {
  if (const Rect content = box.ContentBox(); content.width > 0 && content.height > 0) {
    const CaretGeometry at = CaretGeometryNow();
    ScrollTo({std::clamp(scroll.x, std::min(at.x + CaretRoom - content.width, at.x), at.x),
              std::clamp(scroll.y, std::min(at.y + at.height - content.height, at.y), at.y)});
  }
  lastAction = Dispatcher::Current().Now();
  if (box.IsFocused()) {
    RestartBlinking();
    box.BringIntoView(box.CaretRectangle());
  }
  box.InvalidateVisual();
}

void TextEditor::RestartBlinking() {
  isCaretShown = true;
  if (blinkTimer) Dispatcher::Current().Cancel(blinkTimer);
  blinkTimer = Dispatcher::Current().StartTimer(BlinkTime, [this] { Blink(); });
  box.InvalidateVisual();
}

void TextEditor::Blink() {
  blinkTimer = 0;
  isCaretShown = !isCaretShown;
  box.InvalidateVisual();
  // An abandoned window comes to rest.
  if (isCaretShown && Dispatcher::Current().Now() - lastAction > BlinkLimit) return;
  blinkTimer = Dispatcher::Current().StartTimer(BlinkTime, [this] { Blink(); });
}

Size TextEditor::Extent() const {
  const TextSize size = Layout()->Size();
  return {size.width + CaretRoom, size.height};
}

ScrollThumb& TextEditor::Bar() {
  box.PlaceBar(bar, *Layout());
  return bar;
}

bool TextEditor::ScrollTo(Point offset) {
  const Rect content = box.ContentBox();
  const Size extent = Extent();
  const bool wraps = box.Get<TextWrapping>(TextBox::TextWrappingProperty) == TextWrapping::Wrap;
  offset.x = wraps ? 0 : std::clamp(offset.x, 0.0f, std::max(0.0f, extent.width - content.width));
  offset.y = std::clamp(offset.y, 0.0f, std::max(0.0f, extent.height - content.height));
  if (offset == scroll) return false;
  scroll = offset;
  box.InvalidateVisual();
  return true;
}

} // namespace Toolkit
