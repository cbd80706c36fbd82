#pragma once

#include "toolkit/controls/TextBox.h"
#include "toolkit/text/TextCache.h"
#include "toolkit/visual/InputEvents.h"

#include <memory>

namespace Toolkit {

/// The editing of one text box: caret, selection, and what keys and the mouse do to them. Made when the box is first
/// edited, owned by it.
class TextEditor {
public:
  explicit TextEditor(TextBox& box) : box(box) {}
  size_t Caret() const { return caret; }
  size_t SelectionStart() const { return caret < anchor ? caret : anchor; }
  size_t SelectionEnd() const { return caret < anchor ? anchor : caret; }
  void Select(size_t start, size_t end);
  /// The text changed from outside: caret and selection stay inside it.
  void TextReplaced();
  /// True if the key was taken.
  bool HandleKey(Key key);
  bool HandleText(std::string_view text);
  void PressAt(Point point, uint32_t clickCount, bool extend);
  void DragTo(Point point);
  std::shared_ptr<const TextLayout> Layout() const;

private:
  void Insert(std::string_view text);
  void Erase(size_t start, size_t end);
  void MoveTo(size_t index, bool extend);
  size_t IndexAt(Point point) const;

  TextBox& box;
  size_t caret = 0, anchor = 0;
};

} // namespace Toolkit
