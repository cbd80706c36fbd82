#include "toolkit/base/Dispatcher.h"

#include <algorithm>
#include <chrono>

namespace Toolkit {

namespace {
double SteadyMilliseconds() {
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch()).count();
}
} // namespace

Dispatcher::Dispatcher() : clock(SteadyMilliseconds) {}

Dispatcher& Dispatcher::Current() {
  static auto* dispatcher = new Dispatcher();
  return *dispatcher;
}

void Dispatcher::Post(Task task) { tasks.push_back(std::move(task)); }

void Dispatcher::PostFromThread(Task task) {
  const std::lock_guard lock(threadLock);
  threadTasks.push_back(std::move(task));
  if (wake) wake();
}

void Dispatcher::SetWake(std::function<void()> newWake) {
  const std::lock_guard lock(threadLock);
  wake = std::move(newWake);
}

bool Dispatcher::HasThreadTasks() const {
  const std::lock_guard lock(threadLock);
  return !threadTasks.empty();
}

Dispatcher::TimerId Dispatcher::StartTimer(double milliseconds, Task task) {
  timers.push_back({nextId, Now() + milliseconds, std::move(task)});
  return nextId++;
}

void Dispatcher::Cancel(TimerId timer) {
  std::erase_if(timers, [timer](const Timer& t) { return t.id == timer; });
}

bool Dispatcher::RunDue() {
  bool ran = false;
  std::vector<Task> current = std::move(tasks);
  tasks.clear();
  {
    const std::lock_guard lock(threadLock);
    for (Task& task : threadTasks) current.push_back(std::move(task));
    threadTasks.clear();
  }
  for (Task& task : current) {
    task();
    ran = true;
  }
  const double now = Now();
  for (;;) {
    auto due = std::min_element(timers.begin(), timers.end(), [](const Timer& a, const Timer& b) {
      return a.due != b.due ? a.due < b.due : a.id < b.id;
    });
    if (due == timers.end() || due->due > now) return ran;
    Task task = std::move(due->task);
    timers.erase(due);
    task();
    ran = true;
  }
}

double Dispatcher::TimeToNext() const {
  if (!tasks.empty() || HasThreadTasks()) return 0;
  double next = -1;
  for (const Timer& timer : timers) {
    const double wait = std::max(0.0, timer.due - Now());
    if (next < 0 || wait < next) next = wait;
  }
  return next;
}

void Dispatcher::SetClock(std::function<double()> newClock) {
  clock = newClock ? std::move(newClock) : SteadyMilliseconds;
}

void Dispatcher::Clear() {
  tasks.clear();
  timers.clear();
  const std::lock_guard lock(threadLock);
  threadTasks.clear();
}

} // namespace Toolkit
