#pragma once

#include "graph/NodeBundle.h"
#include "values/IActionCommand.h"

namespace Tesselor {

/// A paste. Made after its nodes were pasted, so it is pushed without being run.
class BatchPasteNodeActionCommand : public IActionCommand {
public:
  /// The graph outlives the history. All nodes that came, with those below the tops.
  BatchPasteNodeActionCommand(Graph& graph, std::vector<Toolkit::Ptr<BaseNode>> nodes)
      : bundle(graph, std::move(nodes)) {}
  void Do() override { bundle.PutBack(); }
  void Undo() override { bundle.TakeOut(); }
  StepDescription Description() const override { return {"Pasted", "paste of", bundle.Name()}; }
  size_t HeldBytes() const override { return bundle.HeldBytes(); }

private:
  NodeBundle bundle;
};

} // namespace Tesselor
