#pragma once

#include <optional>
#include <string>

namespace Tesselor {

/// The desktop's clipboard as the display layer offers it.
class ClipboardBackend {
public:
  virtual ~ClipboardBackend() = default;

  /// Replaces what the clipboard holds, by an empty text too. False if the desktop refuses.
  virtual bool SetText(const std::string& text) = 0;
  /// Nothing if the clipboard holds no text.
  virtual std::optional<std::string> GetText() = 0;
};

/// Plain text on the desktop's clipboard. A failure shows in the log alone, one line for each.
class Clipboard {
public:
  /// Text goes up to its first zero byte, as the clipboard's text has no length of its own.
  static void SetText(const std::string& text);
  /// The empty string if there is no text.
  static std::string GetText();

  /// Installs the backend, which stays the caller's and must outlive its installation; returns the former one. Null,
  /// as at the start, means that the clipboard can't be opened.
  static ClipboardBackend* SetBackend(ClipboardBackend* backend);
};

} // namespace Tesselor
