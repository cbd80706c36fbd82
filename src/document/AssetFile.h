#pragma once

#include "document/LongNumbers.h"
#include "platform/JsonFile.h"

#include <string>
#include <vector>

namespace Tesselor {

/// An asset file, read and parsed once: its JSON, or what to tell the user. One that is not a single object is refused:
/// a save would drop the rest.
struct AssetFile {
  static AssetFile Read(const std::string& path);

  explicit operator bool() const { return json != nullptr; }

  JsonPtr json;
  /// Of its text, in which alone their digits stand.
  std::vector<LongNumber> longNumbers;
  /// The text and the caption of a box; empty if there is nothing wrong.
  std::string error;
  std::string caption;
};

} // namespace Tesselor
