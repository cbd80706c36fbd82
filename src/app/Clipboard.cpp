#include "app/Clipboard.h"

#include "app/LogFile.h"

#include <utility>

namespace Tesselor {

namespace {
ClipboardBackend* currentBackend = nullptr;
} // namespace

void Clipboard::SetText(const std::string& text) {
  if (!currentBackend) {
    LogFile::Write("Unable to open the clipboard");
    return;
  }
  if (!currentBackend->SetText(text.c_str())) LogFile::Write("Unable to set clipboard data");
}

std::string Clipboard::GetText() {
  if (!currentBackend) {
    LogFile::Write("Unable to open clipboard");
    return {};
  }
  const std::optional<std::string> text = currentBackend->GetText();
  if (!text) {
    LogFile::Write("Unable to get clipboard");
    return {};
  }
  return text->c_str();
}

ClipboardBackend* Clipboard::SetBackend(ClipboardBackend* backend) { return std::exchange(currentBackend, backend); }

} // namespace Tesselor
