#include "platform/Clipboard.h"

#include "platform/LogFile.h"
#include "toolkit/visual/Clipboard.h"

#include <optional>

namespace Tesselor {

void Clipboard::SetText(const std::string& text) {
  if (!Toolkit::Clipboard::IsOpen())
    LogFile::Write("Unable to open the clipboard");
  else if (!Toolkit::Clipboard::SetText(text.c_str()))
    LogFile::Write("Unable to set clipboard data");
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
