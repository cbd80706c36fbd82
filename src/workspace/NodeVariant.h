#pragma once

#include "workspace/OrderedTable.h"

#include <string>

namespace Tesselor {

/// A family of node types, one of which is selected by the value of a field in the asset.
struct NodeVariant {
  /// The key in the asset's object whose text selects the node type.
  std::string VariantFieldName;
  /// Field value to node id. The empty key stands for children without a match.
  OrderedTable<std::string> Variants;
};

} // namespace Tesselor
