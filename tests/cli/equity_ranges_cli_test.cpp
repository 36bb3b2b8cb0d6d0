#include <gtest/gtest.h>

#include <string>

#include "tests/cli/cli_run.h"

namespace quillet::cli {
namespace {

TEST(EquityRangesCli, JsonGivesMyRangesExactEquityAgainstTheOpponentsRange) {
  const CliRun run = RunCommandLine({"equity", "--hand-range", "22+,A2s+,K9s+,QTs+,JTs,ATo+,KJo+", "--range",
                                     "22+,A7s+,KTs+,QJs,AJo+,KQo", "--board", "Tc8h3s", "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  const auto my = run.out.find("{\"my\":47.4252");
  EXPECT_EQ(my, 0u) << run.out;
  EXPECT_NE(run.out.find("\"showdowns\":"), std::string::npos);
  EXPECT_NE(run.out.find("\"rules\":\"standard\""), std::string::npos);
}

TEST(EquityRangesCli, RandomAgainstRandomIsAnEvenMatch) {
  const CliRun run =
      RunCommandLine({"equity", "--hand-range", "random", "--range", "random", "--board", "Tc8h3s2d"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out.rfind("My Equity: 50.0%\nOpp Equity: 50.0%\n", 0), 0u) << run.out;
}

TEST(EquityRangesCli, ARangeWithAnErrorIsRefusedNamingTheToken) {
  const CliRun run =
      RunCommandLine({"equity", "--hand-range", "QQ+,AKx", "--range", "random", "--board", ""});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err.rfind("equity: --hand-range: ", 0), 0u) << run.err;
}

}  // namespace
}  // namespace quillet::cli
