#include "commands/BatchMoveActionCommand.h"

#include "nodes/ContentNode.h"
#include "nodes/DocumentView.h"
#include "toolkit/controls/Canvas.h"

namespace Tesselor {

void BatchMoveActionCommand::Move(const MoveRecord& record, float left, float top) {
  Toolkit::Canvas::SetTop(record.node.Get(), top);
  Toolkit::Canvas::SetLeft(record.node.Get(), left);
  const auto* node = Toolkit::DynamicCast<ContentNode>(static_cast<Toolkit::Object*>(record.node.Get()));
  if (!node) return;
  record.node->UpdateLayout();
  view.RefreshConnectionsOf(*node);
}

void BatchMoveActionCommand::Do() {
  for (const MoveRecord& record : records) Move(record, record.newLeft, record.newTop);
}

void BatchMoveActionCommand::Undo() {
  for (const MoveRecord& record : records) Move(record, record.oldLeft, record.oldTop);
}

} // namespace Tesselor
