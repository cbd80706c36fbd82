#include "platform/Clipboard.h"

#include "platform/LogFile.h"
#include "toolkit/visual/Clipboard.h"

#include <optional>

namespace Tesselor {

bool Clipboard::SetText(const std::string& text) {
  const bool isOpen = Toolkit::Clipboard::IsOpen();
  if (isOpen && Toolkit::Clipboard::SetText(text.c_str())) return true;
  LogFile::Write(isOpen ? "Unable to set clipboard data" : "Unable to open the clipboard");
  return false;
}

std::string Clipboard::GetText() {
  if (!Toolkit::Clipboard::IsOpen()) {
    LogFile::Write("Unable to open clipboard");
    return {};
  }
  const std::optional<std::string> text = Toolkit::Clipboard::GetText();
  if (!text) {
    LogFile::Write("Unable to get clipboard");
    return {};
  }
  return text->c_str();
}

} // namespace Tesselor
