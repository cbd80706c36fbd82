#pragma once

#include "platform/JsonFile.h"

#include <string>

namespace Tesselor {

/// An asset file, read and parsed once: its JSON, or what to tell the user.
struct AssetFile {
  static AssetFile Read(const std::string& path);

  explicit operator bool() const { return json != nullptr; }

  JsonPtr json;
  /// The text and the caption of a box; empty if there is nothing wrong.
  std::string error;
  std::string caption;
};

} // namespace Tesselor
