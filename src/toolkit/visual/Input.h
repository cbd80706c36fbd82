#pragma once

#include "toolkit/visual/InputEvents.h"
#include "toolkit/visual/UIElement.h"

#include <bitset>
#include <string>

namespace Toolkit {

/// Where raw input enters the tree: the display feeds it, hit testing and routing do the rest. One per root; the
/// current one serves `Mouse` and `Keyboard`.
class InputState {
public:
  explicit InputState(UIElement& root);
  ~InputState();
  InputState(const InputState&) = delete;
  InputState& operator=(const InputState&) = delete;
  static InputState* Current();

  // Raw input, positions in the root's coordinates. Each returns true if a handler took it.
  bool MouseMove(Point position);
  bool MouseDown(MouseButton button, Point position, uint32_t clickCount);
  bool MouseUp(MouseButton button, Point position);
  bool MouseWheel(Point position, float notches);
  /// The mouse is no longer over the window. Whoever has captured it goes on to be told of its moves.
  void MouseLeave();
  bool KeyDown(Key key, bool isRepeat = false);
  bool KeyUp(Key key);
  bool TextInput(std::string_view text);
  /// What an input method composes, in UTF-8, with the caret's byte offset in it. It goes to the focused element.
  void Composition(std::string_view text, size_t caret);
  /// The window lost the system's focus: keys and buttons count as released.
  void ReleaseAll();

  Point MousePosition() const { return mousePosition; }
  bool IsKeyDown(Key key) const { return keys[static_cast<size_t>(key)]; }
  MouseButtonState ButtonState(MouseButton button) const { return buttons[static_cast<size_t>(button)]; }
  UIElement* Focused() const { return focused.Get(); }
  UIElement* Hovered() const { return hovered.Get(); }
  UIElement* Captured() const { return captured.Get(); }
  /// The name of the cursor to show: that which `UIElement::QueryCursorEvent` finds, or else that of the element that
  /// has the mouse, or of the nearest one around it that names one. Empty if there is none.
  std::string Cursor();
  /// The topmost element at a point of the root's coordinates, whatever has the mouse; null if there is none.
  UIElement* ElementAt(Point rootPoint) const { return root.HitTest(rootPoint); }
  /// All mouse input goes to `element` until it is released with null. Who had it before is told that it is lost.
  void Capture(UIElement* element);
  /// Null takes the focus away.
  bool SetFocus(UIElement* element) { return SetFocus(element, FocusCause::Other); }
  /// Takes the focus from an element that is done with it to the nearest one around it that can have it. Tab goes on
  /// from where the focus was.
  void HandFocusOn(UIElement& from);
  /// Moves the focus to the next element that can take it, in tab order; backwards if `forward` is false.
  bool MoveFocus(bool forward);
  /// As the Tab key does: backwards while Shift is held.
  bool MoveFocusByTab();
  /// Keeps Tab within an element while it is in the tree, as a box does that wants an answer first. Null ends it.
  void SetTabScope(UIElement* element) { tabScope = WeakPtr<UIElement>(element); }
  UIElement* TabScope() const { return tabScope.Get(); }
  /// Where the focused element takes text, in the root's coordinates; without an extent if it takes none.
  Rect CaretRectangle() const;
  /// The element under the mouse may have changed: after layout.
  void UpdateHover();
  void ElementGone(UIElement& element);
  /// Something was hidden, disabled or made unfit for the focus: takes the focus and the mouse from an element that
  /// must not have them any more.
  void LeaveUnreachable();

private:
  enum class FocusCause : uint8_t { Keyboard, Other };
  bool SetFocus(UIElement* element, FocusCause cause);
  bool ChangeButton(MouseButton button, MouseButtonState state, Point position, uint32_t clickCount);
  void FillMouse(MouseEventArgs& args) const;
  UIElement* Target(Point position) const;
  void SetHovered(UIElement* element);
  bool Route(const RoutedEvent& preview, const RoutedEvent& bubbling, RoutedEventArgs& args, UIElement& target);

  UIElement& root;
  InputState* outer;
  Point mousePosition{-1, -1};
  MouseButtonState buttons[3] = {};
  std::bitset<static_cast<size_t>(Key::Count)> keys;
  WeakPtr<UIElement> focused, hovered, captured, tabScope;
  /// What handed the focus on to the element that has it.
  WeakPtr<UIElement> tabOrigin;
};

class Mouse {
public:
  /// The mouse in the coordinates of `relativeTo`, or of the root if that is null.
  static Point GetPosition(const UIElement* relativeTo);
};

class Keyboard {
public:
  static bool IsKeyDown(Key key);
  static UIElement* GetFocused();
};

} // namespace Toolkit
