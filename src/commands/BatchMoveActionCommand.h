#pragma once

#include "graph/MoveRecord.h"
#include "values/IActionCommand.h"

#include <vector>

namespace Tesselor {

class DocumentView;

/// Moves nodes. Made after the nodes were moved, so it is pushed without being run.
class BatchMoveActionCommand : public IActionCommand {
public:
  /// The view outlives the history that the command is pushed to.
  BatchMoveActionCommand(DocumentView& view, std::vector<MoveRecord> records)
      : view(view), records(std::move(records)) {}
  void Do() override;
  void Undo() override;

private:
  void Move(const MoveRecord& record, float left, float top);
  DocumentView& view;
  std::vector<MoveRecord> records;
};

} // namespace Tesselor
