#pragma once

#include "nodes/ContentNode.h"

#include <cstddef>
#include <vector>

namespace Tesselor {

class GenericContentNode;

/// Whether a node belongs to a selection, of which an empty one stands for all nodes.
bool IsPartOf(const NodeSet& selection, const ContentNode& node);

/// Goes over the nodes that hang on an output pin, in order. Pass-through nodes leave no trace: what is behind them
/// stands in their place, and a node that several of them lead to comes several times. A loop, however long a chain of
/// such nodes is.
class ChildWalk {
public:
  /// Goes through what is part of `selection` only. While the walk is behind a pass-through node, that stands in
  /// `open`, so that a ring ends: one that stands there already is passed over. If `repeats` is given it counts down
  /// how often a pass-through node may be gone through again: several ways to one, and from there to another, double
  /// what comes each time.
  ChildWalk(const NodePinData& pin, const NodeSet& selection, NodeSet& open, size_t* repeats = nullptr);
  ~ChildWalk();
  ChildWalk(const ChildWalk&) = delete;
  ChildWalk& operator=(const ChildWalk&) = delete;

  /// Null at the end.
  ContentNode* Next();
  /// The pass-through nodes that lead from the pin to what came last, outermost first.
  std::vector<const ContentNode*> Links() const;

private:
  struct Level {
    /// The pass-through node that owns the pin; null for the pin at which the walk began.
    const ContentNode* link;
    const NodePinData* pin;
    size_t connection = 0;
    /// Which output pin of the link it is.
    size_t output = 0;
  };
  void LeavePin();
  bool MayEnter(const ContentNode& link);

  const NodeSet& selection;
  NodeSet& open;
  size_t* repeats;
  NodeSet entered;
  std::vector<Level> levels;
};

/// All nodes that hang on an output pin.
std::vector<ContentNode*> ChildrenOf(const NodePinData& pin);

/// The one node behind a pin that takes no more, pass-through nodes skipped: of each only the first connection counts.
/// Null if nothing but pass-through nodes is there.
ContentNode* FirstChildOf(const NodePinData& pin);

/// The first generic node behind a pin that the schema doesn't know; null if there is none. Takes time linear in the
/// pass-through nodes there.
GenericContentNode* FirstGenericChildOf(const NodePinData& pin);

} // namespace Tesselor
