// Runs quillet-cli in-process for the CLI tests, and a fixture for its profile commands.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "tests/storage/temp_folder.h"

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

// `profiles` commands on a profile file in a fresh folder.
class ProfilesCommandTest : public ::testing::Test {
 protected:
  std::string File() const { return (dir / "Player_Profiles.ini").string(); }
  // Runs `profiles WORDS --file FILE`.
  CliRun Run(std::vector<std::string> words) {
    words.insert(words.begin(), "profiles");
    words.push_back("--file");
    words.push_back(File());
    return RunCommandLine(words);
  }

  quillet::testing::TempFolder dir;
};

}  // namespace quillet::cli
