#pragma once

#include "toolkit/base/Color.h"
#include "workspace/NodeFieldBlueprint.h"
#include "workspace/NodePinBlueprint.h"
#include "workspace/OrderedTable.h"

#include <memory>
#include <string>
#include <vector>

namespace Tesselor {

/// Where the children under one key of an asset go.
struct NodePinTarget {
  /// The node id, or the id of a variant family, of the children.
  std::string node;
  /// The id of the pin that they hang on.
  std::string pin;
};

/// One node type: its look, its pins, its fields, and how it maps onto the keys of an asset. Owned by the
/// `NodeDictionary`, unchanged once it is registered there.
struct NodeBlueprint {
  std::string title;
  std::string Description;
  Toolkit::Color color;
  std::vector<std::unique_ptr<NodePinBlueprint>> inputs;
  std::vector<std::unique_ptr<NodeFieldBlueprint>> content;
  std::vector<std::unique_ptr<NodePinBlueprint>> outputs;
  /// Every key of the schema, in the order in which they are written.
  std::vector<std::string> schemaKeys;
  /// The keys that a field or a constant stands for.
  OrderedTable<std::string> schema;
  /// The keys that child nodes stand for.
  OrderedTable<NodePinTarget> pinSchema;
  /// The id of the field that tells one node of the type from another; empty if the schema names none.
  std::string namingField;
  bool isPassthrough = false;
  bool isReference = false;
  /// Of a reference node only: the key of its identifying value here and in the referenced file, and the key of the
  /// object with the parameters' values.
  std::string fileRefKey;
  std::string fileRefValue;
  std::string modifyKey;
};

} // namespace Tesselor
