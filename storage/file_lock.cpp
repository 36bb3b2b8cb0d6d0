#include "storage/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <thread>

#include "storage/file_io.h"

namespace quillet {
namespace fs = std::filesystem;
namespace {

fs::path LockedFolder(const fs::path& file) {
  const fs::path target = FinalTarget(file);
  return target.has_parent_path() ? target.parent_path() : fs::path(".");
}

// The holder of a flock on the file with this device and inode, read from the system's list of locks:
// lines such as "2: FLOCK  ADVISORY  WRITE 4242 00:2e:98765 0 EOF" (a waiting request is marked "->").
std::optional<std::string> FlockHolder(dev_t device, ino_t inode) {
  std::ifstream locks("/proc/locks");
  std::string line;
  while (std::getline(locks, line)) {
    std::istringstream fields(line);
    std::string number, kind, mode, access, where;
    long long pid = 0;
    if (!(fields >> number >> kind) || kind != "FLOCK") continue;
    if (!(fields >> mode >> access >> pid >> where)) continue;
    unsigned major = 0, minor = 0;
    unsigned long long node = 0;
    if (std::sscanf(where.c_str(), "%x:%x:%llu", &major, &minor, &node) != 3) continue;
    if (major != ::major(device) || minor != ::minor(device) || node != inode) continue;
    if (pid <= 0 || pid == ::getpid()) continue;  // not told, or this program itself
    std::string name;
    std::ifstream comm("/proc/" + std::to_string(pid) + "/comm");
    std::getline(comm, name);
    return (name.empty() ? std::string("a program") : name) + " (process " + std::to_string(pid) + ")";
  }
  return std::nullopt;
}

}  // namespace

WriteLock::WriteLock(const fs::path& file, std::chrono::milliseconds wait, const LockWaitStep& step) {
  const fs::path folder = LockedFolder(file);
  fd_ = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd_ < 0) return;  // nothing to lock: the write that follows reports what is wrong with the folder
  const auto deadline = std::chrono::steady_clock::now() + wait;
  auto pause = std::chrono::milliseconds(1);
  for (;;) {
    if (::flock(fd_, LOCK_EX | LOCK_NB) == 0) return;
    if (errno == EINTR) continue;
    if (errno != EWOULDBLOCK) break;  // no locks on this file system: write without one
    if (std::chrono::steady_clock::now() >= deadline) {
      const long long ms = wait.count();
      const std::optional<std::string> holder = WriteLockHolder(file);
      failure_ =
          "another program" + (holder ? ", " + *holder + "," : std::string()) + " kept the folder \"" +
          folder.string() + "\" locked for " +
          (ms % 1000 == 0 ? std::to_string(ms / 1000) + " seconds" : std::to_string(ms) + " milliseconds");
      break;
    }
    if (step) {
      step(pause);
    } else {
      std::this_thread::sleep_for(pause);
    }
    pause = std::min(pause * 2, std::chrono::milliseconds(50));
  }
  ::close(fd_);
  fd_ = -1;
}

WriteLock::~WriteLock() {
  if (fd_ >= 0) ::close(fd_);  // closing the descriptor releases the lock
}

std::optional<std::string> WriteLockHolder(const fs::path& file) {
  struct stat st {};
  if (::stat(LockedFolder(file).c_str(), &st) != 0) return std::nullopt;
  return FlockHolder(st.st_dev, st.st_ino);
}

}  // namespace quillet
