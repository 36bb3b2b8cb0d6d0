// The bookkeeping of a window's calculations on worker threads: one current run at a time, and the runs
// Stop left behind. A stopped run is asked to stop and kept, never waited for, until its thread says it has
// ended, so Stop answers at once and the window never freezes.
//
// Run has `shared`, a std::shared_ptr to what the thread and the window share, whose std::atomic<bool>
// `finished` the thread sets (release) once it has written its results, and `thread`, a std::jthread.
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <vector>

namespace quillet {

template <class Run>
class WorkerRuns {
 public:
  bool Running() const { return current_ != nullptr; }
  // The current run; only while Running().
  const Run& Current() const { return *current_; }
  // Stopped runs whose threads have not ended yet.
  std::size_t WindingDown() const { return stopped_.size(); }

  void Start(std::unique_ptr<Run> run) { current_ = std::move(run); }

  // Asks the current run to stop and keeps it until its thread ends; false when none was running.
  bool Stop() {
    ForgetEnded();
    if (current_ == nullptr) return false;
    current_->thread.request_stop();
    stopped_.push_back(std::move(current_));
    return true;
  }

  // The current run once its thread has written its results (joined, no longer current); nullptr while
  // it is still working or when none is running.
  std::unique_ptr<Run> TakeFinished() {
    ForgetEnded();
    if (current_ == nullptr || !current_->shared->finished.load(std::memory_order_acquire)) return nullptr;
    std::unique_ptr<Run> run = std::move(current_);
    run->thread.join();
    return run;
  }

 private:
  // Joins the stopped runs whose threads have ended.
  void ForgetEnded() {
    std::erase_if(stopped_, [](const std::unique_ptr<Run>& run) {
      return run->shared->finished.load(std::memory_order_acquire);
    });
  }

  std::unique_ptr<Run> current_;
  std::vector<std::unique_ptr<Run>> stopped_;
};

}  // namespace quillet
