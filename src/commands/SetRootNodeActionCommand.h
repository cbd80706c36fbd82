#pragma once

#include "nodes/ContentNode.h"
#include "nodes/DocumentView.h"
#include "values/IActionCommand.h"

namespace Tesselor {

/// Makes another node the document's root.
class SetRootNodeActionCommand : public IActionCommand {
public:
  /// The view outlives the history that the command is pushed to. There may be no old root.
  SetRootNodeActionCommand(DocumentView& view, ContentNode* oldRoot, ContentNode& newRoot)
      : view(view), oldRoot(oldRoot), newRoot(&newRoot) {}
  void Do() override { view.SetRootNode(*newRoot); }
  void Undo() override {
    if (oldRoot) view.SetRootNode(*oldRoot);
  }

private:
  DocumentView& view;
  Toolkit::Ptr<ContentNode> oldRoot;
  Toolkit::Ptr<ContentNode> newRoot;
};

} // namespace Tesselor
