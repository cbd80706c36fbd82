#pragma once

#include "toolkit/visual/Clipboard.h"

#include <optional>
#include <string>

namespace TestSupport {

/// A clipboard that no other program sees.
struct MemoryClipboard : Toolkit::ClipboardBackend {
  bool SetText(const std::string& value) override {
    if (!isBusy) text = value;
    return !isBusy;
  }
  std::optional<std::string> GetText() override { return text; }
  std::optional<std::string> text;
  /// Refuses what it is given.
  bool isBusy = false;
};

} // namespace TestSupport
