#pragma once

#include "nodes/BaseNode.h"

namespace Tesselor {

class Graph;

/// How presses and clicks on nodes select them. Content nodes and frames don't mix by clicking.
class ClickSelection {
public:
  /// The graph outlives this.
  explicit ClickSelection(Graph& graph) : graph(graph) {}
  /// The button went down on the node: selects it, alone or beside the others if `adds`, unless it is selected.
  void Press(BaseNode& node, bool adds);
  /// The button went up again without a drag: narrows the selection to a content node, or takes it out if `adds`.
  /// What the press has just selected stays.
  void Click(BaseNode& node, bool adds);

private:
  void SelectAlone(BaseNode& node);
  void Add(BaseNode& node);

  Graph& graph;
  Toolkit::Ptr<BaseNode> justSelected;
};

} // namespace Tesselor
