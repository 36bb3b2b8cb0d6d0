// The commands of quillet-cli. Each lives in its own cli/cmd_*.cpp and is listed in kCommands (main.cpp).
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace quillet::cli {

// Exit statuses shared by every command.
inline constexpr int kExitOk = 0;
inline constexpr int kExitFailure = 1;  // something went wrong that is not the user's input
inline constexpr int kExitBadInput = 2;  // the user's input was refused; the reason is on stderr

struct Command {
  const char* name;
  const char* usage;    // one line: the arguments
  const char* summary;  // one line: what it does
  int (*run)(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
};

}  // namespace quillet::cli
