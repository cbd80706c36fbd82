#pragma once

#include "document/DocumentLosses.h"

#include <functional>
#include <vector>

namespace Tesselor {

struct CommandLineOptions;

/// The save that the command line asks for: nobody sees a window, so that everything that the save costs the file goes
/// to the log and the standard error stream, and how it went becomes the exit code.
class UnattendedSave {
public:
  /// What whoever started the run learns.
  enum ExitCode { Written = 0, NotWritten = 1, WrittenWithLosses = 2 };

  explicit UnattendedSave(const CommandLineOptions& options) : options(options) {}

  /// Tells the losses, and saves by `save`, which says whether the file was written, unless losses forbid that.
  ExitCode Run(const std::vector<DocumentLoss>& losses, const std::function<bool()>& save) const;

private:
  const CommandLineOptions& options;
};

} // namespace Tesselor
