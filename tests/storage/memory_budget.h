// Memory a piece of work may use, checked without timing: the work runs in a child process whose address
// space may grow by no more than a budget; work that needs more fails to allocate and the child says so.
// A huge file to work on costs no disk space: WriteSparseFile gives it a head and a length, nothing more.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "tests/support/sanitizer.h"

namespace quillet::testing {

// A file of `size` bytes that starts with `head` and is zeros after it, without the zeros on the disk.
inline void WriteSparseFile(const std::filesystem::path& path, const std::string& head, off_t size) {
  const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  ASSERT_GE(fd, 0);
  ASSERT_EQ(::write(fd, head.data(), head.size()), static_cast<ssize_t>(head.size()));
  ASSERT_EQ(::ftruncate(fd, size), 0);
  ::close(fd);
}

// The process's address space now, in bytes.
inline std::size_t AddressSpaceInUse() {
  std::ifstream statm("/proc/self/statm");
  std::size_t pages = 0;
  statm >> pages;
  return pages * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

// Runs `work` in a child process whose address space may grow by at most `budgetBytes`; true when the work
// got through within it and returned true. (Not under the address sanitizer, which reserves far more
// address space than any budget: callers skip there.)
inline bool RunsWithin(std::size_t budgetBytes, const std::function<bool()>& work) {
  const pid_t child = ::fork();
  if (child == 0) {
    rlimit noCore{0, 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    const rlim_t limit = AddressSpaceInUse() + budgetBytes;
    rlimit space{limit, limit};
    ::setrlimit(RLIMIT_AS, &space);
    try {
      ::_exit(work() ? 0 : 1);
    } catch (...) {
      ::_exit(2);  // out of memory
    }
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace quillet::testing
