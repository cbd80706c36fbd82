#pragma once

#include "toolkit/controls/MenuSurface.h"

#include <optional>

namespace Toolkit {

/// A menu that opens at the mouse. It belongs to the element whose `ContextMenu` it is, and opens by a right click on
/// that element or by its own `IsOpen`.
class ContextMenu : public MenuSurface {
  TOOLKIT_TYPE(ContextMenu)
public:
  static inline const DependencyProperty* IsOpenProperty = nullptr;
  ContextMenu() = default;
  bool IsOpen() const { return Get<bool>(IsOpenProperty); }
  void SetIsOpen(bool open) { SetValue(IsOpenProperty, open); }

  /// Opens the menu of the element, or else of the nearest one around it that has one. False if there is none.
  static bool OpenFor(Object* source);
  /// What the menu opens next to, in the window's coordinates; the mouse unless it is set before.
  std::optional<Rect> anchor;

protected:
  void OnPropertyChanged(const PropertyChange& change) override;
  void OnClosed() override;
};

} // namespace Toolkit
