#pragma once

#include "graph/ChildOrder.h"
#include "graph/Connection.h"
#include "values/IActionCommand.h"

namespace Tesselor {

class Graph;

/// Connects two pins, which may be connected.
class CreateConnectionActionCommand : public IActionCommand {
public:
  /// The graph outlives the history.
  CreateConnectionActionCommand(Graph& graph, NodePinData& a, NodePinData& b);
  void Do() override;
  void Undo() override;
  StepDescription Description() const override;

private:
  Graph& graph;
  Toolkit::Ptr<Connection> connection;
  /// Without the connection: one more child brings its siblings into order as well.
  ChildOrder order;
};

} // namespace Tesselor
