#include <gtest/gtest.h>

#include "cli/commands.h"
#include "tests/cli/cli_run.h"

namespace quillet::cli {
namespace {

TEST(CliHelp, EveryCommandAnswersHelpWithItsOptionsAndExitsWithZero) {
  for (const Command& c : Commands()) {
    const CliRun run = RunCommandLine({c.name, "--help"});
    EXPECT_EQ(run.status, 0) << c.name;
    EXPECT_TRUE(run.err.empty()) << c.name << ": " << run.err;
    EXPECT_NE(run.out.find(std::string("quillet-cli ") + c.name), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("--help"), std::string::npos) << run.out;
  }
}

TEST(CliHelp, CookHelpListsTheSharedOptions) {
  const CliRun run = RunCommandLine({"cook", "--help"});
  for (const char* option :
       {"--hand", "--board", "--range", "--top", "--seen", "--json", "--win-lose-icons"}) {
    EXPECT_NE(run.out.find(option), std::string::npos) << option;
  }
}

// --range reads range notation (AK is both halves); the help says so, not that LIST is a class list.
TEST(CliHelp, CookHelpSaysARangeIsWrittenInRangeNotation) {
  const CliRun run = RunCommandLine({"cook", "--help"});
  EXPECT_NE(run.out.find("LIST is a range in range notation"), std::string::npos) << run.out;
  EXPECT_EQ(run.out.find("LIST is class names"), std::string::npos) << run.out;
}

TEST(CliOptions, AnOptionGivenTwiceKeepsItsLastValue) {
  const CliRun run =
      RunCommandLine({"equity", "--hand", "2c3d", "--hand", "AhAd", "--board", "AcAs2d", "--range", "KK"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "My Equity: 100.0%\nOpp Equity: 0.0%\n");
}

TEST(CliOptions, AValuedOptionWithoutItsValueIsNamed) {
  const CliRun run = RunCommandLine({"cook", "--hand", "AhKd", "--board", "", "--range"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "cook: missing value after --range\n");
}

}  // namespace
}  // namespace quillet::cli
