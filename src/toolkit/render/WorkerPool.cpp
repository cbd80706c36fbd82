#include "toolkit/render/WorkerPool.h"

#include <algorithm>

namespace Toolkit {

WorkerPool::WorkerPool(int wanted) {
  constexpr int maximum = 4;
  const int processors = static_cast<int>(std::thread::hardware_concurrency());
  const int total = std::clamp(wanted > 0 ? wanted : processors, 1, maximum);
  for (int i = 1; i < total; ++i) threads.emplace_back([this, i] { Serve(i); });
}

WorkerPool::~WorkerPool() {
  {
    const std::lock_guard lock(mutex);
    isStopping = true;
  }
  started.notify_all();
  for (std::thread& thread : threads) thread.join();
}

void WorkerPool::Run(int pieces, const std::function<void(int, int)>& function) {
  if (threads.empty() || pieces <= 1) {
    for (int i = 0; i < pieces; ++i) function(i, 0);
    return;
  }
  {
    const std::lock_guard lock(mutex);
    work = &function;
    count = pieces;
    next = 0;
    busy = threads.size();
    ++round;
  }
  started.notify_all();
  TakePieces(0);
  std::unique_lock lock(mutex);
  finished.wait(lock, [this] { return busy == 0; });
  work = nullptr;
}

void WorkerPool::Serve(int thread) {
  uint64_t served = 0;
  std::unique_lock lock(mutex);
  while (true) {
    started.wait(lock, [&] { return isStopping || round != served; });
    if (isStopping) return;
    served = round;
    lock.unlock();
    TakePieces(thread);
    lock.lock();
    if (--busy == 0) finished.notify_one();
  }
}

void WorkerPool::TakePieces(int thread) {
  for (int piece = next++; piece < count; piece = next++) (*work)(piece, thread);
}

} // namespace Toolkit
