// An advisory lock that writers of a data file hold while they read it, change it and write it back, so
// that two programs changing the same file take turns instead of each writing back what it read before the
// other's change. The lock is taken on the file's folder (flock), not on the file: a save replaces the file
// with a new one, and a lock on the old one would guard nothing. Readers take no lock; every save is
// atomic, so they see the old file or the new one.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace quillet {

// How long a writer waits for another one to finish before it gives up.
inline constexpr std::chrono::milliseconds kWriteLockWait{10000};

// Waits the given time between two tries for the lock; by default the thread sleeps. The window hands one
// that keeps it painting while it waits.
using LockWaitStep = std::function<void(std::chrono::milliseconds)>;

class WriteLock {
 public:
  // Waits up to `wait` for the lock on the folder of `file` (symbolic links followed), in steps of at most
  // 50 ms, each taken by `step`. Where no lock can be had at all (a missing folder, a file system without
  // locks) the writer goes on and writes without one.
  explicit WriteLock(const std::filesystem::path& file, std::chrono::milliseconds wait = kWriteLockWait,
                     const LockWaitStep& step = {});
  ~WriteLock();
  WriteLock(const WriteLock&) = delete;
  WriteLock& operator=(const WriteLock&) = delete;

  // Why the writer must not go on: another one held the lock for the whole wait. A clause such as
  // `another program kept the folder "F" locked for 10 seconds`, or, when the system says who holds it,
  // `another program, quillet-cli (process 4242), kept the folder "F" locked for 10 seconds`.
  const std::optional<std::string>& failure() const { return failure_; }

 private:
  int fd_ = -1;
  std::optional<std::string> failure_;
};

// The other process that holds the write lock on the folder of `file`, as "NAME (process PID)", when the
// system lists it (Linux: /proc/locks); none when no other process holds it or it cannot be told.
std::optional<std::string> WriteLockHolder(const std::filesystem::path& file);

}  // namespace quillet
