#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Tesselor {

/// What `main` receives, the program's own name included.
using Arguments = std::span<const char* const>;

/// What the command line asks of the document view. One process-wide record, written by `main` before the run starts
/// and only read afterwards.
struct CommandLineOptions {
  /// Where the asset is written after a successful load; empty if the option wasn't given.
  std::string saveTo;
  /// The menu name of a root that takes the place of the one a file names; empty if the option wasn't given.
  std::string workspaceOverride;
  bool exitAfterSave = false;
  /// Nothing is written if a save would lose something of the file.
  bool strict = false;
  /// What a save loses doesn't count for the exit code.
  bool allowLoss = false;

  static CommandLineOptions& Instance();
};

/// Reads "--save-to=", "--exit-after-save", "--workspace=", "--strict" and "--allow-loss" of all arguments into
/// `options`; of an option that is given twice the last one wins. Values are taken as they stand.
void ReadCommandLineOptions(Arguments arguments, CommandLineOptions& options);

/// The value of every "--logs-dir=" argument, in order. An empty result means that none was given.
std::vector<std::string> FindLogDirectories(Arguments arguments);

/// The value of the first "--load-asset=" argument.
std::optional<std::string> FindAssetToLoad(Arguments arguments);

/// The argument without the first occurrence of `option`, which may stand anywhere in it; nothing if it does not
/// occur.
std::optional<std::string> CutOption(std::string_view argument, std::string_view option);

} // namespace Tesselor
