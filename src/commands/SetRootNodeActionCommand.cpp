#include "commands/SetRootNodeActionCommand.h"

#include "graph/Graph.h"
#include "nodes/NodeNames.h"

namespace Tesselor {

SetRootNodeActionCommand::SetRootNodeActionCommand(Graph& graph, ContentNode& newRoot)
    : graph(graph), oldRoot(graph.Root()), newRoot(&newRoot), oldRootTitle(oldRoot ? oldRoot->Title() : ""),
      newRootTitle(newRoot.Title()) {}

void SetRootNodeActionCommand::Do() { graph.SetRootNode(newRoot.Get()); }

void SetRootNodeActionCommand::Undo() {
  graph.SetRootNode(oldRoot.Get());
  newRoot->SetTitle(newRootTitle);
  if (oldRoot) oldRoot->SetTitle(oldRootTitle);
}

StepDescription SetRootNodeActionCommand::Description() const { return {"Set as root:", "new root", NameOf(*newRoot)}; }

} // namespace Tesselor
