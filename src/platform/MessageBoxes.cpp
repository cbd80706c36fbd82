#include "platform/MessageBoxes.h"

#include "platform/LogFile.h"
#include "toolkit/application/MessageBox.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace Tesselor {

using Toolkit::MessageBox;
using Toolkit::MessageBoxButton;
using Toolkit::MessageBoxImage;

void ShowError(std::string text, std::string caption) {
  // Where no window asks anybody, standard error is what is read. What only calls for attention is told there as what a
  // save changes.
  if (!MessageBox::HasPresenter() && caption != AttentionCaption) {
    std::string line = caption + ": " + text;
    std::replace(line.begin(), line.end(), '\n', ' ');
    std::fprintf(stderr, "%s\n", line.c_str());
  }
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
