// The commands of quillet-cli. Each lives in its own cli/cmd_*.cpp and registers itself with a
// CommandRegistrar at start; RunCli finds it by name. Tests run commands in-process through RunCli.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace quillet::cli {

// Exit statuses shared by every command.
inline constexpr int kExitOk = 0;
inline constexpr int kExitFailure = 1;   // something went wrong that is not the user's input
inline constexpr int kExitBadInput = 2;  // the user's input was refused; the reason is on stderr

struct Command {
  const char* name;
  const char* usage;    // the arguments, for --help
  const char* summary;  // one line: what it does
  int order;            // place in --help's list
  int (*run)(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
};

struct CommandRegistrar {
  explicit CommandRegistrar(const Command& command);
};

// The registered commands, in --help order.
std::vector<Command> Commands();

// Runs quillet-cli with `words` (the arguments after the program name); returns the exit status.
int RunCli(const std::vector<std::string>& words, std::ostream& out, std::ostream& err);

}  // namespace quillet::cli
