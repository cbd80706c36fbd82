#pragma once

#include "values/IActionCommand.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace Tesselor {

/// The one history of the editor: all steps, structural ones and values alike, in the order in which the user made
/// them. It knows nothing of nodes or fields, nor what is saved: whoever does compares `State`.
class ActionHistory {
public:
  /// Older steps are forgotten, and so are those beyond what the newer ones may hold in all. The newest always stays.
  static constexpr size_t capacity = 512;
  static constexpr size_t byteBudget = size_t(256) << 20;

  enum class StepEvent { Made, Undone, Redone };

  static ActionHistory& Instance();
  ActionHistory() = default;
  ActionHistory(const ActionHistory&) = delete;
  ActionHistory& operator=(const ActionHistory&) = delete;

  /// Called after each step, for whoever tells the user. It must leave the history alone.
  std::function<void(StepEvent, const IActionCommand&)> onStep;

  /// Takes a step that has taken effect already; `Do` is not called. What was undone before can't be redone after. A
  /// step that is pushed while another one is undone or redone follows as soon as that is done.
  void Push(std::unique_ptr<IActionCommand> command);
  /// Takes a step that was made and undone before it came here, such as a text in its own box: the next to be redone.
  /// What was undone before it was made can't be redone any more.
  void PushUndone(std::unique_ptr<IActionCommand> command);
  /// Runs a step and takes it. What is pushed meanwhile, such as the text that was typed into what leaves, comes first.
  void Run(std::unique_ptr<IActionCommand> command);
  /// The newest step, which is not undone, has taken in more of the same: it leads to another state than before.
  void NoteExtension();
  /// False if there is nothing to undo.
  bool UndoLast();
  /// False if there is nothing to redo.
  bool RedoLast();
  /// Forgets all steps, and with them whatever only they kept alive.
  void Clear();

  size_t Size() const { return commands.size(); }
  /// Changes with every step that is pushed, undone, redone or forgotten: as long as it stays, so does the newest step.
  uint64_t Revision() const { return revision; }
  size_t UndoneCount() const { return undoneCount; }
  /// Names what the document holds by the steps that stand: undo and redo lead back to the name that was there before,
  /// and no two states share one. Never 0.
  uint64_t State() const { return undoneCount < commands.size() ? commands[undoneCount].state : oldestState; }

  /// Told after each change of `Revision`.
  std::function<void()> onChanged;

private:
  void Tell(StepEvent event, const IActionCommand& command) const;
  void PutInFront(std::unique_ptr<IActionCommand> command);
  struct Step {
    std::unique_ptr<IActionCommand> command;
    /// What `State` is while this is the newest step that stands.
    uint64_t state;
  };
  void NoteChange();
  void PushWaiting();
  void ForgetOldSteps();

  /// Newest first. The first `undoneCount` commands are undone; the one behind them is the next to be undone.
  std::deque<Step> commands;
  size_t undoneCount = 0;
  uint64_t revision = 0;
  uint64_t newestState = 1;
  /// With all steps undone.
  uint64_t oldestState = 1;
  /// A step is being undone or redone; what is pushed then waits here.
  bool isStepping = false;
  std::vector<std::unique_ptr<IActionCommand>> waiting;
};

} // namespace Tesselor
