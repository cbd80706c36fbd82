#pragma once

#include "toolkit/visual/FrameworkElement.h"

#include <functional>
#include <optional>

namespace Toolkit {

class PopupLayer;
struct KeyEventArgs;

/// How a popup takes part in input.
enum class PopupKind : uint8_t {
  /// A press or the wheel elsewhere closes it and goes no further; so do Escape and a change of the window's size.
  Light,
  /// Takes all of the window's input until it is closed by code.
  Modal,
  /// Takes none: what lies below it is hit.
  Passive,
};

enum class PopupPlacement : uint8_t {
  /// Below the anchor, or above it where there is more room.
  Below,
  /// To the right of the anchor, or to its left.
  Beside,
  /// Over the whole window.
  Cover,
};

/// An element shown above a window's content, on the window's `PopupLayer`. It inherits from its owner, and routed
/// events go on to the owner; mouse input is kept inside. While it is open it keeps its owner alive, and it closes when
/// the owner leaves the tree.
class Popup : public FrameworkElement {
  TOOLKIT_TYPE(Popup)
public:
  Popup(UIElement& owner, UIElement& content, PopupKind kind, PopupPlacement placement);
  ~Popup() override;

  UIElement& Owner() const { return *owner; }
  UIElement& Content() const { return *content; }
  PopupKind Kind() const { return kind; }
  UIElement* UIParent() const override { return owner.Get(); }
  size_t VisualChildCount() const override { return content->VisualParent() == this ? 1 : 0; }
  UIElement* VisualChild(size_t) const override { return content.Get(); }

  bool IsOpen() const { return layer != nullptr; }
  void Close();
  /// What it stands next to, in the window's coordinates: the owner's box as it is shown unless `anchor` is set.
  Rect Anchor() const;
  /// True once the mouse was pressed inside or has moved since the popup opened: until then, a release of the button
  /// that opened the popup must not choose anything.
  bool TakesRelease() const { return takesRelease; }

  // Set before the popup is opened.
  std::optional<Rect> anchor;
  /// In pixels.
  float minWidth = 0;
  /// What behind the popup goes on taking the mouse, as the bar of an open menu does.
  UIElement* mouseGoesTo = nullptr;
  /// Hears keys before the focused element does, whichever that is; true if it took the key. Escape closes a light
  /// popup that does not take it.
  std::function<bool(const KeyEventArgs&)> keyPressed;
  /// Swallows typed text while it is open.
  bool takesText = false;
  /// Called when the popup has closed, for whatever reason.
  std::function<void()> closed;

protected:
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  bool HitTestSelf(Point) const override { return kind == PopupKind::Modal; }
  void OnRoutedEvent(const RoutedEventArgs& args) override;

private:
  friend class PopupLayer;
  void OnOwnerUnloaded(Object* sender, const RoutedEventArgs& args);

  Ptr<UIElement> owner;
  Ptr<UIElement> content;
  PopupKind kind;
  PopupPlacement placement;
  PopupLayer* layer = nullptr;
  Rect placedAt;
  Point mouseAtOpening;
  bool takesRelease = false;
};

} // namespace Toolkit
