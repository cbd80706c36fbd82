#pragma once

#include "graph/NodeBundle.h"
#include "graph/Selection.h"
#include "values/IActionCommand.h"

namespace Tesselor {

/// A paste. Made after its nodes were pasted, so it is pushed without being run. What was selected before it is
/// selected again after an undo, and what it selected after a redo, unless the user has selected something else
/// meanwhile.
class BatchPasteNodeActionCommand : public IActionCommand {
public:
  /// The graph outlives the history. All nodes that came, with those below the tops; `selectedBefore` may be gone
  /// later.
  BatchPasteNodeActionCommand(Graph& graph, std::vector<Toolkit::Ptr<BaseNode>> nodes,
                              const Selection::Nodes& selectedBefore);
  void Do() override;
  void Undo() override;
  StepDescription Description() const override { return {"Pasted", "paste of", bundle.Name()}; }
  size_t HeldBytes() const override { return bundle.HeldBytes(); }

private:
  using WeakNodes = std::vector<Toolkit::WeakPtr<BaseNode>>;
  /// Those that the graph holds now.
  Selection::Nodes Present(const WeakNodes& nodes) const;
  void Select(const WeakNodes& nodes);

  Graph& graph;
  NodeBundle bundle;
  WeakNodes selectedBefore, selectedAfter;
};

} // namespace Tesselor
