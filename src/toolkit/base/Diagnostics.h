#pragma once

#include <cstdint>
#include <string_view>

namespace Toolkit {

enum class LogLevel : uint32_t { Trace = 0, Debug = 1, Info = 2, Warning = 3, Error = 4 };

/// Receives what the toolkit reports. `file` and `line` name the toolkit's source or the document's position;
/// `channel` names the toolkit area ("Binding", "Markup", "MessageBox").
using LogHandler = void (*)(const char* file, uint32_t line, LogLevel level, const char* channel, const char* message);
using ErrorHandler = void (*)(const char* file, uint32_t line, const char* message, bool fatal);
/// Returns true to go on after a failed assertion.
using AssertHandler = bool (*)(const char* file, uint32_t line, const char* expression);

/// Each call replaces the handler and returns the former one; null removes it. Without a handler, warnings and worse
/// go to the standard error stream.
LogHandler SetLogHandler(LogHandler handler);
ErrorHandler SetErrorHandler(ErrorHandler handler);
AssertHandler SetAssertHandler(AssertHandler handler);

void Log(const char* file, uint32_t line, LogLevel level, const char* channel, std::string_view message);
void ReportError(const char* file, uint32_t line, std::string_view message, bool fatal);
/// True if execution may go on.
bool ReportAssert(const char* file, uint32_t line, const char* expression);

} // namespace Toolkit

#define TOOLKIT_WARN(channel, message)                                                                                 \
  ::Toolkit::Log(__FILE__, __LINE__, ::Toolkit::LogLevel::Warning, channel, message)
#define TOOLKIT_ASSERT(expression)                                                                                     \
  do {                                                                                                                 \
    if (!(expression) && !::Toolkit::ReportAssert(__FILE__, __LINE__, #expression)) __builtin_trap();                  \
  } while (false)
