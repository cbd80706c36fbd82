#pragma once

#include "graph/ChildOrder.h"

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

struct cJSON;

namespace Tesselor {

class Graph;
class NodeReader;
struct NodeEntry;

/// What a paste gathers while its nodes are read: the nodes themselves, and what their "$Copied" members tell (see
/// `CopyDetails`). One serves all objects of one paste, whose JSON outlives it.
class PasteDetails {
public:
  /// All content nodes that came, in order.
  const std::vector<Toolkit::Ptr<ContentNode>>& Nodes() const { return nodes; }
  void Add(ContentNode& node) { nodes.emplace_back(&node); }

  /// What tells the node of this object from others of the paste: its label, else the UUID that it has in a file. Empty
  /// if it has neither. A pasted node never takes over a UUID, since the node that has it may be there as well.
  static std::string LabelOf(const NodeEntry& entry);
  /// Of nodes with one label the first counts.
  void SetLabel(ContentNode& node, const std::string& label);
  /// Null if there is none.
  ContentNode* Find(const std::string& label) const;
  /// Gives the node, which stands on its panel, what its member tells of it, and remembers the rest. Null is no member.
  void Apply(ContentNode& node, const cJSON* copied);

  // Once all objects are read:
  /// Makes the pass-through nodes that have no object of their own.
  void MakeLinks(NodeReader& reader);
  /// Where a member tells what hangs on a pin, puts that in place of what followed from the text.
  void ReplaceConnections(Graph& graph);
  /// Lets the pins that a member tells of keep that order. For the change in which they were connected.
  void KeepOrder(Graph& graph) const;

private:
  std::vector<Toolkit::Ptr<ContentNode>> nodes;
  std::unordered_map<std::string, ContentNode*> labels;
  /// Nodes with the object that tells what hangs on their pins.
  std::vector<std::pair<ContentNode*, const cJSON*>> connections;
  std::vector<const cJSON*> links;
  std::vector<NodePinData*> replacedPins;
};

} // namespace Tesselor
