#pragma once

#include "nodes/ContentNode.h"
#include "values/IActionCommand.h"

#include <string>

namespace Tesselor {

class Graph;

/// Makes another node the document's root, which changes the titles of both. Undo gives them back as they were.
class SetRootNodeActionCommand : public IActionCommand {
public:
  /// The graph outlives the history that the command is pushed to, and its present root becomes the old one.
  SetRootNodeActionCommand(Graph& graph, ContentNode& newRoot);
  void Do() override;
  void Undo() override;
  StepDescription Description() const override;

private:
  Graph& graph;
  /// Null if there was none.
  Toolkit::Ptr<ContentNode> oldRoot;
  Toolkit::Ptr<ContentNode> newRoot;
  std::string oldRootTitle, newRootTitle;
};

} // namespace Tesselor
