#pragma once

#include "platform/JsonFile.h"
#include "workspace/FieldSize.h"

#include <memory>
#include <string>

namespace Tesselor {

/// One field of a node type, as the schema declares it.
struct NodeFieldBlueprint {
  std::string Id;
  /// The name of a field type, case-sensitive.
  std::string Type;
  /// The schema's options as a copy of their own, of whatever JSON type they are; null if the schema gives none.
  JsonPtr Options;
  /// Shared by all fields of this entry; they may outlive it.
  std::shared_ptr<FieldSize> size = std::make_shared<FieldSize>();
};

} // namespace Tesselor
