#pragma once

#include "nodes/ContentNode.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct cJSON;

namespace Tesselor {

class NodeDictionary;

/// What stands in the objects of a document, as the schemas tell and the nodes that were read from it.
class NodeShapes {
public:
  /// What a member of a node's object holds.
  enum class Content {
    /// A value, or JSON that no schema describes: the editor's own keys mean nothing in it.
    Data,
    /// One node.
    Node,
    /// An array of nodes.
    Nodes,
    /// An object with a node for each key.
    Map,
  };

  explicit NodeShapes(const NodeDictionary& dictionary) : dictionary(dictionary) {}
  /// `nodes` are those of the document, with the UUIDs under which they are written.
  NodeShapes(const NodeDictionary& dictionary, const std::vector<Toolkit::Ptr<ContentNode>>& nodes);

  /// The type of a node by its written object; null if that names none, as a generic node's.
  const NodeBlueprint* BlueprintOf(const cJSON* written) const;
  /// What a load takes a member of such a node for.
  static Content ContentOf(const NodeBlueprint* blueprint, const cJSON* member);
  /// Where in the array under the key `member` of its node's object each element came from that is written there, as
  /// paths such as `[2]` or, behind a pass-through node, `[1].Children[0]`; an empty one for what came from elsewhere.
  /// Nothing at all if that isn't known.
  std::vector<std::string> OriginsOf(const cJSON* written, const cJSON* member) const;

private:
  const NodeDictionary& dictionary;
  /// Null for a UUID of several nodes.
  std::unordered_map<std::string_view, const ContentNode*> byUuid;
};

} // namespace Tesselor
