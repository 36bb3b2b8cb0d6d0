// quillet-cli: Quillet's core from a terminal.
#include <iostream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "quillet/version.h"

namespace quillet::cli {
namespace {

// Every command the CLI knows, in the order --help lists them.
const Command kCommands[] = {
    {nullptr, nullptr, nullptr, nullptr},  // end marker; commands are listed above it
};

void PrintHelp(std::ostream& out) {
  out << "Quillet " << kVersionText << ": hand-range analyser and odds calculator for Texas Hold'em.\n\n"
      << "Usage: quillet-cli COMMAND [OPTIONS]\n"
      << "       quillet-cli --help | --version\n\n";
  bool any = false;
  for (const Command& c : kCommands) {
    if (c.name == nullptr) break;
    if (!any) out << "Commands:\n";
    any = true;
    out << "  " << c.name << " " << c.usage << "\n      " << c.summary << "\n";
  }
  out << "\nCards are written rank then suit, run together: \"AhKd\", board \"Tc8h3s\".\n"
      << "Exit status: 0 success, 2 input refused (the reason is on stderr), 1 other failure.\n";
}

}  // namespace
}  // namespace quillet::cli

int main(int argc, char** argv) {
  using namespace quillet::cli;
  std::vector<std::string> words(argv + 1, argv + argc);
  if (words.empty() || words[0] == "--help" || words[0] == "-h" || words[0] == "help") {
    PrintHelp(std::cout);
    return words.empty() ? kExitBadInput : kExitOk;
  }
  if (words[0] == "--version") {
    std::cout << "quillet-cli " << quillet::kVersionText << "\n";
    return kExitOk;
  }
  for (const Command& c : kCommands) {
    if (c.name == nullptr) break;
    if (words[0] == c.name) {
      return c.run(std::vector<std::string>(words.begin() + 1, words.end()), std::cout, std::cerr);
    }
  }
  std::cerr << "quillet-cli: unknown command \"" << words[0] << "\" (see quillet-cli --help)\n";
  return kExitBadInput;
}
