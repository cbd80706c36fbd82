#pragma once

#include "toolkit/base/Diagnostics.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace TestSupport {

/// Keeps what the toolkit warns of. What no test has taken by the end of its life fails the test.
class ToolkitWarnings {
public:
  ToolkitWarnings() {
    former = Toolkit::SetLogHandler(
        [](const char* file, uint32_t line, Toolkit::LogLevel level, const char* channel, const char* message) {
          if (level < Toolkit::LogLevel::Warning) return;
          Kept().push_back({std::string(file) + " " + channel, std::to_string(line) + ": " + message});
        });
  }
  ~ToolkitWarnings() {
    Toolkit::SetLogHandler(former);
    for (const auto& [place, text] : Kept()) ADD_FAILURE() << "unexpected warning: " << place << ":" << text;
    Kept().clear();
  }
  ToolkitWarnings(const ToolkitWarnings&) = delete;
  ToolkitWarnings& operator=(const ToolkitWarnings&) = delete;

  /// "<line>: <message>" of each warning since the last call.
  std::vector<std::string> Take() {
    std::vector<std::string> texts;
    for (auto& kept : Kept()) texts.push_back(std::move(kept.second));
    Kept().clear();
    return texts;
  }

private:
  /// A handler is a plain function, so what it keeps is shared by all.
  static std::vector<std::pair<std::string, std::string>>& Kept() {
    static std::vector<std::pair<std::string, std::string>> kept;
    return kept;
  }
  Toolkit::LogHandler former;
};

} // namespace TestSupport
