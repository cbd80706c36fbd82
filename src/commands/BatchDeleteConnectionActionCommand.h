#pragma once

#include "graph/NodeBundle.h"
#include "values/IActionCommand.h"

namespace Tesselor {

/// Cuts connections.
class BatchDeleteConnectionActionCommand : public IActionCommand {
public:
  /// The graph outlives the history.
  BatchDeleteConnectionActionCommand(Graph& graph, std::vector<Toolkit::Ptr<Connection>> connections)
      : bundle(graph, std::move(connections)) {}
  void Do() override { bundle.TakeOut(); }
  void Undo() override { bundle.PutBack(); }
  StepDescription Description() const override { return {"Cut", "cut of", bundle.Name()}; }

private:
  ConnectionBundle bundle;
};

} // namespace Tesselor
