#include "commands/CreateConnectionActionCommand.h"

#include "graph/Graph.h"
#include "graph/StructureChange.h"
#include "nodes/NodeNames.h"

namespace Tesselor {

CreateConnectionActionCommand::CreateConnectionActionCommand(Graph& graph, NodePinData& a, NodePinData& b)
    : graph(graph), connection(Toolkit::MakePtr<Connection>(a, b)) {
  order.Note(*connection->GetOutputPin());
  order.Note(*connection->GetInputPin());
}

void CreateConnectionActionCommand::Do() { graph.Attach(*connection); }

void CreateConnectionActionCommand::Undo() {
  const StructureChange change(graph);
  graph.Detach(*connection);
  graph.RestoreOrder(order);
}

StepDescription CreateConnectionActionCommand::Description() const {
  return {"Connected", "connection of",
          NameOf(*connection->GetOutputNode()) + " to " + NameOf(*connection->GetInputNode())};
}

} // namespace Tesselor
