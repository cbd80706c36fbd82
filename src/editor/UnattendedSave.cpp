#include "editor/UnattendedSave.h"

#include "platform/CommandLineOptions.h"
#include "platform/LogFile.h"

#include <cstdio>
#include <string>

namespace Tesselor {

namespace {

/// A file that loses more says so by a number.
constexpr size_t MostLines = 100;

void Tell(const std::string& line) {
  LogFile::Write(line);
  std::fputs((line + "\n").c_str(), stderr);
}

} // namespace

UnattendedSave::ExitCode UnattendedSave::Run(const std::vector<DocumentLoss>& losses,
                                             const std::function<bool()>& save) const {
  for (size_t i = 0; i < losses.size() && i < MostLines; ++i) Tell(losses[i].loss.Line());
  if (losses.size() > MostLines) Tell("... and " + std::to_string(losses.size() - MostLines) + " more");
  if (!losses.empty() && options.strict) {
    Tell("Nothing is written, since a save changes " + std::to_string(losses.size()) + " of the file's values.");
    return WrittenWithLosses;
  }
  if (!save()) return NotWritten;
  return losses.empty() || options.allowLoss ? Written : WrittenWithLosses;
}

} // namespace Tesselor
