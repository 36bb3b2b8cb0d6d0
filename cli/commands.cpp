#include "cli/commands.h"

#include <algorithm>
#include <ostream>

#include "cards/terminal_text.h"
#include "quillet/version.h"

namespace quillet::cli {
namespace {

std::vector<Command>& Registry() {
  static std::vector<Command> commands;
  return commands;
}

void PrintHelp(std::ostream& out) {
  out << "Quillet " << kVersionText << ": hand-range analyser and odds calculator for Texas Hold'em.\n\n"
      << "Usage: quillet-cli COMMAND [OPTIONS]\n"
      << "       quillet-cli --help | --version\n";
  const auto commands = Commands();
  if (!commands.empty()) out << "\nCommands:\n";
  for (const Command& c : commands)
    out << "  " << c.name << " " << c.usage << "\n      " << c.summary << "\n";
  out << "\nCards are written rank then suit, run together: My Hand \"AhKd\", board \"Tc8h3s\".\n"
      << "Exit status: 0 success, 2 input refused (the reason is on stderr), 1 other failure.\n";
}

}  // namespace

CommandRegistrar::CommandRegistrar(const Command& command) {
  Registry().push_back(command);
}

std::vector<Command> Commands() {
  std::vector<Command> commands = Registry();
  std::stable_sort(commands.begin(), commands.end(),
                   [](const Command& a, const Command& b) { return a.order < b.order; });
  return commands;
}

int RunCli(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
  if (words.empty()) {
    PrintHelp(err);
    return kExitBadInput;
  }
  if (words[0] == "--help" || words[0] == "-h" || words[0] == "help") {
    PrintHelp(out);
    return kExitOk;
  }
  if (words[0] == "--version") {
    out << "quillet-cli " << kVersionText << "\n";
    return kExitOk;
  }
  for (const Command& c : Commands()) {
    if (words[0] == c.name) return c.run(std::vector<std::string>(words.begin() + 1, words.end()), out, err);
  }
  err << "quillet-cli: unknown command \"" << EscapeControlCharacters(words[0])
      << "\" (see quillet-cli --help)\n";
  return kExitBadInput;
}

}  // namespace quillet::cli
