#pragma once

#include <string>

namespace Tesselor {

/// Plain text on the desktop's clipboard. A failure shows in the log alone, one line for each.
class Clipboard {
public:
  /// Text goes up to its first zero byte, as the clipboard's text has no length of its own. False if it failed.
  static bool SetText(const std::string& text);
  /// The empty string if there is no text.
  static std::string GetText();
};

} // namespace Tesselor
