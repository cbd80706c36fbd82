#include "platform/CommandLineOptions.h"

namespace Tesselor {

CommandLineOptions& CommandLineOptions::Instance() {
  static CommandLineOptions instance;
  return instance;
}

void ReadCommandLineOptions(Arguments arguments, CommandLineOptions& options) {
  constexpr std::string_view saveTo = "--save-to=";
  constexpr std::string_view exitAfterSave = "--exit-after-save";
  constexpr std::string_view strict = "--strict";
  constexpr std::string_view allowLoss = "--allow-loss";
  constexpr std::string_view workspace = "--workspace=";
  for (const std::string_view argument : arguments) {
    if (argument.starts_with(saveTo)) options.saveTo = argument.substr(saveTo.size());
    if (argument == exitAfterSave) options.exitAfterSave = true;
    if (argument == strict) options.strict = true;
    if (argument == allowLoss) options.allowLoss = true;
    if (argument.starts_with(workspace)) options.workspaceOverride = argument.substr(workspace.size());
  }
}

std::vector<std::string> FindLogDirectories(Arguments arguments) {
  std::vector<std::string> directories;
  for (const std::string_view argument : arguments)
    if (auto directory = CutOption(argument, "--logs-dir=")) directories.push_back(*std::move(directory));
  return directories;
}

std::optional<std::string> FindAssetToLoad(Arguments arguments) {
  for (const std::string_view argument : arguments)
    if (auto path = CutOption(argument, "--load-asset=")) return path;
  return std::nullopt;
}

std::optional<std::string> CutOption(std::string_view argument, std::string_view option) {
  const size_t position = argument.find(option);
  if (position == std::string_view::npos) return std::nullopt;
  return std::string(argument).erase(position, option.size());
}

} // namespace Tesselor
