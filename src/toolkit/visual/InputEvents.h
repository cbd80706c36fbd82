#pragma once

#include "toolkit/base/Geometry.h"
#include "toolkit/base/RoutedEvent.h"

#include <string>

namespace Toolkit {

enum class MouseButton : uint8_t { Left, Middle, Right };
enum class MouseButtonState : uint8_t { Released, Pressed };

enum class Key : uint8_t {
  None,
  Back,
  Tab,
  Return,
  Escape,
  Space,
  PageUp,
  PageDown,
  End,
  Home,
  Left,
  Up,
  Right,
  Down,
  Insert,
  Delete,
  D0,
  D1,
  D2,
  D3,
  D4,
  D5,
  D6,
  D7,
  D8,
  D9,
  A,
  B,
  C,
  D,
  E,
  F,
  G,
  H,
  I,
  J,
  K,
  L,
  M,
  N,
  O,
  P,
  Q,
  R,
  S,
  T,
  U,
  V,
  W,
  X,
  Y,
  Z,
  F1,
  F2,
  F3,
  F4,
  F5,
  F6,
  F7,
  F8,
  F9,
  F10,
  F11,
  F12,
  LeftShift,
  RightShift,
  LeftCtrl,
  RightCtrl,
  LeftAlt,
  RightAlt,
  LeftWin,
  RightWin,
  Apps,
  Plus,
  Minus,
  Count
};

struct MouseEventArgs : RoutedEventArgs {
  using RoutedEventArgs::RoutedEventArgs;
  /// In the root's coordinates.
  Point position;
  MouseButtonState leftButton = MouseButtonState::Released;
  MouseButtonState middleButton = MouseButtonState::Released;
  MouseButtonState rightButton = MouseButtonState::Released;
};

struct MouseButtonEventArgs : MouseEventArgs {
  using MouseEventArgs::MouseEventArgs;
  MouseButton changedButton = MouseButton::Left;
  MouseButtonState buttonState = MouseButtonState::Released;
  /// 1 for a single click, 2 for a double click and so on.
  uint32_t clickCount = 1;
};

struct MouseWheelEventArgs : MouseEventArgs {
  using MouseEventArgs::MouseEventArgs;
  /// Notches; positive away from the user.
  float wheelRotation = 0;
};

/// Asks those around the element that the mouse is over which cursor to show, from the outermost inwards. Who wants one
/// whatever lies inside names it and marks the event as handled; else the elements' own `Cursor` counts.
struct QueryCursorEventArgs : RoutedEventArgs {
  using RoutedEventArgs::RoutedEventArgs;
  mutable std::string cursor;
};

struct KeyEventArgs : RoutedEventArgs {
  using RoutedEventArgs::RoutedEventArgs;
  Key key = Key::None;
  bool isRepeat = false;
};

struct TextCompositionEventArgs : RoutedEventArgs {
  using RoutedEventArgs::RoutedEventArgs;
  /// UTF-8.
  std::string text;
};

} // namespace Toolkit
