#pragma once

#include "toolkit/base/Geometry.h"

namespace Toolkit {

class TextBox;

/// The context menu of a text box that has none of its own. It is made anew each time it opens.
class TextBoxMenu {
public:
  /// Opens the menu next to `anchor`, which is in the window's coordinates. False if the box is in no window.
  static bool Open(TextBox& box, const Rect& anchor);
};

} // namespace Toolkit
