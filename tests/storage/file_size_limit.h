// While alive, a write that would make a file larger than the limit fails with "File too large" instead of
// killing the process: seen from the program, the same failure as a disk that fills up mid-write.
#pragma once

#include <signal.h>
#include <sys/resource.h>

namespace quillet::testing {

class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &saved_);
    oldHandler_ = signal(SIGXFSZ, SIG_IGN);
    rlimit limit = saved_;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &saved_);
    signal(SIGXFSZ, oldHandler_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit saved_{};
  sighandler_t oldHandler_;
};

}  // namespace quillet::testing
