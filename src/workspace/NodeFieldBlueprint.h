#pragma once

#include "platform/JsonFile.h"

#include <string>

namespace Tesselor {

/// One field of a node type, as the schema declares it.
struct NodeFieldBlueprint {
  std::string Id;
  /// The name of a field type, case-sensitive.
  std::string Type;
  /// The schema's options as a copy of their own, of whatever JSON type they are; null if the schema gives none.
  JsonPtr Options;
};

} // namespace Tesselor
