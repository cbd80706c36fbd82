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

namespace {

/// Where no window asks anybody, standard error is what is read.
void Show(std::string text, std::string caption, MessageBoxImage image) {
  if (!MessageBox::HasPresenter()) {
    std::string line = caption + ": " + text + "\n";
    std::replace(line.begin(), line.end() - 1, '\n', ' ');
    std::fputs(line.c_str(), stderr);
  }
  MessageBox::Show(std::move(text), std::move(caption), MessageBoxButton::OK, image);
}

} // namespace

void ShowError(std::string text, std::string caption) {
  Show(std::move(text), std::move(caption), MessageBoxImage::Error);
}

void ShowWarning(std::string text, std::string caption) {
  Show(std::move(text), std::move(caption), MessageBoxImage::Warning);
}

void ReportError(std::string_view logLine, std::string text, std::string caption) {
  LogFile::Write(logLine);
  ShowError(std::move(text), std::move(caption));
}

} // namespace Tesselor
