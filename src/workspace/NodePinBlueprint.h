#pragma once

#include "toolkit/base/Color.h"
#include "workspace/NodeFieldBlueprint.h"
#include "workspace/PinRoom.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Tesselor {

/// One pin of a node type. Pins keep pointers to their record, so it has one address for as long as its workspace
/// lives.
struct NodePinBlueprint {
  /// Unique within the node.
  std::string id;
  /// Two pins connect only if their types fit.
  std::string Type;
  Toolkit::Color color;
  /// The text beside the pin.
  std::string Label;
  /// The tooltip.
  std::string Description;
  /// Blank pin rows above this pin.
  int32_t SpacingAbove = 0;
  /// The pin takes several connections.
  bool Multiple = false;
  /// The children form a JSON object by key, not an array.
  bool IsMap = false;
  /// The fields on the pin's row.
  std::vector<std::unique_ptr<NodeFieldBlueprint>> fields;
  /// Of pins that show nothing but this record.
  mutable PinRoom room;
};

} // namespace Tesselor
