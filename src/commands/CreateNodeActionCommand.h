#pragma once

#include "graph/NodeBundle.h"
#include "values/IActionCommand.h"

namespace Tesselor {

/// Puts a new node of any kind on the canvas.
class CreateNodeActionCommand : public IActionCommand {
public:
  /// The graph outlives the history. `place` is in panel coordinates.
  CreateNodeActionCommand(Graph& graph, BaseNode& node, Toolkit::Point place) : bundle(graph, node, place) {}
  void Do() override { bundle.PutBack(); }
  void Undo() override { bundle.TakeOut(); }
  StepDescription Description() const override { return {"Added", "addition of", bundle.Name()}; }
  size_t HeldBytes() const override { return bundle.HeldBytes(); }

private:
  NodeBundle bundle;
};

} // namespace Tesselor
