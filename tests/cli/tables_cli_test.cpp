#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/cli/cli_run.h"

namespace quillet::cli {
namespace {

TEST(TablesCommand, InfoDescribesTheBuiltInTableAfterCheckingIt) {
  const CliRun run = RunCommandLine({"tables", "info"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("Preflop table: format version 1, "), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("(checked)"), std::string::npos) << run.out;
}

TEST(TablesCommand, InfoDescribesTheBuiltInClassTableAfterCheckingIt) {
  const CliRun run = RunCommandLine({"tables", "info"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_NE(
      run.out.find("\nPreflop class table: format version 1, 47008 matchup classes, 752148 bytes, CRC-32 "),
      std::string::npos)
      << run.out;
}

TEST(TablesCommand, WithoutAnActionSaysWhatItTakes) {
  const CliRun run = RunCommandLine({"tables"});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("generate [--out FILE] [--classes-out FILE] [--threads N]"), std::string::npos)
      << run.err;
}

TEST(TablesCommand, RefusesAThreadCountThatIsNotAWholeNumberFromOne) {
  for (const char* bad : {"0", "-2", "two", "3x", ""}) {
    const CliRun run = RunCommandLine({"tables", "generate", "--threads", bad});
    EXPECT_EQ(run.status, 2) << bad;
    EXPECT_NE(run.err.find("--threads takes a whole number"), std::string::npos) << run.err;
  }
}

TEST(TablesCommand, ReportsAnUnwritableOutputBeforeStartingTheWork) {
  const CliRun run = RunCommandLine({"tables", "generate", "--out", "/nonexistent-folder/x.bin"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "quillet-cli tables: cannot write /nonexistent-folder/x.bin\n");
}

TEST(TablesCommand, ReportsAnUnwritableClassTableOutputBeforeStartingTheWorkLeavingTheOtherFileAlone) {
  const std::string out = ::testing::TempDir() + "tables_cli_test_matchups.bin";
  std::ofstream(out) << "old table";
  const CliRun run =
      RunCommandLine({"tables", "generate", "--out", out, "--classes-out", "/nonexistent-folder/c.bin"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "quillet-cli tables: cannot write /nonexistent-folder/c.bin\n");
  std::ifstream in(out);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "old table");
  std::remove(out.c_str());
}

}  // namespace
}  // namespace quillet::cli
