#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace Toolkit {

/// A few threads that share out numbered pieces of work. The threads sleep between two calls.
class WorkerPool {
public:
  /// `threads` counts the calling one; 0 takes as many as the machine has processors, 4 at most.
  explicit WorkerPool(int threads = 0);
  ~WorkerPool();
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  int ThreadCount() const { return static_cast<int>(threads.size()) + 1; }
  /// Calls `work(piece, thread)` once for each piece below `count`, in any order, and returns when all are done.
  /// `work` must not throw.
  void Run(int count, const std::function<void(int piece, int thread)>& work);

private:
  void Serve(int thread);
  void TakePieces(int thread);

  std::vector<std::thread> threads;
  std::mutex mutex;
  std::condition_variable started, finished;
  const std::function<void(int, int)>* work = nullptr;
  int count = 0;
  std::atomic<int> next{0};
  /// Counts the calls of `Run`, so that a thread serves each call once.
  uint64_t round = 0;
  size_t busy = 0;
  bool isStopping = false;
};

} // namespace Toolkit
