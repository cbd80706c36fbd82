#pragma once

#include "graph/Graph.h"

namespace Tesselor {

/// A change of many nodes or connections as one: while it lives, lists and pins may still hold what has left, and the
/// order and numbers of children, link types and stacking are those of before; the end of the outermost one brings all
/// of that up to date, once per pin and node, and takes everything that left from the panel in one pass.
class StructureChange {
public:
  explicit StructureChange(Graph& graph) : graph(graph) { graph.BeginChange(); }
  ~StructureChange() { graph.EndChange(); }
  StructureChange(const StructureChange&) = delete;
  StructureChange& operator=(const StructureChange&) = delete;

private:
  Graph& graph;
};

} // namespace Tesselor
