#include "values/ActionHistory.h"

#include <utility>

namespace Tesselor {

ActionHistory& ActionHistory::Instance() {
  static ActionHistory history;
  return history;
}

void ActionHistory::PutInFront(std::unique_ptr<IActionCommand> command) {
  commands.erase(commands.begin(), commands.begin() + static_cast<std::ptrdiff_t>(undoneCount));
  undoneCount = 0;
  commands.push_front({std::move(command), ++newestState});
}

void ActionHistory::PushUndone(std::unique_ptr<IActionCommand> command) {
  if (isStepping) return;
  PutInFront(std::move(command));
  undoneCount = 1;
  ForgetOldSteps();
  NoteChange();
}

void ActionHistory::Push(std::unique_ptr<IActionCommand> command) {
  if (isStepping) {
    waiting.push_back(std::move(command));
    return;
  }
  PutInFront(std::move(command));
  Tell(StepEvent::Made, *commands.front().command);
  ForgetOldSteps();
  NoteChange();
}

void ActionHistory::NoteChange() {
  ++revision;
  if (onChanged) onChanged();
}

void ActionHistory::ForgetOldSteps() {
  size_t kept = 0, bytes = 0;
  for (; kept < commands.size() && kept < capacity; ++kept) {
    bytes += commands[kept].command->HeldBytes();
    if (kept > 0 && bytes > byteBudget) break;
  }
  // Without the oldest no older one could be undone.
  while (commands.size() > kept) {
    oldestState = commands.back().state;
    commands.pop_back();
  }
}

void ActionHistory::Run(std::unique_ptr<IActionCommand> command) {
  command->Do();
  Push(std::move(command));
}

void ActionHistory::NoteExtension() {
  if (undoneCount > 0 || commands.empty()) return;
  commands.front().state = ++newestState;
  NoteChange();
}

bool ActionHistory::UndoLast() {
  if (isStepping || undoneCount >= commands.size()) return false;
  isStepping = true;
  commands[undoneCount++].command->Undo();
  isStepping = false;
  Tell(StepEvent::Undone, *commands[undoneCount - 1].command);
  NoteChange();
  PushWaiting();
  return true;
}

bool ActionHistory::RedoLast() {
  if (isStepping || undoneCount == 0) return false;
  isStepping = true;
  commands[--undoneCount].command->Do();
  isStepping = false;
  Tell(StepEvent::Redone, *commands[undoneCount].command);
  NoteChange();
  PushWaiting();
  return true;
}

void ActionHistory::Tell(StepEvent event, const IActionCommand& command) const {
  if (onStep) onStep(event, command);
}

void ActionHistory::PushWaiting() {
  for (std::unique_ptr<IActionCommand>& command : std::exchange(waiting, {})) Push(std::move(command));
}

void ActionHistory::Clear() {
  undoneCount = 0;
  oldestState = ++newestState;
  // What the commands kept alive goes here and may look at the history, which is empty by then.
  std::exchange(commands, {});
  NoteChange();
}

} // namespace Tesselor
