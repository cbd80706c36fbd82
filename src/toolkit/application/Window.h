#pragma once

#include "toolkit/controls/ContentControl.h"

#include <functional>
#include <string>

namespace Toolkit {

/// The root of a visual tree that a display shows. The launcher's loop ends when its window is closed.
class Window : public ContentControl {
  TOOLKIT_TYPE(Window)
public:
  static inline const DependencyProperty* TitleProperty = nullptr;

  Window() = default;
  std::string_view GetTitle() const { return GetString(TitleProperty); }
  void SetTitle(std::string_view title) { SetValue(TitleProperty, title); }
  /// Ends the window; the display takes it down in its next turn.
  void Close() { closed = true; }
  bool IsClosed() const { return closed; }
  /// Lays the window out in `size`; called by the display when it opens and when its size changes.
  void SetClientSize(Size size);

private:
  bool closed = false;
};

} // namespace Toolkit
