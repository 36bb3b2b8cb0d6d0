// Long counts on worker threads, watched from the calling thread: the one place that starts the workers,
// wakes when the last has ended and otherwise looks in about every 50 ms (for progress and cancel).
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

namespace quillet {

// Runs work(t) for t = 0 .. threads - 1, each on a thread of its own. Meanwhile the calling thread calls
// poll() about every 50 ms until every worker has ended; poll() returning false ends the watch (the
// caller tells its workers to stop through a flag of its own). Returns once every worker has ended.
template <class Work, class Poll>
void RunOnWorkerThreads(int threads, Work&& work, Poll&& poll) {
  std::mutex mutex;
  std::condition_variable wake;
  std::atomic<int> ended{0};
  std::vector<std::jthread> workers;
  for (int t = 0; t < threads; ++t) {
    workers.emplace_back([&, t] {
      work(t);
      if (ended.fetch_add(1) + 1 == threads) {
        std::lock_guard lock(mutex);
        wake.notify_all();
      }
    });
  }
  std::unique_lock lock(mutex);
  while (ended.load() < threads) {
    wake.wait_for(lock, std::chrono::milliseconds(50));
    if (ended.load() >= threads) break;
    if (!poll()) break;
  }
  lock.unlock();  // the workers take it to say they have ended; they are joined below
}

}  // namespace quillet
