#pragma once

#include "toolkit/base/Color.h"
#include "workspace/NodeBlueprint.h"
#include "workspace/NodeVariant.h"
#include "workspace/OrderedTable.h"

#include <cjson/cJSON.h>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Toolkit {
template <class T> class Ptr;
}

namespace Tesselor {

class ContentNode;

/// The node types of one workspace, which owns it. Nodes and pins keep plain pointers to the blueprints: none is ever
/// replaced or removed. A new dictionary knows the built-in types `Generic` and `Link`.
class NodeDictionary {
public:
  NodeDictionary();

  /// Registers the node type that a schema file describes. A schema without a usable colour, id or title is ignored
  /// without a message; of two schemas with one id the first stays. Either sets `lacksSchemas`. The JSON is not kept.
  void AddSchema(const cJSON* schema);
  /// Appends to a category, which is created on first use.
  void AddToCategory(const std::string& category, const std::string& nodeId);
  /// Stores a family, in place of one with the same id.
  void AddVariant(const std::string& familyId, std::unique_ptr<NodeVariant> variant);

  /// Null if `id` is no family.
  const NodeVariant* FindVariant(std::string_view id) const;
  /// Null if there is no such node type.
  const NodeBlueprint* FindBlueprint(std::string_view id) const;
  /// Whether there is a node type or a family of that id.
  bool KnowsType(std::string_view id) const;
  /// Whether a family or a pin names a type that is none: the slip may be in the id of its schema.
  bool NamesUnknownTypes() const;

  /// Makes a node with its pins and fields. An unknown id gives a generic node and a message; null comes back only
  /// when a field of the schema can't be made.
  Toolkit::Ptr<ContentNode> CreateNode(const std::string& id, bool applyDefaults) const;

  /// All node types by id.
  OrderedTable<std::unique_ptr<NodeBlueprint>> blueprints;
  /// Category name to node ids.
  OrderedTable<std::vector<std::string>> categories;
  OrderedTable<std::unique_ptr<NodeVariant>> variants;
  /// Not all that the workspace's files mean to describe is here, so an unknown type may be one of it.
  bool lacksSchemas = false;
  /// Every id in order of registration; a repeated id stands here twice.
  std::vector<std::string> nodeIds;

private:
  void AddBuiltInTypes();
  // These return false for a schema that is not taken.
  bool TakeSchema(const cJSON* schema);
  bool Register(const std::string& id, std::unique_ptr<NodeBlueprint> blueprint);
  void ParsePins(const cJSON* entries, std::vector<std::unique_ptr<NodePinBlueprint>>& pins) const;
  Toolkit::Color ParseColor(const std::string& text) const;
};

} // namespace Tesselor
