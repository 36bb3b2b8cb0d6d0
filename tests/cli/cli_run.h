// Runs quillet-cli in-process for the CLI tests.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"

namespace quillet::cli {

struct CliRun {
  int status;
  std::string out;
  std::string err;
};

inline CliRun RunCommandLine(const std::vector<std::string>& words) {
  std::ostringstream out, err;
  const int status = RunCli(words, out, err);
  return {status, out.str(), err.str()};
}

}  // namespace quillet::cli
