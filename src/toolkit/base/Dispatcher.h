#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <vector>

namespace Toolkit {

/// The UI thread's queue of work for later: timers and tasks. Time comes from a clock that tests replace, so that
/// nothing in the toolkit sleeps by itself.
class Dispatcher {
public:
  using Task = std::function<void()>;
  using TimerId = uint64_t;

  static Dispatcher& Current();

  /// Runs `task` once in the next turn of the loop.
  void Post(Task task);
  /// As `Post`, from any thread; wakes a loop that waits for input.
  void PostFromThread(Task task);
  /// How another thread wakes the loop; set by the display that waits. Empty without one.
  void SetWake(std::function<void()> newWake);
  /// Runs `task` once after `milliseconds`. The result names it for `Cancel`; it is never 0.
  TimerId StartTimer(double milliseconds, Task task);
  void Cancel(TimerId timer);

  /// Runs what is due; true if anything ran.
  bool RunDue();
  bool HasWork() const { return !tasks.empty() || !timers.empty() || HasThreadTasks(); }
  /// Milliseconds until the next timer, 0 if something is due, negative if there is no work.
  double TimeToNext() const;

  /// Milliseconds of a monotonic clock.
  double Now() const { return clock(); }
  void SetClock(std::function<double()> newClock);
  /// Drops all work.
  void Clear();

private:
  Dispatcher();
  struct Timer {
    TimerId id;
    double due;
    Task task;
  };
  bool HasThreadTasks() const;
  std::vector<Task> tasks;
  mutable std::mutex threadLock;
  std::vector<Task> threadTasks;
  std::function<void()> wake;
  std::vector<Timer> timers;
  TimerId nextId = 1;
  std::function<double()> clock;
};

} // namespace Toolkit
