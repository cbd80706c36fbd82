#pragma once

#include "graph/NodeBundle.h"
#include "values/IActionCommand.h"

namespace Tesselor {

/// Deletes nodes of any kind, with their connections.
class BatchDeleteNodeActionCommand : public IActionCommand {
public:
  /// The graph outlives the history.
  BatchDeleteNodeActionCommand(Graph& graph, std::vector<Toolkit::Ptr<BaseNode>> nodes)
      : bundle(graph, std::move(nodes)) {}
  void Do() override { bundle.TakeOut(); }
  void Undo() override { bundle.PutBack(); }
  StepDescription Description() const override { return {"Deleted", "deletion of", bundle.Name()}; }
  size_t HeldBytes() const override { return bundle.HeldBytes(); }

private:
  NodeBundle bundle;
};

} // namespace Tesselor
