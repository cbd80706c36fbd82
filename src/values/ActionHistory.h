#pragma once

#include "values/IActionCommand.h"

#include <cstddef>
#include <deque>
#include <memory>

namespace Tesselor {

/// The one history of the editor: all steps, structural ones and values alike, in the order in which the user made
/// them. It knows nothing of nodes or fields, and keeps no mark of what is saved.
class ActionHistory {
public:
  /// Older steps are forgotten.
  static constexpr size_t capacity = 512;

  static ActionHistory& Instance();
  ActionHistory() = default;
  ActionHistory(const ActionHistory&) = delete;
  ActionHistory& operator=(const ActionHistory&) = delete;

  /// Takes a step that has taken effect already; `Do` is not called. What was undone before can't be redone after.
  void Push(std::unique_ptr<IActionCommand> command);
  /// Does nothing if there is nothing to undo.
  void UndoLast();
  /// Does nothing if there is nothing to redo.
  void RedoLast();
  /// Forgets all steps, and with them whatever only they kept alive.
  void Clear();

  size_t Size() const { return commands.size(); }
  size_t UndoneCount() const { return undoneCount; }

private:
  /// Newest first. The first `undoneCount` commands are undone; the one behind them is the next to be undone.
  std::deque<std::unique_ptr<IActionCommand>> commands;
  size_t undoneCount = 0;
};

} // namespace Tesselor
