#include "toolkit/base/Diagnostics.h"

#include <cstdio>
#include <string>

namespace Toolkit {

namespace {
LogHandler logHandler = nullptr;
ErrorHandler errorHandler = nullptr;
AssertHandler assertHandler = nullptr;

template <class Handler> Handler Replace(Handler& slot, Handler handler) {
  Handler former = slot;
  slot = handler;
  return former;
}
} // namespace

LogHandler SetLogHandler(LogHandler handler) { return Replace(logHandler, handler); }
ErrorHandler SetErrorHandler(ErrorHandler handler) { return Replace(errorHandler, handler); }
AssertHandler SetAssertHandler(AssertHandler handler) { return Replace(assertHandler, handler); }

void Log(const char* file, uint32_t line, LogLevel level, const char* channel, std::string_view message) {
  const std::string text(message);
  if (logHandler) {
    logHandler(file, line, level, channel, text.c_str());
  } else if (level >= LogLevel::Warning) {
    std::fprintf(stderr, "%s:%u: %s: %s\n", file, line, channel, text.c_str());
  }
}

void ReportError(const char* file, uint32_t line, std::string_view message, bool fatal) {
  const std::string text(message);
  if (errorHandler) {
    errorHandler(file, line, text.c_str(), fatal);
  } else {
    std::fprintf(stderr, "%s:%u: %s\n", file, line, text.c_str());
  }
}

bool ReportAssert(const char* file, uint32_t line, const char* expression) {
  if (assertHandler) return assertHandler(file, line, expression);
  std::fprintf(stderr, "%s:%u: assertion failed: %s\n", file, line, expression);
  return false;
}

} // namespace Toolkit
