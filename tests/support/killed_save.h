// A save killed halfway, as a crash or a full disk would stop it: for the tests of what a save leaves behind.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace quillet::testing {

// Runs `save` in a child process that the kernel kills with SIGXFSZ once the file it writes reaches `bytes`
// (no core file). A save that runs to its end fails the test.
inline void KillASaveHalfway(const std::function<void()>& save, rlim_t bytes) {
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    signal(SIGXFSZ, SIG_DFL);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
    save();
    _exit(0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status)) << "the save ran to its end";
  EXPECT_EQ(WTERMSIG(status), SIGXFSZ);
}

}  // namespace quillet::testing
