#pragma once

#include "toolkit/base/Dispatcher.h"
#include "toolkit/controls/ScrollThumb.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/controls/TextEditHistory.h"
#include "toolkit/text/TextBoundaries.h"
#include "toolkit/text/TextCache.h"
#include "toolkit/visual/InputEvents.h"

#include <memory>

namespace Toolkit {

/// The editing of one text box: caret, selection, scrolling, clipboard, undo, and what keys and the mouse do. Made when
/// the box is first edited or scrolled, owned by it. Indices are byte offsets into the box's text.
class TextEditor {
public:
  /// What chords do and the box's menu offers.
  enum class Command : uint8_t { Undo, Redo, Cut, Copy, Paste, SelectAll };

  explicit TextEditor(TextBox& box) : box(box) {}
  ~TextEditor();
  TextEditor(const TextEditor&) = delete;
  TextEditor& operator=(const TextEditor&) = delete;

  size_t Caret() const { return caret; }
  size_t SelectionStart() const { return caret < anchor ? caret : anchor; }
  size_t SelectionEnd() const { return caret < anchor ? anchor : caret; }
  void Select(size_t start, size_t end);
  /// The text changed: caret and selection stay inside it. A change from outside ends the undo.
  void TextReplaced();

  /// True if the key was taken.
  bool HandleKey(Key key);
  bool HandleText(std::string_view text);
  /// False if the command would change and copy nothing.
  bool CanDo(Command command) const;
  void Do(Command command);
  /// Positions are the box's own. A second click selects a word, a third one the paragraph; a drag goes on by those.
  void PressAt(Point point, uint32_t clickCount, bool extend);
  /// While the mouse rests outside of the text, the drag scrolls and goes on by itself.
  void DragTo(Point point);
  void EndDrag();
  /// The caret goes to the point unless that is in the selection.
  void PressRightAt(Point point);
  /// A session begins when the focus comes and ends when it goes.
  void BeginSession();
  void EndSession();
  const std::optional<std::string>& UndoneText() const { return undoneText; }
  void SetComposition(std::string_view text, size_t caretInside);

  /// The text as shown, with what an input method composes.
  std::shared_ptr<const TextLayout> Layout() const;
  std::string_view Composition() const { return composition; }
  CaretGeometry CaretGeometryNow() const;
  bool IsCaretShown() const { return isCaretShown; }

  /// How far the text is scrolled; kept within what can be scrolled.
  Point ScrollOffset() const { return scroll; }
  /// True if it moved.
  bool ScrollTo(Point offset);
  /// The vertical scroll bar as it is now.
  ScrollThumb& Bar();
  /// What the text takes, the caret at its end included.
  Size Extent() const;

private:
  enum class Unit : uint8_t { Character, Word, Paragraph };

  TextEditHistory::Selection Selected() const { return {anchor, caret}; }
  /// Replaces a range of the text as one step of the undo; the caret goes behind it.
  void Replace(size_t start, size_t end, std::string_view text, bool isTyped);
  void KeepInside();
  void EraseTo(size_t index);
  void Restore(std::optional<TextEditHistory::State> state);
  void MoveTo(size_t index, bool extend);
  bool MoveVertically(float distance, bool extend);
  bool HandleChord(Key key, bool shift);
  void Copy() const;
  void Cut();
  void Paste();
  size_t IndexAt(Point point) const;
  /// How far the point lies outside of the part that shows the text.
  Point Beyond(Point point) const;
  void StretchTo(Point point);
  void GoOnDragging();
  TextRange UnitAt(size_t index) const;
  void ShowCaret();
  void RestartBlinking();
  void Blink();
  bool IsReadOnly() const { return box.Get<bool>(TextBox::IsReadOnlyProperty); }
  bool AcceptsReturn() const { return box.Get<bool>(TextBox::AcceptsReturnProperty); }

  TextBox& box;
  size_t caret = 0, anchor = 0;
  /// Where a move up or down aims at; negative when the next one takes the caret's place.
  float wishedX = -1;
  Point scroll;
  ScrollThumb bar;
  TextEditHistory history;
  /// When the last session ended.
  std::optional<std::string> undoneText;
  /// The text is being changed from here.
  bool isEditing = false;
  Unit dragUnit = Unit::Character;
  TextRange dragOrigin;
  Dispatcher::TimerId dragTimer = 0;
  std::string composition;
  size_t compositionCaret = 0;
  bool isCaretShown = false;
  Dispatcher::TimerId blinkTimer = 0;
  double lastAction = 0;
};

} // namespace Toolkit
