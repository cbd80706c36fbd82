#include "toolkit/visual/Clipboard.h"

#include <utility>

namespace Toolkit {

namespace {
ClipboardBackend* currentBackend = nullptr;
} // namespace

bool Clipboard::IsOpen() { return currentBackend != nullptr; }
bool Clipboard::SetText(const std::string& text) { return currentBackend && currentBackend->SetText(text); }

std::optional<std::string> Clipboard::GetText() { return currentBackend ? currentBackend->GetText() : std::nullopt; }

ClipboardBackend* Clipboard::SetBackend(ClipboardBackend* backend) { return std::exchange(currentBackend, backend); }

} // namespace Toolkit
