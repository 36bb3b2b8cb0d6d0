// quillet-cli: Quillet's core from a terminal.
#include <iostream>
#include <string>
#include <vector>

#include "cli/commands.h"

int main(int argc, char** argv) {
  return quillet::cli::RunCli(std::vector<std::string>(argv + 1, argv + argc), std::cout, std::cerr);
}
