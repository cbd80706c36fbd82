#include "platform/MessageBoxes.h"

#include "platform/LogFile.h"
#include "toolkit/application/MessageBox.h"

#include <utility>

namespace Tesselor {

using Toolkit::MessageBox;
using Toolkit::MessageBoxButton;
using Toolkit::MessageBoxImage;

void ShowError(std::string text, std::string caption) {
  MessageBox::Show(std::move(text), std::move(caption), MessageBoxButton::OK, MessageBoxImage::Error);
}

void ShowWarning(std::string text, std::string caption) {
  MessageBox::Show(std::move(text), std::move(caption), MessageBoxButton::OK, MessageBoxImage::Warning);
}

void ReportError(std::string_view logLine, std::string text, std::string caption) {
  LogFile::Write(logLine);
  ShowError(std::move(text), std::move(caption));
}

} // namespace Tesselor
