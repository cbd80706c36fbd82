#pragma once

namespace Toolkit {
class UIElement;
}

namespace Tesselor {

class BaseNode;

/// Gives the focus to the first text box at or below an element that takes it.
bool FocusFirstTextBox(Toolkit::UIElement& element);
/// Gives the focus to the first control at or below an element that takes it.
bool FocusFirstControl(Toolkit::UIElement& element);
/// Begins to edit a node: its first field, the text of a comment, the title of a group. False if it has none.
bool FocusFirstField(BaseNode& node);

} // namespace Tesselor
