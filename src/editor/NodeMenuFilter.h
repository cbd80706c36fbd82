#pragma once

#include "workspace/NodePinBlueprint.h"

#include <cstdint>
#include <string>

namespace Tesselor {

/// Where the connection that was dropped beside a pin had started.
enum class DroppedPinSide : uint8_t { None = 0, Input = 1, Output = 2 };

/// What the nodes menu offers: types whose title holds a text, and types that fit the pin of a dropped connection.
struct NodeMenuFilter {
  /// Upper-case; empty means no text filter.
  std::string searchText;
  DroppedPinSide pinSide = DroppedPinSide::None;
  /// The record of the pin at the end of the connection. Not owned, may be null.
  const NodePinBlueprint* pinBlueprint = nullptr;

  bool IsDefault() const { return *this == NodeMenuFilter(); }
  friend bool operator==(const NodeMenuFilter&, const NodeMenuFilter&) = default;
};

} // namespace Tesselor
