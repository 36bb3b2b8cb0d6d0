#include "storage/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

#include "storage/file_io.h"

namespace quillet {
namespace fs = std::filesystem;

WriteLock::WriteLock(const fs::path& file, std::chrono::milliseconds wait) {
  const fs::path target = FinalTarget(file);
  const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
  fd_ = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd_ < 0) return;  // nothing to lock: the write that follows reports what is wrong with the folder
  const auto deadline = std::chrono::steady_clock::now() + wait;
  auto pause = std::chrono::milliseconds(1);
  for (;;) {
    if (::flock(fd_, LOCK_EX | LOCK_NB) == 0) return;
    if (errno == EINTR) continue;
    if (errno != EWOULDBLOCK) break;  // no locks on this file system: go on as before
    if (std::chrono::steady_clock::now() >= deadline) {
      const long long ms = wait.count();
      failure_ =
          "another program kept the folder \"" + folder.string() + "\" locked for " +
          (ms % 1000 == 0 ? std::to_string(ms / 1000) + " seconds" : std::to_string(ms) + " milliseconds");
      break;
    }
    std::this_thread::sleep_for(pause);
    pause = std::min(pause * 2, std::chrono::milliseconds(50));
  }
  ::close(fd_);
  fd_ = -1;
}

WriteLock::~WriteLock() {
  if (fd_ >= 0) ::close(fd_);  // closing the descriptor releases the lock
}

}  // namespace quillet
