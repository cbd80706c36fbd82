#pragma once

#include <optional>
#include <string>

namespace Toolkit {

/// The desktop's clipboard as the display offers it.
class ClipboardBackend {
public:
  virtual ~ClipboardBackend() = default;

  /// Replaces what the clipboard holds, by an empty text too. False if the desktop refuses.
  virtual bool SetText(const std::string& text) = 0;
  /// Nothing if the clipboard holds no text.
  virtual std::optional<std::string> GetText() = 0;
};

/// Plain UTF-8 text on the desktop's clipboard.
class Clipboard {
public:
  /// False while there is no desktop whose clipboard could be used.
  static bool IsOpen();
  /// False if it is not open, or if the desktop refuses.
  static bool SetText(const std::string& text);
  /// Nothing if it is not open or holds no text.
  static std::optional<std::string> GetText();

  /// Installs the backend, which stays the caller's and must outlive its installation; returns the former one. Null,
  /// as at the start, closes the clipboard.
  static ClipboardBackend* SetBackend(ClipboardBackend* backend);
};

} // namespace Toolkit
