#pragma once

#include "platform/LogFile.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace TestSupport {

/// Takes the place of the log file and keeps the text of every line.
class CapturedLog {
public:
  CapturedLog() {
    former = Tesselor::LogFile::SetSink([this](std::string_view text) { lines.emplace_back(text); });
  }
  ~CapturedLog() { Tesselor::LogFile::SetSink(std::move(former)); }
  CapturedLog(const CapturedLog&) = delete;
  CapturedLog& operator=(const CapturedLog&) = delete;

  bool Contains(std::string_view text) const { return std::find(lines.begin(), lines.end(), text) != lines.end(); }

  std::vector<std::string> lines;

private:
  Tesselor::LogFile::Sink former;
};

} // namespace TestSupport
