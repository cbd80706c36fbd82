#include "values/ActionHistory.h"

#include <utility>

namespace Tesselor {

ActionHistory& ActionHistory::Instance() {
  static ActionHistory history;
  return history;
}

void ActionHistory::Push(std::unique_ptr<IActionCommand> command) {
  commands.erase(commands.begin(), commands.begin() + static_cast<std::ptrdiff_t>(undoneCount));
  undoneCount = 0;
  commands.push_front(std::move(command));
  while (commands.size() > capacity) commands.pop_back();
}

void ActionHistory::UndoLast() {
  if (undoneCount >= commands.size()) return;
  commands[undoneCount]->Undo();
  ++undoneCount;
}

void ActionHistory::RedoLast() {
  if (undoneCount == 0) return;
  --undoneCount;
  commands[undoneCount]->Do();
}

void ActionHistory::Clear() {
  undoneCount = 0;
  // What the commands kept alive goes here and may look at the history, which is empty by then.
  std::exchange(commands, {});
}

} // namespace Tesselor
