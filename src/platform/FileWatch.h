#pragma once

#include "platform/DescriptorWatch.h"

#include <filesystem>
#include <functional>
#include <optional>

namespace Tesselor {

/// Tells when a file may have another content, or when another file has taken its name. Without a way to watch its
/// directory it never tells anything.
class FileWatch {
public:
  /// `touched` is called on the loop, also for what this process itself does to the file.
  FileWatch(const std::string& path, std::function<void()> touched);

private:
  std::optional<DescriptorWatch> watch;
};

} // namespace Tesselor
