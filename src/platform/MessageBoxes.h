#pragma once

#include <string>
#include <string_view>

namespace Tesselor {

/// The caption of a box about a value or a node.
inline constexpr char AttentionCaption[] = "Attention!";

/// Boxes with one OK button, which come up after the call has returned.
void ShowError(std::string text, std::string caption);
void ShowWarning(std::string text, std::string caption);

/// Writes a line to the log, and then shows the error.
void ReportError(std::string_view logLine, std::string text, std::string caption);

} // namespace Tesselor
